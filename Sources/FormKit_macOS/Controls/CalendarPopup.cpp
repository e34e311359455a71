// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/CalendarPopup.h"

#include "Platform/Calendar/UserDateLocale.h"
#include "ToolKit/Dates/SharedCalendar.h"

#include <QPainter>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTextCharFormat>
#include <QVBoxLayout>

namespace quor::formkit {

namespace {

Qt::DayOfWeek dayOfWeek(int weekday)
{
    return weekday == 1 ? Qt::Sunday : Qt::DayOfWeek(weekday - 1);
}

/// Draws the numbers of weeks as the user's region counts them, and leaves all other cells to `days`.
class WeekNumbers final : public QStyledItemDelegate {
public:
    WeekNumbers(QCalendarWidget& calendar, QAbstractItemDelegate& days)
        : QStyledItemDelegate(&calendar)
        , calendar_(calendar)
        , days_(days)
        , regional_(toolkit::calendar())
    {
        regional_.setIdentifier(QByteArrayLiteral("gregorian"));
        regional_.setTimeZone(QTimeZone::utc());
    }
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        if (index.column() > 0 || index.row() == 0) {
            days_.paint(painter, option, index);
            return;
        }
        const QDate shown(calendar_.yearShown(), calendar_.monthShown(), 1);
        int before = shown.dayOfWeek() - int(calendar_.firstDayOfWeek());
        if (before <= 0)
            before += 7; // at least one day of the month before is shown
        const QDate monday = shown.addDays(7 * (index.row() - 1) - before);
        const auto moment = platform::dateFromQDateTime(QDateTime(monday, QTime(12, 0), Qt::UTC));
        const auto components = moment ? regional_.components(*moment) : std::nullopt;
        if (!components)
            return;
        painter->save();
        painter->fillRect(option.rect, option.palette.window());
        painter->setPen(option.palette.color(QPalette::Disabled, QPalette::WindowText));
        painter->drawText(
            option.rect, Qt::AlignCenter, calendar_.locale().toString(components->weekOfYear.value_or(0)));
        painter->restore();
    }

private:
    QCalendarWidget& calendar_;
    QAbstractItemDelegate& days_;
    platform::Calendar regional_;
};

} // namespace

MonthCalendar::MonthCalendar(QWidget* parent)
    : QCalendarWidget(parent)
{
    setLocale(platform::userDateLocale());
    setFirstDayOfWeek(dayOfWeek(toolkit::calendar().firstWeekday()));
    setVerticalHeaderFormat(ISOWeekNumbers);
    setDateEditEnabled(false);
    setDateRange(QDate(1, 1, 1), QDate(9999, 12, 31));
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday})
        setWeekdayTextFormat(day, QTextCharFormat()); // which days are free differs
    if (auto* const days = findChild<QTableView*>(); days && days->itemDelegate())
        days->setItemDelegate(new WeekNumbers(*this, *days->itemDelegate()));
}

CalendarPopup::CalendarPopup(QWidget& anchor, QWidget& button, QDate date)
    : TransientPanel(anchor, button)
    , calendar_(new MonthCalendar(this))
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(calendar_);
    calendar_->setSelectedDate(date);
    connect(calendar_, &QCalendarWidget::clicked, this, &CalendarPopup::choose);
    connect(calendar_, &QCalendarWidget::activated, this, &CalendarPopup::choose);
}

QSize CalendarPopup::wantedSize(const QRect&) const
{
    return sizeHint();
}

void CalendarPopup::choose(QDate date)
{
    if (!isVisible())
        return; // a double click is a click too
    close();
    Q_EMIT chosen(date);
}

} // namespace quor::formkit
