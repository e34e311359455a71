// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormSeparator.h"

#include <QFrame>
#include <QVBoxLayout>

namespace quor::formkit {

void FormSeparator::setup()
{
    auto* const layout = new QVBoxLayout(container_.get());
    layout->setContentsMargins(0, 0, 0, 0);
    line_ = new QFrame;
    line_->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    layout->addWidget(line_);
    setTransparent(false);
}

void FormSeparator::setTransparent(bool isTransparent)
{
    constexpr int height = 15;
    constexpr int transparentHeight = 5;
    isTransparent_ = isTransparent;
    if (!container_)
        return;
    line_->setHidden(isTransparent);
    container_->setFixedHeight(isTransparent ? transparentHeight : height);
}

} // namespace quor::formkit
