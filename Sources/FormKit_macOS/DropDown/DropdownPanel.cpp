// SPDX-License-Identifier: MIT
#include "FormKit_macOS/DropDown/DropdownPanel.h"

#include <QVBoxLayout>

namespace quor::formkit {

DropdownPanel::DropdownPanel(const DropdownItems& items, std::optional<int> selectedIndex, QWidget& anchor)
    : TransientPanel(anchor, anchor)
    , view_(new DropdownView(items, selectedIndex, anchor.width() - 2 * frameWidth()))
{
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(view_);
    connect(view_, &DropdownView::resized, this, [this] { place(); });
}

QSize DropdownPanel::wantedSize(const QRect& screen) const
{
    const QSize frame(2 * frameWidth(), 2 * frameWidth());
    return view_->fittingSize(screen.height() / 2 - frame.height()) + frame;
}

} // namespace quor::formkit
