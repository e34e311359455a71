// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/DatePickerView.h"

#include "FormKit_macOS/Controls/CalendarPopup.h"
#include "FormKit_macOS/FormMacOSResource.h"
#include "Platform/Services/Clock.h"

#include <QApplication>
#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quor::formkit {

namespace {

constexpr int edgeInset = 7;
constexpr int spacingAfterClearButton = 16;
/// Kept free of the pickers, which have a background.
constexpr int frameWidth = 2;

QString text(const char* key)
{
    return FormMacOSResource::localizedString(QLatin1StringView(key));
}

} // namespace

DatePickerView::DatePickerView(QWidget* parent)
    : QWidget(parent)
    , datePicker_(new CustomDatePicker(CustomDatePicker::Type::date, this))
    , timePicker_(new CustomDatePicker(CustomDatePicker::Type::time, this))
    , clearDateButton_(new QCheckBox(this))
    , calendarButton_(new QToolButton(this))
    , promptValue_(platform::SystemClock().now())
    , lastChanged_(promptValue_)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto* const layout = new QHBoxLayout(this);
    layout->setSpacing(0);
    layout->addWidget(clearDateButton_);
    layout->addSpacing(0);
    layout->addWidget(datePicker_);
    layout->addWidget(timePicker_);
    layout->addStretch(1);
    layout->addWidget(calendarButton_);
    clearDateButton_->setAccessibleName(text("FormDatePickerHasDate"));
    calendarButton_->setAccessibleName(text("FormDatePickerOpenCalendar"));
    calendarButton_->setToolTip(calendarButton_->accessibleName());
    calendarButton_->setArrowType(Qt::DownArrow);
    calendarButton_->setAutoRaise(true);
    calendarButton_->setFocusPolicy(Qt::NoFocus); // a key of the date picker opens the calendar too
    connect(clearDateButton_, &QAbstractButton::clicked, this, &DatePickerView::clearButtonClicked);
    connect(calendarButton_, &QAbstractButton::clicked, this, &DatePickerView::openCalendar);
    for (auto* const picker : {datePicker_, timePicker_}) {
        picker->installEventFilter(this);
        connect(picker, &CustomDatePicker::edited, this,
            [this, picker](ZonedCalendar::Skip skip) { pickerEdited(*picker, skip); });
        connect(picker, &CustomDatePicker::calendarRequested, this, &DatePickerView::openCalendar);
    }
    arrange();
}

void DatePickerView::arrange()
{
    const bool hasDate = mode_ != DatePickerMode::time;
    const bool hasTime = mode_ != DatePickerMode::date;
    closeCalendar();
    clearDateButton_->setVisible(showsClearButton_);
    datePicker_->setVisible(hasDate);
    timePicker_->setVisible(hasTime);
    calendarButton_->setVisible(hasDate);
    // The first picker has the name of its row.
    timePicker_->setAccessibleName(hasDate && hasTime ? text("FormDatePickerTime") : QString());
    auto& box = static_cast<QHBoxLayout&>(*layout());
    box.itemAt(1)->spacerItem()->changeSize(showsClearButton_ ? spacingAfterClearButton : 0, 0);
    const int before = showsClearButton_ ? 0 : edgeInset;
    const int after = hasDate ? frameWidth : edgeInset;
    const bool isRightToLeft = layoutDirection() == Qt::RightToLeft;
    box.setContentsMargins(
        isRightToLeft ? after : before, frameWidth, isRightToLeft ? before : after, frameWidth);
    box.invalidate();
    updateGeometry();
    refresh();
}

void DatePickerView::refresh()
{
    zone_ = ZonedCalendar();
    const DateFields fields = zone_.fields(shownDate());
    const bool isEditable = isOperable_ && (!showsClearButton_ || value_);
    for (auto* const picker : {datePicker_, timePicker_}) {
        picker->setFields(fields);
        picker->setEnabled(isEditable);
    }
    calendarButton_->setEnabled(isEditable);
    clearDateButton_->setEnabled(isOperable_);
    clearDateButton_->setChecked(value_.has_value());
    if (calendarPopup_ && isEditable)
        calendarPopup_->setDate(QDate(fields.year, fields.month, fields.day));
    else
        closeCalendar();
    update();
}

void DatePickerView::followZone()
{
    if (!zone_.isCurrent())
        refresh();
}

void DatePickerView::setMode(DatePickerMode mode)
{
    mode_ = mode;
    arrange();
}

void DatePickerView::setShowsClearButton(bool showsClearButton)
{
    showsClearButton_ = showsClearButton;
    arrange();
}

