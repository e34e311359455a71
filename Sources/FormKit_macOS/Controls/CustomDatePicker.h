// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Controls/DateSections.h"

#include <QDateTimeEdit>

namespace quor::formkit {

/// A field without a frame for a date or a time of day, in sections in the order of the user's region.
///
/// Left, Right and Tab go through the sections. Up, Down and the wheel step one, if the field has the
/// keyboard. What is typed counts when the user leaves the field, presses Return or has filled the last
/// section, so that a half-typed date never reaches anyone. Main thread only.
class CustomDatePicker final : public QDateTimeEdit {
    Q_OBJECT

public:
    enum class Type { date, time };

    explicit CustomDatePicker(Type type, QWidget* parent = nullptr);

    [[nodiscard]] Type type() const { return type_; }
    /// A date picker uses year, month and day, a time picker hour and minute. The others stay as they were
    /// set.
    [[nodiscard]] const DateFields& fields() const { return fields_; }
    /// Discards what is being typed. Emits nothing.
    void setFields(const DateFields& fields);
    /// Lets what is being typed count.
    void finishTyping();

    void stepBy(int steps) override;

Q_SIGNALS:
    /// The user has changed `fields`. `Skip::backward` if by stepping down.
    void edited(quor::formkit::ZonedCalendar::Skip skip);
    /// The user has pressed a key that opens the calendar.
    void calendarRequested();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    [[nodiscard]] StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }
    [[nodiscard]] QString textFromDateTime(const QDateTime& dateTime) const override;
    [[nodiscard]] QDateTime dateTimeFromText(const QString& text) const override;
    [[nodiscard]] QValidator::State validate(QString& text, int& position) const override;
    void wheelEvent(QWheelEvent* event) override;

private:
    [[nodiscard]] DateSections::Kind currentKind() const { return sections_.sections()[current_].kind; }
    /// The text of a section, as it is being typed.
    [[nodiscard]] QString sectionText(std::size_t index) const;
    [[nodiscard]] QString shownText() const;
    void showText();
    /// Whether there is a section after the current one, or before it.
    bool goToNext(bool forward);
    void type(QChar character);
    void typeDigit(int digit);
    /// Takes the digits of the current section into `fields_`.
    void takeDigits();
    bool setDayPeriod(QChar letter);
    void paste(const QString& text);
    void step(int steps);

    const Type type_;
    const DateSections sections_;
    DateFields fields_;
    std::size_t current_ = 0; ///< the section that keys act on
    QString digits_; ///< typed into it, from 0 to 9
    bool isTyping_ = false; ///< whether `fields_` has something that `edited` has not reported
};

} // namespace quor::formkit
