// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/Rows/MenuAdjustTimerView.h"

#include "View/MenuBarCustomMenu/MenuResources.h"

using namespace Qt::StringLiterals;

namespace quor::helper {

MenuAdjustTimerView::MenuAdjustTimerView(QWidget* parent)
    : MenuTimerRow(parent)
{
    addDelimiter();
    addButton(0, menuResources().localizedString(u"MenubarRewindToEndOfLastEntry"_s));
    addSpace();
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
