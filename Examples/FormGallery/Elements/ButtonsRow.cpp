// SPDX-License-Identifier: MIT
#include "FormGallery/Elements/ButtonsRow.h"

namespace quor::gallery {

void ButtonsRow::setup()
{
    constexpr int spacing = 12;
    layout_ = new QHBoxLayout(view_.get());
    layout_->setContentsMargins({});
    layout_->setSpacing(spacing);
    layout_->addStretch();
}

toolkit::RoundedButton& ButtonsRow::addButton(const QString& title)
{
    auto* const button = new toolkit::RoundedButton(view_.get());
    const QPalette palette = view_->palette();
    button->setTitle(title);
    button->setButtonColor(palette.color(QPalette::Highlight));
    button->setTitleColor(palette.color(QPalette::HighlightedText));
    button->setFilledTitleColor(palette.color(QPalette::HighlightedText));
    layout_->insertWidget(layout_->count() - 1, button);
    return *button;
}

std::vector<QWidget*> ButtonsRow::focusableViews() const
{
    const auto buttons
        = view_ ? view_->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly) : QList<QWidget*>();
    return {buttons.begin(), buttons.end()};
}

} // namespace quor::gallery
