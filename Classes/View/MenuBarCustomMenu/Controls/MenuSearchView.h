// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Callback.h"

#include <QLineEdit>

namespace quor::helper {

/// The search field of the menu. When it gets the keyboard, it puts the caret after the last character
/// instead of selecting the text, except by a click, after a pop-up menu, or with its window. Emits
/// `textChanged` at each change of the text. Main thread only.
class MenuSearchView final : public QLineEdit {
    Q_OBJECT

public:
    explicit MenuSearchView(QWidget* parent = nullptr);

    /// Called with each key press first. If it returns true, the key has been handled.
    platform::Callback<bool(const QKeyEvent& event)> keyHandler;

    /// Adopts the user's present menu font and layout direction. Called automatically when it is shown.
    void followDesktop();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void showEvent(QShowEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    [[nodiscard]] QRectF glassFrame() const;
};

} // namespace quor::helper
