// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Panels/TransientPanel.h"

#include <QCalendarWidget>
#include <QDate>

namespace quor::formkit {

/// A month calendar. The week begins as in the user's region, and weeks have the region's numbers.
class MonthCalendar final : public QCalendarWidget {
    Q_OBJECT

public:
    explicit MonthCalendar(QWidget* parent = nullptr);
};

/// A calendar in a panel that drops down from a date field. Main thread only.
class CalendarPopup final : public TransientPanel {
    Q_OBJECT

public:
    /// A press on `button`, which opens the panel, only closes it.
    CalendarPopup(QWidget& anchor, QWidget& button, QDate date);

    void setDate(QDate date) { calendar_->setSelectedDate(date); }

Q_SIGNALS:
    /// The user has chosen a day. The panel is closing.
    void chosen(QDate date);

protected:
    [[nodiscard]] QSize wantedSize(const QRect& screen) const override;
    [[nodiscard]] QWidget& keyboardReceiver() const override { return *calendar_; }

private:
    void choose(QDate date);

    MonthCalendar* calendar_;
};

} // namespace quor::formkit
