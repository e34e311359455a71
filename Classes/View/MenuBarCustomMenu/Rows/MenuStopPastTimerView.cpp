// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/Rows/MenuStopPastTimerView.h"

#include "View/MenuBarCustomMenu/MenuResources.h"

using namespace Qt::StringLiterals;

namespace quor::helper {

MenuStopPastTimerView::MenuStopPastTimerView(const platform::Clock& clock, QWidget* parent)
    : MenuTimerRow(parent)
    , clock_(clock)
{
    using platform::RelativeDateTimeFormatter;
    relativeTimeFormatter_.setDateTimeStyle(RelativeDateTimeFormatter::DateTimeStyle::numeric);
    relativeTimeFormatter_.setFormattingContext(RelativeDateTimeFormatter::FormattingContext::standalone);
    relativeTimeFormatter_.setUnitsStyle(RelativeDateTimeFormatter::UnitsStyle::short_);
    addSpace();
    stopButton_ = &addButton(0, {});
    stopButton_->setBezel(MenuTimerButton::Bezel::regularSquare);
    showStopTime();
}

void MenuStopPastTimerView::buttonClicked(const MenuTimerButton& button)
{
    if (button.tag() != 0) {
        adjustedStopTime_ += button.tag();
        showStopTime();
    } else {
        stopHandler(adjustedStopTime_);
    }
}

QString MenuStopPastTimerView::labelText(platform::Date stopTime)
{
    return filledText(u"MenubarStopTimerInPast"_s, timeText(platform::secondsSince1970(stopTime)));
}

void MenuStopPastTimerView::showStopTime()
{
    const std::chrono::duration<double> fromNow = std::chrono::minutes(adjustedStopTime_);
    setLabel(labelText(clock_.now() + fromNow));
    stopButton_->setTitle(adjustedStopTime_ == 0
            ? menuResources().localizedString(u"MenubarStopNow"_s)
            : filledText(u"MenubarStopPast"_s, relativeTimeFormatter_.localizedString(fromNow.count())));
}

} // namespace quor::helper
