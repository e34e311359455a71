// SPDX-License-Identifier: MIT
#include "FormGallery/Pages/Pages.h"
#include "FormGallery/Pages/Parts.h"

#include <FormKit/Elements/FormElementDatePicker.h>
#include <FormKit_macOS/Elements/FormFromToDatePicker.h>
#include <Platform/Text/DateFormatter.h>

#include <QDateTime>

using namespace Qt::StringLiterals;

namespace quor::gallery {

namespace {

/// A day in spring of the user's time zone, so that pictures do not change from day to day.
platform::Date someDay(int hour)
{
    return platform::dateFromQDateTime(QDateTime(QDate(2024, 4, 18), QTime(hour, 30)))
        .value_or(platform::Date());
}

QString written(std::optional<platform::Date> date)
{
    using Style = platform::DateFormatter::Style;
    return date ? platform::DateFormatter(Style::medium, Style::short_).string(*date) : text(u"DatesNo"_s);
}

std::shared_ptr<formkit::FormElementDatePicker> addPicker(
    formkit::Form& form, const QString& labelKey, formkit::DatePickerMode mode)
{
    auto picker = form.viewFactory()->datePicker();
    picker->setLabel(text(labelKey));
    picker->setMode(mode);
    picker->setValue(someDay(9));
    form.addElement(picker);
    return picker;
}

} // namespace

std::shared_ptr<formkit::Form> makeDates(platform::ColorScheme)
{
    using formkit::DatePickerMode;
    auto form = makeForm(u"DatesTitle"_s);
    const auto day = addPicker(*form, u"DatesDay"_s, DatePickerMode::date);
    const auto start = addPicker(*form, u"DatesStart"_s, DatePickerMode::time);
    const auto due = addPicker(*form, u"DatesDue"_s, DatePickerMode::dateTime);
    due->setShowsClearButton(true);
    const auto reminder = addPicker(*form, u"DatesReminder"_s, DatePickerMode::dateTime);
    reminder->setShowsClearButton(true);
    reminder->setPromptValue(someDay(9));
    reminder->setValue(std::nullopt);
    const auto hours = formkit::makeElement<formkit::FormFromToDatePicker>(*form->viewFactory());
    hours->setLabel(text(u"DatesHours"_s));
    hours->setMode(DatePickerMode::time);
    hours->setToText(text(u"DatesTo"_s));
    hours->setFromValue(someDay(9));
    hours->setToValue(someDay(17));
    form->addElement(hours);
    const auto line = addChangesLine(*form);
    for (const auto& picker : {day, start, due, reminder})
        printChanges(line, *picker,
            [](const formkit::FormElementDatePicker& changed) { return written(changed.value()); });
    printChanges(line, *hours, [](const formkit::FormFromToDatePicker& changed) {
        return written(changed.fromValue()) + u" – "_s + written(changed.toValue());
    });
    return form;
}

} // namespace quor::gallery
