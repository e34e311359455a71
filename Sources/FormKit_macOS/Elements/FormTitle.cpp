// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormTitle.h"

#include "FormKit_macOS/Controls/BackButton.h"
#include "FormKit_macOS/Controls/ElidedLabel.h"
#include "FormKit_macOS/Controls/ScaledFont.h"
#include "Platform/Lifetime/WhileAlive.h"

#include <QHBoxLayout>

namespace quor::formkit {

FormTitle::FormTitle(Construction construction, TitleType type, bool showBackButton)
    : FormBase(construction)
    , type_(type)
    , backButton_(showBackButton ? new BackButton(container_.get()) : nullptr)
    , textField_(new ElidedLabel(container_.get()))
{
}

void FormTitle::setup()
{
    const bool isTitle = type_ == TitleType::title;
    keepFontScaled(*textField_, *container_, isTitle ? titleFontFactor : subtitleFontFactor,
        isTitle ? QFont::DemiBold : QFont::Normal);
    auto* const layout = new QHBoxLayout(container_.get());
    layout->setContentsMargins(0, 0, 0, 0);
    if (backButton_) {
        layout->addWidget(backButton_);
        QObject::connect(backButton_, &QAbstractButton::clicked, backButton_,
            platform::whileAlive(*this, [this] { backButtonHandler_(); }));
    }
    layout->addWidget(textField_, 1);
}

void FormTitle::setText(const QString& text)
{
    text_ = text;
    if (container_)
        textField_->setLine(text);
}

void FormTitle::setEnabled(bool enabled)
{
    FormBase::setEnabled(enabled);
    if (backButton_ && container_)
        backButton_->setEnabled(enabled);
}

} // namespace quor::formkit
