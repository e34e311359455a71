// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormButton.h"

#include "Platform/Lifetime/WhileAlive.h"

#include <QHBoxLayout>

namespace quor::formkit {

void FormButton::setup()
{
    auto* const layout = new QHBoxLayout(container_.get());
    layout->setContentsMargins(0, 0, 0, 0);
    restoreButton();
    QObject::connect(button_.get(), &QAbstractButton::clicked, button_.get(),
        platform::whileAlive(*this, [this] { buttonClickedHandler_(*this); }));
}

void FormButton::restoreButton()
{
    if (!container_ || !button_ || button_->parentWidget() == container_.get())
        return;
    container_->layout()->addWidget(button_.get());
    button_->setHidden(isHidden());
    align();
}

void FormButton::align()
{
    if (!container_ || !button_)
        return;
    const auto side = alignment_ == FormTextAlignment::right ? Qt::AlignRight : Qt::AlignLeft;
    button_->setFlatAlignment(alignment_ == FormTextAlignment::center ? Qt::AlignHCenter : side);
    container_->layout()->setAlignment(button_.get(), side | Qt::AlignVCenter);
}

void FormButton::setAlignment(FormTextAlignment alignment)
{
    alignment_ = alignment;
    align();
}

void FormButton::setTitle(const QString& title)
{
    title_ = title;
    if (button_)
        button_->setTitle(title_, parseMarkdown_);
}

void FormButton::setParseMarkdown(bool parseMarkdown)
{
    parseMarkdown_ = parseMarkdown;
    setTitle(title_);
}

void FormButton::setStyle(FormButtonStyle style)
{
    style_ = style;
    if (!button_)
        return;
    button_->setFlat(style == FormButtonStyle::textOnly);
    setTitle(title_); // its colour and size depend on the frame
}

void FormButton::setShowProgress(bool showProgress)
{
    showProgress_ = showProgress;
    if (!button_)
        return;
    button_->setShowProgress(showProgress);
    setEnabled(enabled());
}

void FormButton::setHasDestructiveAction(bool hasDestructiveAction)
{
    if (button_)
        button_->setProperty("destructive", hasDestructiveAction);
}

void FormButton::setHidden(bool hidden)
{
    const auto alive = life();
    FormBase::setHidden(hidden);
    if (!alive.expired() && button_ && button_->parentWidget())
        button_->setHidden(hidden);
}

void FormButton::setEnabled(bool enabled)
{
    FormBase::setEnabled(enabled);
    if (button_)
        button_->setEnabled(enabled && !showProgress_);
}

} // namespace quor::formkit
