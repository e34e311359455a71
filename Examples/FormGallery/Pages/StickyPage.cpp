// SPDX-License-Identifier: MIT
#include "FormGallery/Pages/Pages.h"
#include "FormGallery/Pages/Parts.h"

#include <Platform/Lifetime/WhileAlive.h>

using namespace Qt::StringLiterals;

namespace quor::gallery {

namespace {

// The application validates: it looks at the values when the user wants to save them.
void save(formkit::Form& form, const TextField& name, const QColor& warning)
{
    form.removeAllNotices();
    if (name.value().trimmed().isEmpty())
        form.addNotice(text(u"StickyNameMissing"_s), warning);
    else
        form.resetChanges();
}

} // namespace

std::shared_ptr<formkit::Form> makeSticky(platform::ColorScheme scheme)
{
    auto form = makeForm(u"StickyTitle"_s);
    form->setSubtitle(text(u"StickySubtitle"_s));
    const auto name = addField(*form, u"StickyName"_s, text(u"StickyNameValue"_s));
    for (const auto& key : {u"StickyCustomer"_s, u"StickyStreet"_s, u"StickyCity"_s, u"StickyCountry"_s,
             u"StickyVAT"_s, u"StickyMail"_s, u"StickyPhone"_s, u"StickyBudget"_s, u"StickyRate"_s})
        addField(*form, key);
    addCheckBox(*form, u"StickyArchived"_s);
    const QColor warning = resources().color(u"Warning"_s)->resolved(scheme);
    form->setDefaultButton(addButton(*form, u"StickySave"_s,
        platform::whileAlive(*form, [form = form.get(), name, warning](formkit::FormElementButton&) {
            save(*form, *name, warning);
        })));
    return form;
}

} // namespace quor::gallery
