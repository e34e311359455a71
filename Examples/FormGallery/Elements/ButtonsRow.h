// SPDX-License-Identifier: MIT
#pragma once

#include <FormKit_macOS/Elements/FormBase.h>
#include <ToolKit_macOS/RoundedButton/RoundedButton.h>

#include <QHBoxLayout>

namespace quor::gallery {

/// A row of rounded buttons: an element that an application has written for itself.
class ButtonsRow final : public formkit::FormBase {
public:
    using FormBase::FormBase;

    /// Adds a button at the end of the row, in the accent colour of the desktop.
    toolkit::RoundedButton& addButton(const QString& title);

    [[nodiscard]] QWidget* view() const override { return view_.get(); }
    [[nodiscard]] std::vector<QWidget*> focusableViews() const override;
    void setup() override;

private:
    platform::WidgetHandle<QWidget> view_ = platform::makeWidget<QWidget>();
    QHBoxLayout* layout_ = nullptr; ///< owned by the view
};

} // namespace quor::gallery
