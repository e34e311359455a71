// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormDurationInput.h"

#include "FormKit/Form.h"
#include "FormKit_macOS/Controls/DurationField.h"
#include "FormKit_macOS/Controls/LockButton.h"
#include "FormKit_macOS/FormMacOSResource.h"
#include "Platform/Lifetime/WhileAlive.h"
#include "ToolKit/Formatting/DurationFormatter.h"
#include "ToolKit/Formatting/TypedDuration.h"

#include <QHBoxLayout>
#include <QLabel>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace quor::formkit {

namespace {

constexpr double secondsPerHour = 3600;
constexpr double secondsPerMinute = 60;
constexpr int fieldWidth = 55;
constexpr int fieldWidthOfThree = 50;
constexpr int spacing = 8;
constexpr int lockSpacing = 20;

/// Subtracts all whole multiples of `unit` from `value` and returns their number. The remainder is exact.
double takeMultiples(double& value, double unit)
{
    const double rest = std::fmod(value, unit);
    return std::round((std::exchange(value, rest) - rest) / unit);
}

} // namespace

FormDurationInput::FormDurationInput(Construction construction)
    : FormBase(construction)
    , lockButton_(
          new LockButton(FormMacOSResource::localizedString(u"FormLockDurationLabel"_s), container_.get()))
    , workingDay_(addUnit(u"FormWorkingDayShort"_s))
    , hour_(addUnit(u"FormHourSemiShort"_s))
    , minute_(addUnit(u"FormMinuteSemiShort"_s))
{
    formatter_.setMaximumFractionDigits(0);
    formatter_.setUsesGroupingSeparator(false);
}

FormDurationInput::~FormDurationInput() = default;

FormDurationInput::Unit FormDurationInput::addUnit(const QString& labelKey)
{
    const QString text = FormMacOSResource::localizedString(labelKey);
    auto* const label = new QLabel(text, container_.get());
    label->setTextFormat(Qt::PlainText);
    auto* const field = new DurationField(container_.get());
    field->setAccessibleName(text);
    return {field, label};
}

void FormDurationInput::setup()
{
    auto* const layout = new QHBoxLayout(container_.get());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    for (const Unit& unit : {workingDay_, hour_, minute_}) {
        layout->addWidget(unit.field);
        layout->addWidget(unit.label);
        DurationField* const field = unit.field;
        QObject::connect(
            field, &InputField::edited, field, platform::whileAlive(*this, [this] { changed(); }));
        QObject::connect(field, &QLineEdit::editingFinished, field,
            platform::whileAlive(*this, [this, field] { editingEnded(*field); }));
        QObject::connect(field, &DurationField::stepped, field,
            platform::whileAlive(*this, [this, field](int by) { step(*field, by); }));
        field->willPaste = platform::whileAlive(*this, [this](const QString& text) { return paste(text); });
    }
    layout->addSpacing(lockSpacing - spacing);
    layout->addWidget(lockButton_);
    // In a row that is higher than its fields, they and their units are centred differently.
    lockButton_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    layout->addStretch();
    QObject::connect(lockButton_, &QToolButton::clicked, lockButton_,
        platform::whileAlive(*this, [this] { lockClicked(); }));
    lockButton_->setHidden(hideLock_);
    arrangeFields();
}

void FormDurationInput::arrangeFields()
{
    for (const Unit& unit : {workingDay_, hour_, minute_}) {
        unit.field->setShownText({});
        unit.field->setFixedWidth(hasWorkingDays() ? fieldWidthOfThree : fieldWidth);
    }
    workingDay_.field->setHidden(!hasWorkingDays());
    workingDay_.label->setHidden(!hasWorkingDays());
    applyLock();
}

void FormDurationInput::setWorkingDayLength(double seconds)
{
    workingDayLength_ = std::isfinite(seconds) ? seconds : 0;
    if (!container_)
        return;
    arrangeFields();
    if (Form* const owner = form())
        owner->setNeedsRender(true);
}

