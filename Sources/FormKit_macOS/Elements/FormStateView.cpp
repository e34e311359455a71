// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormStateView.h"

#include "FormKit_macOS/Controls/LargerButton.h"
#include "FormKit_macOS/Controls/ResizeTextView.h"
#include "FormKit_macOS/Controls/ScaledFont.h"
#include "Platform/Lifetime/WhileAlive.h"

#include <QVBoxLayout>

namespace quor::formkit {

FormStateView::FormStateView(Construction construction)
    : FormBase(construction)
    , titleField_(new ResizeTextView(container_.get()))
    , messageField_(new ResizeTextView(container_.get()))
    , button_(new LargerButton(container_.get()))
{
}

void FormStateView::setup()
{
    constexpr int topInset = 30;
    constexpr int bottomInset = 20;
    constexpr int titleSpacing = 8;
    constexpr int messageSpacing = 20;
    titleField_->setFontScale(titleFontFactor, QFont::DemiBold);
    messageField_->setColor(ResizeTextView::Color::secondaryText);
    auto* const layout = new QVBoxLayout(container_.get());
    layout->setContentsMargins(0, topInset, 0, bottomInset);
    layout->setSpacing(titleSpacing);
    for (auto* const field : {titleField_, messageField_}) {
        field->setTextAlignment(Qt::AlignHCenter);
        field->hide();
        layout->addWidget(field);
    }
    layout->addSpacing(messageSpacing - titleSpacing);
    layout->addWidget(button_, 0, Qt::AlignHCenter);
    button_->hide();
    QObject::connect(
        button_, &QAbstractButton::clicked, button_, platform::whileAlive(*this, [this] { action_(); }));
}

void FormStateView::setTitle(const QString& title)
{
    title_ = title;
    if (!container_)
        return;
    titleField_->setContent(title, false);
    titleField_->setHidden(title.isEmpty());
}

void FormStateView::setMessage(const QString& message)
{
    message_ = message;
    if (!container_)
        return;
    messageField_->setContent(message, false);
    messageField_->setHidden(message.isEmpty());
}

void FormStateView::setButtonTitle(const QString& buttonTitle)
{
    buttonTitle_ = buttonTitle;
    if (!container_)
        return;
    button_->setTitle(buttonTitle);
    button_->setHidden(buttonTitle.isEmpty());
}

void FormStateView::setEnabled(bool enabled)
{
    FormBase::setEnabled(enabled);
    if (container_)
        container_->setEnabled(enabled);
}

} // namespace quor::formkit
