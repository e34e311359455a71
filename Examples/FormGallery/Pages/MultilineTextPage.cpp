// SPDX-License-Identifier: MIT
#include "FormGallery/Pages/Pages.h"
#include "FormGallery/Pages/Parts.h"

#include <FormKit/Elements/FormElementMultilineTextInput.h>

using namespace Qt::StringLiterals;

namespace quor::gallery {

std::shared_ptr<formkit::Form> makeMultilineText(platform::ColorScheme)
{
    struct Input {
        QString labelKey;
        QString valueKey;
    };
    auto form = makeForm(u"MultilineTextTitle"_s);
    std::vector<std::shared_ptr<formkit::FormElementMultilineTextInput>> inputs;
    for (const auto& [labelKey, valueKey] :
        std::initializer_list<Input>{{u"MultilineTextNotes"_s, u"MultilineTextNotesValue"_s},
            {u"MultilineTextAddress"_s, u"MultilineTextAddressValue"_s},
            {u"MultilineTextDisabled"_s, u"MultilineTextDisabledValue"_s}}) {
        inputs.push_back(form->viewFactory()->multilineTextInput());
        inputs.back()->setLabel(text(labelKey));
        inputs.back()->setValue(text(valueKey));
        form->addElement(inputs.back());
    }
    inputs[1]->setEnableSpellChecking(false);
    inputs[1]->setHintText(text(u"MultilineTextAddressHint"_s));
    inputs[2]->setHintText({});
    inputs[2]->setEnabled(false);
    const auto line = addChangesLine(*form);
    for (const auto& input : inputs)
        printChanges(line, *input, [](const auto& element) { return element.value(); });
    return form;
}

} // namespace quor::gallery
