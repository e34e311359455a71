// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QWidget>

#include <optional>
#include <vector>

namespace quor::formkit {

class ColorButton;

/// Swatches side by side, of which one is on, and at the end a button for any other colour, which is on if no
/// swatch is. They go on in further lines where they do not fit.
///
/// The row takes the focus as a whole. The arrow keys, Home and End go to another swatch and choose it; on
/// the last button, Space and Return click it. Main thread only.
class ColorRow final : public QWidget {
    Q_OBJECT

public:
    explicit ColorRow(QWidget* parent = nullptr);

    /// Replaces the swatches. May be called while a signal is emitted.
    void setColors(const std::vector<QColor>& colors);
    /// Shows the swatch of this colour as on: the first with the same red, green and blue. For an invalid
    /// colour none is.
    void select(const QColor& color);

    /// In order, without the last button.
    [[nodiscard]] const std::vector<ColorButton*>& swatches() const { return swatches_; }
    [[nodiscard]] ColorButton& customColorButton() const { return *customColorButton_; }

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user has chosen the colour of a swatch. The receiver calls `select`.
    void colorClicked(const QColor& color);
    void customColorClicked();

protected:
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] int count() const { return static_cast<int>(swatches_.size()) + 1; }
    [[nodiscard]] ColorButton& button(int index) const;
    [[nodiscard]] int side() const;
    [[nodiscard]] int columns(int width) const;
    [[nodiscard]] std::optional<int> step(int key) const;
    void place();
    void click(int index);
    void setCurrent(int index);

    std::vector<ColorButton*> swatches_; ///< children
    ColorButton* customColorButton_;
    int current_ = 0; ///< the button that keys act on
};

} // namespace quor::formkit
