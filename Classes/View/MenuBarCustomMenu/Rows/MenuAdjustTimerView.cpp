// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/Rows/MenuAdjustTimerView.h"

#include "View/MenuBarCustomMenu/MenuResources.h"

using namespace Qt::StringLiterals;

namespace quor::helper {

MenuAdjustTimerView::MenuAdjustTimerView(QWidget* parent)
    : MenuTimerRow(parent)
{
    addItems({
        {-30, u"-30"_s},
        {-10, u"-10"_s},
        {-5, u"-5"_s},
        {-1, u"-1"_s},
        {delimiter, {}},
        {5, u"+5"_s},
        {delimiter, {}},
        {0, menuResources().localizedString(u"MenubarRewindToEndOfLastEntry"_s)},
        {spacer, {}},
    });
}

QString MenuAdjustTimerView::labelText(double startTime)
{
    return filledText(u"MenubarRewindStartTime"_s, timeText(startTime));
}

void MenuAdjustTimerView::update()
{
    setLabel(labelText(startTime));
}

void MenuAdjustTimerView::buttonClicked(const MenuTimerButton& button)
{
    adjustHandler(button.tag());
}

} // namespace quor::helper
