// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Colors/ColorChooser.h"

#include <QColor>
#include <QPointer>
#include <QPushButton>

namespace quor::formkit {

/// A button that shows a colour, and opens the dialog for another one. Main thread only.
class ColorWell final : public QPushButton {
    Q_OBJECT

public:
    explicit ColorWell(QWidget* parent = nullptr);

    /// Invalid at first, which is drawn as a line across.
    [[nodiscard]] QColor color() const { return color_; }
    void setColor(const QColor& color);

    /// Opens the dialog and returns at once. Brings it to the front if it is open. Has no effect while the
    /// well cannot be seen or is disabled.
    void openChooser();
    /// Null while the dialog is not open.
    [[nodiscard]] ColorChooser* chooser() const { return chooser_; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// The user has chosen this colour in the dialog, which is closed now. The receiver may delete the
    /// window.
    void colorChosen(const QColor& color);

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QColor color_;
    QPointer<ColorChooser> chooser_;
};

} // namespace quor::formkit
