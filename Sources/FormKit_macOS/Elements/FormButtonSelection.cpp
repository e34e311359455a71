// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormButtonSelection.h"

#include "Platform/Lifetime/WhileAlive.h"

namespace quor::formkit {

void FormButtonSelection::setup()
{
    QObject::connect(row_.get(), &SegmentRow::segmentClicked, row_.get(),
        platform::whileAlive(*this, [this](int segment) { clicked(segment); }));
}

void FormButtonSelection::clicked(int segment)
{
    const int tag = buttons_[static_cast<std::size_t>(segment)].tag;
    if (!allowMultipleSelection_)
        selectedTag_ = tag;
    else if (selectedTags_.erase(tag) == 0)
        selectedTags_.insert(tag);
    updateStates();
    setHasChanges(true);
    notifyValueChanged();
}

void FormButtonSelection::updateStates()
{
    if (!row_)
        return;
    row_->select([this](int segment) {
        const int tag = buttons_[static_cast<std::size_t>(segment)].tag;
        return allowMultipleSelection_ ? selectedTags_.contains(tag) : tag == selectedTag_;
    });
}

void FormButtonSelection::setButtons(std::vector<Button> buttons)
{
    buttons_ = std::move(buttons);
    if (!row_)
        return;
    QStringList titles;
    for (const auto& button : buttons_)
        titles.append(button.title);
    row_->setTitles(titles);
    updateStates();
}

void FormButtonSelection::setAllowMultipleSelection(bool allowMultipleSelection)
{
    allowMultipleSelection_ = allowMultipleSelection;
    if (row_)
        row_->setExclusive(!allowMultipleSelection);
    updateStates();
}

void FormButtonSelection::setSelectedTag(int tag)
{
    selectedTag_ = tag;
    updateStates();
}

void FormButtonSelection::setSelectedTags(std::set<int> tags)
{
    selectedTags_ = std::move(tags);
    updateStates();
}

void FormButtonSelection::setEnabled(bool enabled)
{
    FormBase::setEnabled(enabled);
    if (row_)
        row_->setEnabled(enabled);
}

} // namespace quor::formkit
