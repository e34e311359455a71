// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormElementDatePicker.h"
#include "FormKit_macOS/Controls/CustomDatePicker.h"
#include "Platform/Lifetime/Callback.h"

#include <QPointer>
#include <QWidget>

#include <optional>
#include <vector>

class QCheckBox;
class QToolButton;

namespace quor::formkit {

class CalendarPopup;

/// A field for a date, a time of day or both, with a calendar that drops down, and optionally a check box
/// that says whether there is a date at all.
///
/// Dates are in the shared calendar's time zone; when the zone changes, the field follows as soon as the user
/// turns to it. A date that the user enters has 0 seconds. Main thread only.
class DatePickerView final : public QWidget {
    Q_OBJECT

public:
    explicit DatePickerView(QWidget* parent = nullptr);

    [[nodiscard]] DatePickerMode mode() const { return mode_; }
    void setMode(DatePickerMode mode);
    [[nodiscard]] bool showsClearButton() const { return showsClearButton_; }
    void setShowsClearButton(bool showsClearButton);
    [[nodiscard]] std::optional<platform::Date> value() const { return value_; }
    void setValue(std::optional<platform::Date> value);
    /// Shown while there is no value. The time at which the view was made, at first.
    [[nodiscard]] platform::Date promptValue() const { return promptValue_; }
    void setPromptValue(platform::Date promptValue);
    /// Whether the user can change the value. Other than `isEnabled` of the widget it keeps its value while
    /// a parent is disabled.
    [[nodiscard]] bool isOperable() const { return isOperable_; }
    void setOperable(bool isOperable);
    /// The date that the user entered last. The time at which the view was made, at first.
    [[nodiscard]] platform::Date lastChanged() const { return lastChanged_; }

    /// Called after the user has changed the value. It may delete the view later.
    using ValueChanged = platform::Callback<void(DatePickerView&)>;
    void setValueChanged(ValueChanged valueChanged) { valueChanged_ = std::move(valueChanged); }

    /// The pickers that `mode` shows, in order.
    [[nodiscard]] std::vector<QWidget*> pickers() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void arrange();
    /// Shows the value.
    void refresh();
    /// Follows a change of the time zone.
    void followZone();
    void openCalendar();
    void closeCalendar();
    void clearButtonClicked(bool isOn);
    void pickerEdited(const CustomDatePicker& picker, ZonedCalendar::Skip skip);
    void enter(const DateFields& fields, ZonedCalendar::Skip skip);
    [[nodiscard]] platform::Date shownDate() const { return value_.value_or(promptValue_); }
    [[nodiscard]] int heightOfField() const;

    CustomDatePicker* datePicker_;
    CustomDatePicker* timePicker_;
    QCheckBox* clearDateButton_;
    QToolButton* calendarButton_;
    QPointer<CalendarPopup> calendarPopup_;
    ZonedCalendar zone_; ///< in which the pickers show the date
    std::optional<platform::Date> value_;
    platform::Date promptValue_;
    platform::Date lastChanged_;
    bool isOperable_ = true;
    bool showsClearButton_ = false;
    DatePickerMode mode_ = DatePickerMode::date;
    ValueChanged valueChanged_;
};

} // namespace quor::formkit
