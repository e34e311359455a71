// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Callback.h"

#include <QDialog>
#include <QIcon>
#include <QPointer>

#include <optional>

class QDialogButtonBox;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace quor::toolkit {

/// A dialog with an icon, a message, a text that explains it, a view of the caller, and buttons. Each
/// button is identified by its tag. Texts are shown without markup.
///
/// Return chooses the first button. Escape and closing the window choose the button with the `cancelTag`.
/// Without that button they choose the only button; if there are several, they are ignored. Main thread only.
class Alert final : public QDialog {
    Q_OBJECT

public:
    static constexpr int cancelTag = 9999;

    explicit Alert(QWidget* parent = nullptr);
    ~Alert() override;

    /// Sets the icon. A null icon stands for the desktop's warning sign, which is the default.
    void setAlertIcon(const QIcon& icon);
    void setMessageText(const QString& text);
    void setInformativeText(const QString& text);

    /// A view below the texts, in place of the one before; null removes it. The caller keeps ownership: when
    /// the view is replaced, or this alert ends, the view becomes hidden and has no parent.
    void setAccessoryView(QWidget* view);
    /// Returns the new button, owned by this alert.
    QPushButton* addButton(const QString& title, int tag);
    /// Returns null if there is no button with this tag.
    [[nodiscard]] QPushButton* button(int tag) const;

    /// Called once with the tag of the chosen button, after the alert was hidden. It must not
    /// delete the alert directly, only by `deleteLater`.
    platform::Callback<void(int tag)> ended;
    /// Hides the alert without calling `ended`.
    void dismiss();

    void reject() override;

private:
    void end(int tag);
    [[nodiscard]] std::optional<int> escapeTag() const;

    QLabel* icon_;
    QLabel* message_;
    QLabel* informative_;
    QVBoxLayout* texts_;
    QDialogButtonBox* buttons_;
    QPointer<QWidget> accessory_;
};

} // namespace quor::toolkit
