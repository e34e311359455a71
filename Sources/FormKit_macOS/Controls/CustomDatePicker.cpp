// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/CustomDatePicker.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSignalBlocker>

#include <algorithm>
#include <utility>

namespace quor::formkit {

namespace {

using Kind = DateSections::Kind;

constexpr int hoursOfDay = 24;
constexpr int noonHour = 12;
constexpr int minutesOfHour = 60;
constexpr int minutesOfDay = hoursOfDay * minutesOfHour;
constexpr int lastYear = 9999;

int mostOf(Kind kind)
{
    switch (kind) {
    case Kind::year:
        return lastYear;
    case Kind::month:
        return 12;
    case Kind::day:
        return 31;
    case Kind::hour:
    case Kind::hourOfTwelve: // hours of the afternoon can be typed too
        return hoursOfDay - 1;
    case Kind::minute:
        return minutesOfHour - 1;
    case Kind::dayPeriod:
        return 1;
    }
    return 0;
}

QDateTime dateTime(const DateFields& fields)
{
    return {QDate(fields.year, fields.month, fields.day), QTime(fields.hour, fields.minute), Qt::UTC};
}

void takeDate(DateFields& fields, QDate date)
{
    date = std::clamp(date, QDate(1, 1, 1), QDate(lastYear, 12, 31));
    fields.year = date.year();
    fields.month = date.month();
    fields.day = date.day();
}

} // namespace

CustomDatePicker::CustomDatePicker(Type type, QWidget* parent)
    : QDateTimeEdit(parent)
    , type_(type)
    , sections_(type == Type::date ? DateSections::ofDate() : DateSections::ofTime())
{
    setTimeSpec(Qt::UTC); // has no skipped times; which moment is meant is not decided here
    setLocale(sections_.locale());
    setDisplayFormat(sections_.qtFormat());
    setMinimumDate(QDate(100, 1, 1)); // the first that `QDateTimeEdit` accepts
    setKeyboardTracking(false);
    setButtonSymbols(NoButtons);
    setFrame(false);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    setInputMethodHints(Qt::ImhPreferNumbers);
    lineEdit()->setReadOnly(true); // keys come here, and nothing else may change the text
    lineEdit()->setTextMargins(0, 0, 0, 0);
    lineEdit()->installEventFilter(this);
    setFields({});
}

void CustomDatePicker::setFields(const DateFields& fields)
{
    isTyping_ = false;
    digits_.clear();
    fields_ = fields;
    showText();
}

void CustomDatePicker::finishTyping()
{
    takeDigits();
    if (!isTyping_)
        return;
    isTyping_ = false;
    fields_.day = std::min(fields_.day, daysOfMonth(fields_.year, fields_.month));
    showText();
    Q_EMIT edited(ZonedCalendar::Skip::forward);
}

QString CustomDatePicker::sectionText(std::size_t index) const
{
    const auto& section = sections_.sections()[index];
    return index == current_ && !digits_.isEmpty()
        ? sections_.localDigits(digits_)
        : sections_.text(fields_, section.kind, section.leastDigits);
}

QString CustomDatePicker::shownText() const
{
    if (digits_.isEmpty())
        return sections_.text(fields_);
    QString text;
    for (std::size_t i = 0; i < sections_.sections().size(); ++i)
        text += sections_.sections()[i].before + sectionText(i);
    return text;
}

void CustomDatePicker::showText()
{
    // The base class would read the text again, and move to a section of its own choice.
    const QSignalBlocker blockEdit(lineEdit());
    const QSignalBlocker blockBase(this);
    setDateTime(std::clamp(::quor::formkit::dateTime(fields_), minimumDateTime(), maximumDateTime()));
    const QString text = shownText();
    if (lineEdit()->text() != text)
        lineEdit()->setText(text);
    if (!hasFocus()) {
        lineEdit()->deselect();
        return;
    }
    int start = 0;
    for (std::size_t i = 0; i < current_; ++i)
        start += int(sections_.sections()[i].before.size() + sectionText(i).size());
    start += int(sections_.sections()[current_].before.size());
    lineEdit()->setSelection(start, int(sectionText(current_).size()));
}

QString CustomDatePicker::textFromDateTime(const QDateTime& dateTime) const
{
    if (dateTime == this->dateTime())
        return shownText();
    DateFields fields;
    takeDate(fields, dateTime.date());
    fields.hour = dateTime.time().hour();
    fields.minute = dateTime.time().minute();
    return sections_.text(fields);
}

QDateTime CustomDatePicker::dateTimeFromText(const QString&) const
{
    return dateTime(); // the text was made from the fields
}

QValidator::State CustomDatePicker::validate(QString&, int&) const
{
    return QValidator::Acceptable;
}

bool CustomDatePicker::goToNext(bool forward)
{
    takeDigits();
    const bool exists = forward ? current_ + 1 < sections_.sections().size() : current_ > 0;
    if (exists)
        current_ += forward ? 1 : -1;
    showText();
    return exists;
}

void CustomDatePicker::takeDigits()
{
    if (digits_.isEmpty())
        return;
    const QString digits = std::exchange(digits_, {});
    const int number = digits.toInt();
    const bool isAfternoon = fields_.hour >= noonHour;
    isTyping_ = true;
    switch (currentKind()) {
    case Kind::year:
        fields_.year = std::max(yearOfDigits(digits, fields_.year), 1);
        break;
    case Kind::month:
        fields_.month = std::clamp(number, 1, 12);
        break;
    case Kind::day:
        fields_.day = std::max(number, 1);
        break;
    case Kind::hour:
        fields_.hour = number;
        break;
    case Kind::hourOfTwelve: {
        const bool isOfTwelve = number >= 1 && number <= noonHour;
        fields_.hour = isOfTwelve ? number % noonHour + (isAfternoon ? noonHour : 0) : number;
        break;
    }
    case Kind::minute:
        fields_.minute = number;
        break;
    case Kind::dayPeriod:
        break;
    }
}

void CustomDatePicker::typeDigit(int digit)
{
    const int most = mostOf(currentKind());
    const qsizetype longest = currentKind() == Kind::year ? 4 : 2;
    if (currentKind() == Kind::dayPeriod)
        return;
    if ((digits_ + QChar(u'0' + digit)).toInt() > most)
        digits_.clear(); // begins again
    digits_ += QChar(u'0' + digit);
    if (digits_.size() == longest || digits_.toInt() * 10 > most) {
        if (!goToNext(true))
            finishTyping();
    } else {
        showText();
    }
}

bool CustomDatePicker::setDayPeriod(QChar letter)
{
    for (const bool isAfternoon : {false, true}) {
        const bool isOwn = sections_.dayPeriod(isAfternoon).startsWith(letter, Qt::CaseInsensitive)
            && !sections_.dayPeriod(!isAfternoon).startsWith(letter, Qt::CaseInsensitive);
        if (!isOwn && letter.toLower() != (isAfternoon ? u'p' : u'a'))
            continue;
        fields_.hour = fields_.hour % noonHour + (isAfternoon ? noonHour : 0);
        isTyping_ = true;
        finishTyping();
        return true;
    }
    return false;
}

void CustomDatePicker::type(QChar character)
{
    if (const int digit = character.digitValue(); digit >= 0)
        typeDigit(digit);
    else if (currentKind() == Kind::dayPeriod && setDayPeriod(character))
        return;
    else if ((character.isPunct() || character.isSpace()) && !digits_.isEmpty())
        goToNext(true);
}

void CustomDatePicker::paste(const QString& text)
{
    const auto read = sections_.read(text, fields_);
    if (!read)
        return;
    digits_.clear();
    fields_ = *read;
    isTyping_ = true;
    finishTyping();
}

void CustomDatePicker::step(int steps)
{
    const QDate date(fields_.year, fields_.month, fields_.day);
    const auto addMinutes = [&](int minutes) {
        const int sum = fields_.hour * minutesOfHour + fields_.minute + minutes;
        const int inDay = (sum % minutesOfDay + minutesOfDay) % minutesOfDay;
        fields_.hour = inDay / minutesOfHour;
        fields_.minute = inDay % minutesOfHour;
    };
    const auto limited = [&](QDate stepped) {
        const bool isBefore = !stepped.isValid() ? steps < 0 : stepped.year() < 1;
        takeDate(fields_, isBefore ? QDate(1, 1, 1) : stepped.isValid() ? stepped : QDate(lastYear, 12, 31));
    };
    switch (currentKind()) {
    case Kind::year:
        limited(date.addYears(steps));
        break;
    case Kind::month:
        limited(date.addMonths(steps));
        break;
    case Kind::day:
        limited(date.addDays(steps));
        break;
    case Kind::hour:
    case Kind::hourOfTwelve:
        addMinutes(steps % hoursOfDay * minutesOfHour);
        break;
    case Kind::minute:
        addMinutes(steps % minutesOfDay);
        break;
    case Kind::dayPeriod:
        addMinutes(steps % 2 * noonHour * minutesOfHour);
        break;
    }
}

void CustomDatePicker::stepBy(int steps)
{
    takeDigits();
    const bool wasTyping = std::exchange(isTyping_, false);
    fields_.day = std::min(fields_.day, daysOfMonth(fields_.year, fields_.month));
    const DateFields before = fields_;
    step(steps);
    showText();
    const bool isBackward = steps < 0 && currentKind() != Kind::dayPeriod;
    if (wasTyping || fields_ != before)
        Q_EMIT edited(isBackward ? ZonedCalendar::Skip::backward : ZonedCalendar::Skip::forward);
}

void CustomDatePicker::keyPressEvent(QKeyEvent* event)
{
    const bool isRightToLeft = layoutDirection() == Qt::RightToLeft;
    const bool opens = event->key() == Qt::Key_F4
        || (event->key() == Qt::Key_Down && (event->modifiers() & Qt::AltModifier));
    event->accept();
    if (opens) {
        finishTyping();
        Q_EMIT calendarRequested();
    } else if (event == QKeySequence::Paste) {
        paste(QGuiApplication::clipboard()->text());
    } else if (event == QKeySequence::Copy) {
        QGuiApplication::clipboard()->setText(shownText());
    } else if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) {
        event->ignore();
    } else {
        switch (event->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
            stepBy(event->key() == Qt::Key_Up ? 1 : -1);
            return;
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            stepBy(event->key() == Qt::Key_PageUp ? 10 : -10);
            return;
        case Qt::Key_Left:
        case Qt::Key_Right:
            goToNext((event->key() == Qt::Key_Right) != isRightToLeft);
            return;
        case Qt::Key_Home:
        case Qt::Key_End:
            takeDigits();
            current_ = event->key() == Qt::Key_Home ? 0 : sections_.sections().size() - 1;
            showText();
            return;
        case Qt::Key_Backspace:
            digits_.chop(1);
            showText();
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            finishTyping();
            event->ignore(); // also presses the default button of the form
            return;
        default:
            if (event->text().isEmpty() || !event->text().front().isPrint())
                event->ignore();
            else
                type(event->text().front());
        }
    }
}

