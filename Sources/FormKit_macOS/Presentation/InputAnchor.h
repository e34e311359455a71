// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace quor::formkit {

/// Remembers which view in a form the user operated last, by the mouse or by a key: what is shown next to the
/// user's hand is shown there. Main thread only.
class InputAnchor final : public QObject {
    Q_OBJECT

public:
    explicit InputAnchor(QWidget& form);

    /// Returns the form itself if the last input was elsewhere, or if its view is no longer shown.
    [[nodiscard]] QWidget& view() const;
    void setView(QWidget* view) { view_ = view; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] QWidget* inForm(QWidget* view) const;

    QWidget& form_; ///< owns this object
    QPointer<QWidget> view_;
};

} // namespace quor::formkit
