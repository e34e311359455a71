// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QIcon>
#include <QPointer>

#include <functional>
#include <optional>

class QAbstractButton;
class QDialogButtonBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace quor::toolkit {

/// A dialog of an icon, a message, a text that explains it, a view of the caller's, and buttons that
/// are told apart by tags. Texts are plain. Return chooses the first button; Escape and closing the
/// window choose the cancel button, or the only one there is, else they do nothing. Main thread only.
class Alert final : public QDialog {
    Q_OBJECT

public:
    static constexpr int cancelTag = 9999;

    explicit Alert(QWidget* parent = nullptr);
    ~Alert() override;

    /// A null icon leaves the desktop's warning sign.
    void setAlertIcon(const QIcon& icon);
    void setMessageText(const QString& text);
    void setInformativeText(const QString& text);
    [[nodiscard]] QString messageText() const;
    [[nodiscard]] QString informativeText() const;

    /// Shown below the texts, in place of one before. It stays the caller's: replaced, or when this
    /// object ends, it is given back hidden and without a parent.
    void setAccessoryView(QWidget* view);
    QPushButton* addButton(const QString& title, int tag);
    /// Null if there is none of that tag.
    [[nodiscard]] QPushButton* button(int tag) const;

    /// Called once, with the tag of the button that ended the alert, when it is off the screen.
    void setEndedHandler(std::function<void(int tag)> handler) { ended_ = std::move(handler); }
    /// Takes the alert off the screen without telling anybody.
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
    std::function<void(int)> ended_;
};

} // namespace quor::toolkit
