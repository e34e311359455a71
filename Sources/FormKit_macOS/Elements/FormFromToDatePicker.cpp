// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormFromToDatePicker.h"

#include "Platform/Lifetime/WhileAlive.h"

#include <QHBoxLayout>

namespace quor::formkit {

FormFromToDatePicker::FormFromToDatePicker(Construction construction, const FormViewFactoryProtocoll& factory)
    : FormBase(construction)
    , fromPicker_(factory.datePicker())
    , toPicker_(factory.datePicker())
{
}

FormFromToDatePicker::~FormFromToDatePicker()
{
    // The pickers lose the keyboard when they go, and then take what was being typed.
    fromPicker_->setValueChanged({});
    toPicker_->setValueChanged({});
}

void FormFromToDatePicker::setup()
{
    constexpr int spacing = 4;
    container_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto* const layout = new QHBoxLayout(container_.get());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    layout->addWidget(fromPicker_->view());
    layout->addWidget(toTextField_.get());
    layout->addWidget(toPicker_->view());
    layout->addStretch(1);
    toTextField_->setTextFormat(Qt::PlainText);
    toTextField_->hide();
    fromPicker_->setValueChanged(platform::whileAlive(*this, [this](FormElement&) { fromChanged(); }));
    toPicker_->setValueChanged(platform::whileAlive(*this, [this](FormElement&) { toChanged(); }));
}

void FormFromToDatePicker::fromChanged()
{
    if (!fromValue())
        setToValue(std::nullopt);
    else if (!toValue())
        setToValue(toPromptValue());
    if (fromValue() && toValue() && *fromValue() > *toValue())
        setToValue(fromValue());
    setHasChanges(true);
    notifyValueChanged();
}

void FormFromToDatePicker::toChanged()
{
    if (!toValue())
        setFromValue(std::nullopt);
    else if (!fromValue() || *fromValue() > *toValue())
        setFromValue(toValue());
    setHasChanges(true);
    notifyValueChanged();
}

void FormFromToDatePicker::setToText(const QString& text)
{
    toText_ = text;
    if (!toTextField_)
        return;
    toTextField_->setText(text);
    toTextField_->setHidden(text.isEmpty());
}

void FormFromToDatePicker::setMode(DatePickerMode mode)
{
    fromPicker_->setMode(mode);
    toPicker_->setMode(mode);
}

void FormFromToDatePicker::setShowsClearButton(bool showsClearButton)
{
    fromPicker_->setShowsClearButton(showsClearButton);
    toPicker_->setShowsClearButton(showsClearButton);
}

void FormFromToDatePicker::setEnabled(bool enabled)
{
    FormBase::setEnabled(enabled);
    fromPicker_->setEnabled(enabled);
    toPicker_->setEnabled(enabled);
}

bool FormFromToDatePicker::hasChanges() const
{
    return fromPicker_->hasChanges() || toPicker_->hasChanges();
}

void FormFromToDatePicker::setHasChanges(bool hasChanges)
{
    fromPicker_->setHasChanges(hasChanges);
    toPicker_->setHasChanges(hasChanges);
}

std::vector<QWidget*> FormFromToDatePicker::focusableViews() const
{
    auto views = fromPicker_->focusableViews();
    const auto others = toPicker_->focusableViews();
    views.insert(views.end(), others.begin(), others.end());
    return views;
}

} // namespace quor::formkit
