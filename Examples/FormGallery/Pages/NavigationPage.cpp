// SPDX-License-Identifier: MIT
#include "FormGallery/Pages/Pages.h"
#include "FormGallery/Pages/Parts.h"

#include <Platform/Lifetime/WhileAlive.h>

using namespace Qt::StringLiterals;

namespace quor::gallery {

namespace {

using Make = std::shared_ptr<formkit::Form> (*)();

void addWayTo(formkit::Form& form, const QString& titleKey, Make make)
{
    const auto way = addButton(form, titleKey,
        platform::whileAlive(form, [&form, make](formkit::FormElementButton&) { form.showForm(make()); }));
    pressForPicture(*way);
}

std::shared_ptr<formkit::Form> makeBreaks()
{
    auto form = makeForm(u"NavigationBreaks"_s);
    addField(*form, u"NavigationBreakFrom"_s, u"12:30"_s);
    addField(*form, u"NavigationBreakTo"_s, u"13:15"_s);
    addCheckBox(*form, u"NavigationBreakStops"_s)->setValue(true);
    addHint(*form, u"NavigationBack"_s);
    return form;
}

std::shared_ptr<formkit::Form> makeWorkingDay()
{
    auto form = makeForm(u"NavigationWorkingDay"_s);
    addField(*form, u"NavigationHours"_s, u"8"_s);
    addField(*form, u"NavigationStart"_s, u"09:00"_s);
    addWayTo(*form, u"NavigationToBreaks"_s, makeBreaks);
    return form;
}

} // namespace

std::shared_ptr<formkit::Form> makeNavigation(platform::ColorScheme)
{
    auto form = makeForm(u"NavigationSettings"_s);
    addField(*form, u"NavigationName"_s, u"Ada Lovelace"_s);
    addField(*form, u"NavigationTeam"_s);
    addWayTo(*form, u"NavigationToWorkingDay"_s, makeWorkingDay);
    return form;
}

} // namespace quor::gallery
