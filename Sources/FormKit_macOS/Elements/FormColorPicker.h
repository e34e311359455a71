// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormElementColorPicker.h"
#include "FormKit_macOS/Colors/ColorRow.h"
#include "FormKit_macOS/Colors/ColorWell.h"
#include "FormKit_macOS/Elements/FormBase.h"

namespace quor::formkit {

/// A well that shows the colour, and swatches to choose it with one click. The well and the button after the
/// swatches open the dialog for any colour. At first it has the swatches of `toolkit::defaultPalette`, and
/// their first colour.
class FormColorPicker final : public FormBase, public FormElementColorPicker {
public:
    using FormBase::FormBase;

    /// The controls, children of `view`. Only valid while that exists.
    [[nodiscard]] ColorWell& colorWell() const { return *colorWell_; }
    [[nodiscard]] ColorRow& colorRow() const { return *colorRow_; }

    [[nodiscard]] const toolkit::ColorModel& colorModel() const override { return colorModel_; }
    /// Keeps the value, even if no swatch has it now.
    void setColorModel(toolkit::ColorModel colorModel) override;
    [[nodiscard]] QColor value() const override { return value_; }
    /// An invalid colour says that there is none.
    void setValue(const QColor& value) override;

    void setEnabled(bool enabled) override;
    [[nodiscard]] QWidget* view() const override { return container_.get(); }
    void setup() override;

private:
    void choose(const QColor& color);

    platform::WidgetHandle<QWidget> container_ = platform::makeWidget<QWidget>();
    ColorWell* colorWell_ = new ColorWell(container_.get());
    ColorRow* colorRow_ = new ColorRow(container_.get());
    toolkit::ColorModel colorModel_{{toolkit::defaultPalette.begin(), toolkit::defaultPalette.end()}};
    QColor value_;
};

} // namespace quor::formkit