void DatePickerView::setValue(std::optional<platform::Date> value)
{
    value_ = value;
    refresh();
}

void DatePickerView::setPromptValue(platform::Date promptValue)
{
    promptValue_ = promptValue;
    if (!value_)
        refresh();
}

void DatePickerView::setOperable(bool isOperable)
{
    isOperable_ = isOperable;
    refresh();
}

std::vector<QWidget*> DatePickerView::pickers() const
{
    switch (mode_) {
    case DatePickerMode::time:
        return {timePicker_};
    case DatePickerMode::date:
        return {datePicker_};
    case DatePickerMode::dateTime:
        return {datePicker_, timePicker_};
    }
    return {};
}

void DatePickerView::clearButtonClicked(bool isOn)
{
    value_ = isOn ? std::optional(promptValue_) : std::nullopt;
    refresh();
    valueChanged_(*this);
}

void DatePickerView::pickerEdited(const CustomDatePicker& picker, ZonedCalendar::Skip skip)
{
    DateFields fields = zone_.fields(shownDate());
    const DateFields& edited = picker.fields();
    if (picker.type() == CustomDatePicker::Type::date) {
        fields.year = edited.year;
        fields.month = edited.month;
        fields.day = edited.day;
    } else {
        fields.hour = edited.hour;
        fields.minute = edited.minute;
    }
    enter(fields, skip);
}

void DatePickerView::enter(const DateFields& fields, ZonedCalendar::Skip skip)
{
    if (value_ && zone_.fields(*value_) == fields)
        return;
    value_ = zone_.date(fields, shownDate(), skip);
    lastChanged_ = *value_;
    refresh();
    valueChanged_(*this);
}

void DatePickerView::openCalendar()
{
    if (calendarPopup_ || mode_ == DatePickerMode::time || !datePicker_->isEnabled())
        return;
    datePicker_->finishTyping();
    followZone();
    const DateFields& shown = datePicker_->fields();
    calendarPopup_ = new CalendarPopup(*this, *calendarButton_, QDate(shown.year, shown.month, shown.day));
    connect(calendarPopup_, &CalendarPopup::chosen, this, [this](QDate date) {
        datePicker_->setFocus(Qt::PopupFocusReason);
        DateFields fields = zone_.fields(shownDate());
        fields.year = date.year();
        fields.month = date.month();
        fields.day = date.day();
        enter(fields, ZonedCalendar::Skip::forward);
    });
    calendarPopup_->open();
}

void DatePickerView::closeCalendar()
{
    if (calendarPopup_)
        calendarPopup_->close();
}

void DatePickerView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        followZone();
    else if (event->type() == QEvent::EnabledChange && !isEnabled())
        closeCalendar();
    else if (event->type() == QEvent::LayoutDirectionChange)
        arrange();
}

bool DatePickerView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        if (event->type() == QEvent::FocusIn)
            followZone();
        update();
    }
    return QWidget::eventFilter(watched, event);
}

void DatePickerView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    followZone();
}

int DatePickerView::heightOfField() const
{
    QStyleOptionFrame option;
    option.initFrom(this);
    option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, this);
    const QSize line(0, std::max(fontMetrics().height(), 14) + 2);
    return style()->sizeFromContents(QStyle::CT_LineEdit, &option, line, this).height();
}

QSize DatePickerView::sizeHint() const
{
    return {layout()->sizeHint().width(), heightOfField()};
}

QSize DatePickerView::minimumSizeHint() const
{
    return {layout()->minimumSize().width(), heightOfField()};
}

void DatePickerView::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionFrame option;
    option.initFrom(this);
    option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, this);
    if (showsClearButton_) { // which stands outside of the frame
        const QRect button = clearDateButton_->geometry();
        const int gap = spacingAfterClearButton - edgeInset;
        if (layoutDirection() == Qt::RightToLeft)
            option.rect.setRight(button.left() - 1 - gap);
        else
            option.rect.setLeft(button.right() + 1 + gap);
    }
    option.state |= QStyle::State_Sunken;
    if (!datePicker_->isEnabled())
        option.state &= ~QStyle::State_Enabled;
    option.state.setFlag(QStyle::State_HasFocus, datePicker_->hasFocus() || timePicker_->hasFocus());
    if (!datePicker_->isEnabled())
        option.palette.setCurrentColorGroup(QPalette::Disabled);
    painter.drawPrimitive(QStyle::PE_PanelLineEdit, option);
}

} // namespace quor::formkit
