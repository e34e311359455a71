// SPDX-License-Identifier: MIT
#include "FormGallery/Elements/DetailButton.h"
#include "FormGallery/Pages/Pages.h"
#include "FormGallery/Pages/Parts.h"

#include <Platform/Lifetime/WhileAlive.h>

using namespace Qt::StringLiterals;

namespace quor::gallery {

namespace {

std::shared_ptr<DetailButton> addDetail(
    TextField& field, DetailButton::Kind kind, const QString& symbol, const QString& toolTipKey)
{
    auto detail = std::make_shared<DetailButton>(kind, symbol, text(toolTipKey));
    field.setDetailElement(detail);
    return detail;
}

std::shared_ptr<formkit::Form> makeHelp()
{
    auto help = makeForm(u"DetailsRateTitle"_s, 300, 1);
    addHint(*help, u"DetailsRateHelp"_s);
    return help;
}

} // namespace

std::shared_ptr<formkit::Form> makeDetails(platform::ColorScheme)
{
    using Kind = DetailButton::Kind;
    auto form = makeForm(u"DetailsTitle"_s);

    const QString formerName = text(u"StickyNameValue"_s);
    const auto name = addField(*form, u"DetailsName"_s, formerName);
    const auto reset = addDetail(*name, Kind::push, u"\u21BA"_s, u"DetailsReset"_s);
    reset->setValueChanged(platform::whileAlive(
        *name, [name = name.get(), formerName](formkit::FormDetailElement&) { name->setValue(formerName); }));

    const auto budget = addField(*form, u"DetailsBudget"_s, u"40"_s);
    const auto unlimited = addDetail(*budget, Kind::toggle, u"\u221E"_s, u"DetailsNoLimit"_s);
    unlimited->setValueChanged(
        platform::whileAlive(*budget, [budget = budget.get()](formkit::FormDetailElement& detail) {
            budget->setEnabled(!static_cast<DetailButton&>(detail).isOn());
        }));

    const auto rate = addField(*form, u"DetailsRate"_s, u"80"_s);
    addDetail(*rate, Kind::push, u"?"_s, u"DetailsExplain"_s)
        ->setValueChanged(platform::whileAlive(
            *form, [form = form.get()](formkit::FormDetailElement&) { form->presentForm(makeHelp()); }));

    addField(*form, u"DetailsCustomer"_s)->setPlaceholder(text(u"DetailsNoDetail"_s));
    addHint(*form, u"DetailsHint"_s);
    return form;
}

} // namespace quor::gallery
