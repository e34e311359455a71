// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormCheckBox.h"

#include "FormKit_macOS/Controls/ResizeTextView.h"
#include "Platform/Lifetime/WhileAlive.h"

#include <QCheckBox>

namespace quor::formkit {

FormCheckBox::FormCheckBox(Construction construction)
    : FormBase(construction)
    , row_(platform::makeWidget<ToggleRow>(new QCheckBox))
{
}

void FormCheckBox::setup()
{
    QObject::connect(&row_->box(), &QAbstractButton::clicked, row_.get(),
        platform::whileAlive(*this, [this](bool value) { toggled(value); }));
    row_->text().setLinkClicked(platform::whileAlive(*this, [this](const QUrl& url) { linkClicked_(url); }));
}

void FormCheckBox::toggled(bool value)
{
    value_ = value;
    updateText();
    setHasChanges(true);
    notifyValueChanged();
}

void FormCheckBox::updateText()
{
    if (row_)
        row_->setText(value_ && !alternateTitle_.isEmpty() ? alternateTitle_ : title_, true);
}

void FormCheckBox::setTitle(const QString& title)
{
    title_ = title;
    updateText();
}

void FormCheckBox::setAlternateTitle(const QString& alternateTitle)
{
    alternateTitle_ = alternateTitle;
    updateText();
}

void FormCheckBox::setValue(bool value)
{
    value_ = value;
    if (row_)
        row_->box().setChecked(value);
    updateText();
}

void FormCheckBox::setEnabled(bool enabled)
{
    FormBase::setEnabled(enabled);
    if (row_)
        row_->setEnabled(enabled);
}

} // namespace quor::formkit