bool CustomDatePicker::event(QEvent* event)
{
    if (event->type() == QEvent::InputMethod) {
        for (const QChar character : static_cast<QInputMethodEvent*>(event)->commitString().left(16))
            type(character);
        event->accept();
        return true;
    }
    // A shortcut may save the form.
    if (event->type() == QEvent::ShortcutOverride
        && (static_cast<QKeyEvent*>(event)->modifiers() & (Qt::ControlModifier | Qt::AltModifier)))
        finishTyping();
    return QDateTimeEdit::event(event);
}

bool CustomDatePicker::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != lineEdit())
        return QDateTimeEdit::eventFilter(watched, event);
    if (event->type() == QEvent::MouseMove || event->type() == QEvent::MouseButtonRelease
        || event->type() == QEvent::MouseButtonDblClick)
        return true;
    if (event->type() != QEvent::MouseButtonPress
        || static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton)
        return QDateTimeEdit::eventFilter(watched, event);
    setFocus(Qt::MouseFocusReason);
    takeDigits();
    const int position = lineEdit()->cursorPositionAt(static_cast<QMouseEvent*>(event)->position().toPoint());
    qsizetype end = 0;
    for (current_ = 0; current_ + 1 < sections_.sections().size(); ++current_) {
        end += sections_.sections()[current_].before.size() + sectionText(current_).size();
        if (position <= end)
            break;
    }
    showText();
    return true;
}

void CustomDatePicker::focusInEvent(QFocusEvent* event)
{
    QDateTimeEdit::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason)
        current_ = 0;
    else if (event->reason() == Qt::BacktabFocusReason)
        current_ = sections_.sections().size() - 1;
    showText();
}

void CustomDatePicker::focusOutEvent(QFocusEvent* event)
{
    QDateTimeEdit::focusOutEvent(event);
    finishTyping();
    showText();
}

bool CustomDatePicker::focusNextPrevChild(bool next)
{
    // The base class would go through the sections in another order.
    return goToNext(next) || QWidget::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call)
}

void CustomDatePicker::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QDateTimeEdit::wheelEvent(event);
    else
        event->ignore();
}

} // namespace quor::formkit
