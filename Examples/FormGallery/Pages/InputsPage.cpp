// SPDX-License-Identifier: MIT
#include "FormGallery/Pages/Pages.h"
#include "FormGallery/Pages/Parts.h"

#include <FormKit/Elements/FormElementDistanceInput.h>
#include <FormKit/Elements/FormElementDurationInput.h>
#include <FormKit/Elements/FormElementMoneyInput.h>
#include <FormKit/Elements/FormElementNumberInput.h>
#include <FormKit/Elements/FormElementTextInput.h>
#include <FormKit_macOS/Elements/FormDualInput.h>
#include <Platform/Text/NumberFormatter.h>

using namespace Qt::StringLiterals;

namespace quor::gallery {

namespace {

using formkit::TextInputType;

template <class Element>
std::shared_ptr<Element> labelled(std::shared_ptr<Element> element, const QString& labelKey)
{
    element->setLabel(text(labelKey));
    return element;
}

} // namespace

std::shared_ptr<formkit::Form> makeTextInputs(platform::ColorScheme)
{
    struct Input {
        QString labelKey;
        TextInputType type;
        QString value;
    };
    auto form = makeForm(u"TextInputsTitle"_s);
    std::vector<std::shared_ptr<formkit::FormElementTextInput>> inputs;
    for (const auto& [labelKey, type, value] :
        std::initializer_list<Input>{{u"TextInputsName"_s, TextInputType::text, u"Ada Lovelace"_s},
            {u"TextInputsMail"_s, TextInputType::email, u"ada@example.org"_s},
            {u"TextInputsPassword"_s, TextInputType::secure, u"password"_s},
            {u"TextInputsSearch"_s, TextInputType::search, u"Analytical"_s},
            {u"TextInputsNumber"_s, TextInputType::readonly, u"A-1842"_s},
            {u"TextInputsTeam"_s, TextInputType::search, {}}}) {
        inputs.push_back(labelled(form->viewFactory()->textInput(), labelKey));
        inputs.back()->setType(type);
        inputs.back()->setPlaceholder(text(u"TextInputsPlaceholder"_s));
        inputs.back()->setValue(value);
        form->addElement(inputs.back());
    }
    const auto line = addChangesLine(*form);
    for (const auto& input : inputs)
        printChanges(line, *input, [](const auto& element) { return element.value(); });
    return form;
}

std::shared_ptr<formkit::Form> makeNumberInputs(platform::ColorScheme)
{
    auto form = makeForm(u"NumberInputsTitle"_s);
    const auto factory = form->viewFactory();
    const auto number = labelled(factory->numberInput(), u"NumberInputsPages"_s);
    number->setFormatter(std::make_shared<platform::NumberFormatter>());
    number->setValue(1234.5);
    const auto rate = labelled(factory->moneyInput(), u"NumberInputsRate"_s);
    rate->setValue(80);
    const auto price = labelled(factory->moneyInput(), u"NumberInputsPrice"_s);
    price->setCurrencyCode(u"JPY"_s);
    price->setValue(98000);
    const auto way = labelled(factory->distanceInput(), u"NumberInputsWay"_s);
    way->setValue(12500);
    for (const auto& element :
        std::initializer_list<std::shared_ptr<formkit::FormElement>>{number, rate, price, way})
        form->addElement(element);
    const auto line = addChangesLine(*form);
    const auto describe = [](const auto& element) { return QString::number(element.value(), 'g', 15); };
    printChanges(line, *number, describe);
    printChanges(line, *rate, describe);
    printChanges(line, *price, describe);
    printChanges(line, *way, describe);
    return form;
}

std::shared_ptr<formkit::Form> makeDurationInputs(platform::ColorScheme)
{
    constexpr double workingDay = 28800;
    auto form = makeForm(u"DurationInputsTitle"_s);
    const auto factory = form->viewFactory();
    const auto worked = labelled(factory->durationInput(), u"DurationInputsWorked"_s);
    worked->setValue(5400);
    const auto holiday = labelled(factory->durationInput(), u"DurationInputsBudget"_s);
    holiday->setWorkingDayLength(workingDay);
    holiday->setHideLock(false);
    holiday->setValue(100000);
    const auto locked = labelled(factory->durationInput(), u"DurationInputsLocked"_s);
    locked->setHideLock(false);
    locked->setLocked(true);
    locked->setValue(7200);
    for (const auto& element : {worked, holiday, locked})
        form->addElement(element);
    const auto first = labelled(factory->textInput(), u"DurationInputsFirst"_s);
    first->setValue(u"Ada"_s);
    const auto last = labelled(factory->textInput(), u"DurationInputsLast"_s);
    last->setValue(u"Lovelace"_s);
    form->addElement(
        labelled(formkit::makeElement<formkit::FormDualInput>(first, last), u"DurationInputsNames"_s));
    const auto line = addChangesLine(*form);
    for (const auto& element : {worked, holiday, locked})
        printChanges(line, *element, [](const auto& input) { return QString::number(input.value()); });
    for (const auto& element : {first, last})
        printChanges(line, *element, [](const auto& input) { return input.value(); });
    return form;
}

} // namespace quor::gallery
