// SPDX-License-Identifier: MIT
#include "FormGallery/Page.h"
#include "FormGallery/Pages/Pages.h"
#include "FormGallery/Pages/Parts.h"

#include <FormKit/Elements/FormElementDetailActionButton.h>
#include <FormKit/Elements/FormElementDetailInfoButton.h>

#include <QWidget>

using namespace Qt::StringLiterals;

namespace quor::gallery {

namespace {

/// Adds a toggle at the end of the row of `element`.
std::shared_ptr<formkit::FormElementDetailActionButton> addToggle(formkit::Form& form,
    formkit::FormElement& element, const QString& toolTipKey, const QString& isOnToolTipKey)
{
    auto toggle = form.viewFactory()->detailActionButton();
    toggle->setToolTip(text(toolTipKey));
    toggle->setIsOnToolTip(text(isOnToolTipKey));
    element.setDetailElement(toggle);
    return toggle;
}

void addStar(formkit::FormElementDetailActionButton& toggle)
{
    toggle.setOffImageName(u"StarTemplate"_s);
    toggle.setOnImageName(u"StarFilledTemplate"_s);
}

} // namespace

std::shared_ptr<formkit::Form> makeDetailButtons(platform::ColorScheme)
{
    auto form = makeForm(u"DetailButtonsTitle"_s);
    const auto number = addField(*form, u"DetailButtonsNumber"_s, u"1815-12"_s);
    const auto disabledStar = addToggle(*form, *number, u"DetailButtonsPin"_s, u"DetailButtonsUnpin"_s);
    addStar(*disabledStar);
    disabledStar->setEnabled(false);
    const auto name = addField(*form, u"DetailButtonsName"_s, text(u"DetailButtonsNameValue"_s));
    const auto star = addToggle(*form, *name, u"DetailButtonsPin"_s, u"DetailButtonsUnpin"_s);
    addStar(*star);
    star->view()->setObjectName(QLatin1String(pressedForPicture));
    const auto discount = addField(*form, u"DetailButtonsDiscount"_s, u"3 %"_s);
    const auto net = addToggle(*form, *discount, u"DetailButtonsGrossTip"_s, u"DetailButtonsNetTip"_s);
    net->setTitle(text(u"DetailButtonsNet"_s));
    net->setOn(true);
    const auto term = addField(*form, u"DetailButtonsTerm"_s, u"14"_s);
    const auto info = form->viewFactory()->detailInfoButton();
    info->setToolTip(text(u"DetailButtonsTermTip"_s));
    info->setInfoText(text(u"DetailButtonsTermInfo"_s));
    info->view()->setObjectName(QLatin1String(pressedForPicture));
    term->setDetailElement(info);
    const auto line = addChangesLine(*form);
    for (const auto& [element, toggle] : {std::pair(name, star), std::pair(discount, net)})
        toggle->setValueChanged([line, element = element.get(), toggle = toggle.get()](
                                    formkit::FormDetailElement&) {
            printChange(*line, *element, text(toggle->isOn() ? u"DetailButtonsOn"_s : u"DetailButtonsOff"_s));
        });
    return form;
}

} // namespace quor::gallery
