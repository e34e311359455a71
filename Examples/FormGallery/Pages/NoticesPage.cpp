// SPDX-License-Identifier: MIT
#include "FormGallery/Pages/Pages.h"
#include "FormGallery/Pages/Parts.h"

#include <Platform/Lifetime/WhileAlive.h>

using namespace Qt::StringLiterals;

namespace quor::gallery {

std::shared_ptr<formkit::Form> makeNotices(platform::ColorScheme scheme)
{
    auto form = makeForm(u"NoticesTitle"_s);
    form->addNotice(text(u"NoticesExpired"_s), resources().color(u"Warning"_s)->resolved(scheme));
    form->addStateNotice(text(u"NoticesOfflineTitle"_s), text(u"NoticesOfflineMessage"_s),
        platform::whileAlive(*form, [form = form.get()] { form->removeAllNotices(); }));
    addField(*form, u"NoticesServer"_s, u"sync.example.org"_s);
    addField(*form, u"NoticesAccount"_s, u"ada@example.org"_s);
    addCheckBox(*form, u"NoticesAutomatic"_s)->setValue(true);
    return form;
}

} // namespace quor::gallery
