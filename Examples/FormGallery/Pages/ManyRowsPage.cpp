// SPDX-License-Identifier: MIT
#include "FormGallery/Pages/Pages.h"
#include "FormGallery/Pages/Parts.h"

#include <FormKit/Elements/FormElementSeparator.h>

using namespace Qt::StringLiterals;

namespace quor::gallery {

std::shared_ptr<formkit::Form> makeManyRows(platform::ColorScheme)
{
    constexpr int rowCount = 1000;
    auto form = makeForm(u"ManyRowsTitle"_s);
    const auto hides = addCheckBox(*form, u"ManyRowsHide"_s);
    form->addElement(form->viewFactory()->separator());
    std::vector<std::shared_ptr<TextField>> everySecond;
    for (int row = 1; row <= rowCount; ++row) {
        auto field = formkit::makeElement<TextField>();
        field->setLabel(resources().localizedString(u"ManyRowsRow"_s, {qint64(row)}));
        form->addElement(field);
        if (row % 2 == 0)
            everySecond.push_back(std::move(field));
    }
    hides->setValueChanged([everySecond = std::move(everySecond)](formkit::FormElement& element) {
        const bool isHidden = dynamic_cast<formkit::FormElementCheckBox&>(element).value();
        for (const auto& field : everySecond)
            field->setHidden(isHidden);
    });
    return form;
}

} // namespace quor::gallery