std::vector<QWidget*> FormDurationInput::focusableViews() const
{
    if (!container_)
        return {};
    std::vector<QWidget*> views{hour_.field, minute_.field};
    if (hasWorkingDays())
        views.insert(views.begin(), workingDay_.field);
    return views;
}

double FormDurationInput::number(const DurationField& field) const
{
    return formatter_.number(field.text().trimmed()).value_or(0);
}

void FormDurationInput::showNumber(DurationField& field, double number)
{
    field.setShownText(formatter_.string(number == 0 ? 0 : number));
}

double FormDurationInput::value() const
{
    if (!container_)
        return 0;
    const double days = hasWorkingDays() ? number(*workingDay_.field) : 0;
    const double seconds = days * workingDayLength_ + number(*hour_.field) * secondsPerHour
        + number(*minute_.field) * secondsPerMinute;
    return std::isfinite(seconds) ? seconds : 0;
}

void FormDurationInput::setValue(double seconds)
{
    if (!container_)
        return;
    const double sign = seconds < 0 ? -1 : 1;
    double rest = std::isfinite(seconds) ? std::abs(seconds) : 0;
    const double days = hasWorkingDays() ? takeMultiples(rest, workingDayLength_) : 0;
    const double hours = takeMultiples(rest, secondsPerHour);
    showNumber(*workingDay_.field, days * sign);
    showNumber(*hour_.field, hours * sign);
    showNumber(*minute_.field, std::floor(rest / secondsPerMinute) * sign);
}

void FormDurationInput::changed()
{
    setHasChanges(true);
    notifyValueChanged();
}

void FormDurationInput::step(DurationField& field, int step)
{
    const double now = number(field);
    const double next = step > 0 ? std::floor(now) + 1 : std::ceil(now) - 1;
    // One key too many must not make the duration negative.
    showNumber(field, now >= 0 ? std::max(0.0, next) : next);
    field.selectAll();
    if (number(field) != now)
        changed();
}

bool FormDurationInput::paste(const QString& text)
{
    toolkit::DurationFormatter formatter;
    formatter.configure(hasWorkingDays(), false, workingDayLength_);
    const auto seconds = toolkit::typedDuration(text, formatter);
    if (!seconds)
        return false;
    setValue(*seconds);
    changed();
    return true;
}

void FormDurationInput::normalize(DurationField& field)
{
    if (!field.isEdited() || field.text().isEmpty())
        return;
    const double typed = number(field);
    if (typed == std::trunc(typed))
        showNumber(field, typed);
    else
        setValue(value());
}

void FormDurationInput::editingEnded(DurationField& field)
{
    const double before = value();
    normalize(field);
    if (value() != before)
        notifyValueChanged();
}

void FormDurationInput::applyLock()
{
    if (!container_)
        return;
    const auto units = {workingDay_, hour_, minute_};
    for (const Unit& unit : units)
        normalize(*unit.field);
    lockButton_->setChecked(isLocked_);
    const bool isEnabled = enabled() && !isLocked_;
    for (const Unit& unit : units)
        unit.field->setEnabled(isEnabled);
}

void FormDurationInput::setLocked(bool isLocked)
{
    isLocked_ = isLocked;
    applyLock();
}

void FormDurationInput::lockClicked()
{
    setLocked(!isLocked_);
    lockButtonClicked_();
}

void FormDurationInput::setHideLock(bool hideLock)
{
    hideLock_ = hideLock;
    if (container_)
        lockButton_->setHidden(hideLock);
    if (hideLock)
        setLocked(false);
}

void FormDurationInput::setEnabled(bool enabled)
{
    FormBase::setEnabled(enabled);
    if (!container_)
        return;
    lockButton_->setEnabled(enabled);
    // A field that loses the focus may call a handler that releases this element.
    for (const Unit& unit : {workingDay_, hour_, minute_}) {
        unit.label->setEnabled(enabled);
        unit.field->setEnabled(enabled);
    }
}

} // namespace quor::formkit
