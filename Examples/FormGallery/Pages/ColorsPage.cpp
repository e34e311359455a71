// SPDX-License-Identifier: MIT
#include "FormGallery/Pages/Pages.h"
#include "FormGallery/Pages/Parts.h"

#include <FormKit/Elements/FormElementColorPicker.h>
#include <ToolKit/Colors/ColorOperations.h>

using namespace Qt::StringLiterals;

namespace quor::gallery {

namespace {

std::shared_ptr<formkit::FormElementColorPicker> addPicker(
    formkit::Form& form, const QString& labelKey, const QColor& value)
{
    auto picker = form.viewFactory()->colorPicker();
    picker->setLabel(text(labelKey));
    picker->setValue(value);
    form.addElement(picker);
    return picker;
}

} // namespace

std::shared_ptr<formkit::Form> makeColors(platform::ColorScheme)
{
    auto form = makeForm(u"ColorsTitle"_s);
    const auto project = addPicker(*form, u"ColorsProject"_s, QColor(0x44, 0x65, 0xF9));
    const auto task = addPicker(*form, u"ColorsTask"_s, QColor(0x7A, 0x54, 0x2E));
    const auto paper = addPicker(*form, u"ColorsPaper"_s, Qt::white);
    paper->setColorModel(toolkit::ColorModel({0xFFFFFF, 0xF2E9DC, 0xC0C0C0, 0x808080, 0x404040, 0x000000,
        0xFFF4B8, 0xD5F2C4, 0xC6E9FA, 0xD9D2FF, 0xFFD3E6, 0xFFD9C9, 0x7A542E, 0x1F5F3F, 0x1D3B7A}));
    const auto none = addPicker(*form, u"ColorsNone"_s, {});
    const auto disabled = addPicker(*form, u"ColorsDisabled"_s, QColor(0x9D, 0xD2, 0x57));
    disabled->setEnabled(false);
    const auto line = addChangesLine(*form);
    for (const auto& picker : {project, task, paper, none})
        printChanges(line, *picker, [](const formkit::FormElementColorPicker& changed) {
            return toolkit::hexString(changed.value());
        });
    return form;
}

} // namespace quor::gallery
