// SPDX-License-Identifier: MIT
#pragma once

#include <QCalendarWidget>
#include <QDate>
#include <QFrame>
#include <QPointer>

namespace quor::formkit {

/// A month calendar. The week begins as in the user's region, and weeks have the region's numbers.
class MonthCalendar final : public QCalendarWidget {
    Q_OBJECT

public:
    explicit MonthCalendar(QWidget* parent = nullptr);
};

/// A calendar in a panel that stands below a view, above it where there is no room, and closes on a press
/// elsewhere and on Escape. Deletes itself when it has closed. Main thread only.
class CalendarPopup final : public QFrame {
    Q_OBJECT

public:
    /// `anchor` is also the owner. A press on `button`, which opens the panel, only closes it.
    CalendarPopup(QWidget& anchor, QWidget& button, QDate date);

    void open();
    void setDate(QDate date) { calendar_->setSelectedDate(date); }

Q_SIGNALS:
    /// The user has chosen a day. The panel is closing.
    void chosen(QDate date);

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    void choose(QDate date);

    QPointer<QWidget> button_;
    MonthCalendar* calendar_;
};

} // namespace quor::formkit
