// SPDX-License-Identifier: MIT
#include "FormKit_macOS/DropDown/DropdownIndex.h"

#include "FormKit_macOS/DropDown/TextMatch.h"

#include <algorithm>
#include <cstring>
#include <numeric>
#include <utility>

namespace quor::formkit {

namespace {

constexpr std::size_t itemsPerCheck = 256; ///< for a cancellation

std::size_t lowByte(QChar letter)
{
    return letter.unicode() & 0xFF;
}

} // namespace

DropdownIndex::DropdownIndex(std::shared_ptr<const Items> items)
    : items_(std::move(items))
{
}

bool DropdownIndex::prepare(const std::atomic<bool>& isCancelled)
{
    ends_.reserve(items_->size());
    parents_.reserve(items_->size());
    while (ends_.size() < items_->size()) {
        if (ends_.size() % itemsPerCheck == 0 && isCancelled)
            return false;
        prepare((*items_)[ends_.size()]);
    }
    return true;
}

void DropdownIndex::prepare(const FormItem& item)
{
    const QString folded = foldedText(item.name);
    for (const QChar letter : folded)
        ++counts_[lowByte(letter)];
    text_ += folded;
    int parent = -1;
    if (!item.isSeparator()) {
        while (!ancestors_.empty()
            && (*items_)[std::size_t(ancestors_.back())].indentationLevel >= item.indentationLevel)
            ancestors_.pop_back();
        parent = ancestors_.empty() ? -1 : ancestors_.back();
        ancestors_.push_back(int(ends_.size()));
    }
    hasParents_ = hasParents_ || parent >= 0;
    parents_.push_back(parent);
    ends_.push_back(text_.size());
}

std::optional<std::vector<int>> DropdownIndex::find(const QString& term, const std::atomic<bool>& isCancelled)
{
    std::vector<int> found;
    const QString folded = foldedText(term);
    if (folded.isEmpty()) {
        found.resize(items_->size());
        std::iota(found.begin(), found.end(), 0);
        return found;
    }
    if (!prepare(isCancelled))
        return std::nullopt;
    const qsizetype rarest = rarestLetter(folded);
    for (std::size_t first = 0; first < ends_.size(); first += itemsPerCheck) {
        if (isCancelled)
            return std::nullopt;
        findIn(first, std::min(first + itemsPerCheck, ends_.size()), folded, rarest, found);
    }
    return hasParents_ && !found.empty() ? withRelatives(found) : found;
}

qsizetype DropdownIndex::rarestLetter(const QString& folded) const
{
    const auto isRarer
        = [this](QChar one, QChar other) { return counts_[lowByte(one)] < counts_[lowByte(other)]; };
    return std::min_element(folded.begin(), folded.end(), isRarer) - folded.begin();
}

void DropdownIndex::findIn(std::size_t first, std::size_t last, const QString& folded, qsizetype rarest,
    std::vector<int>& found) const
{
    const QStringView names = QStringView(text_).left(ends_[last - 1]);
    const auto bytes = std::size_t(folded.size()) * sizeof(QChar);
    qsizetype from = first == 0 ? 0 : ends_[first - 1];
    for (std::size_t item = first; from < names.size();) {
        const qsizetype letter = names.indexOf(folded[rarest], from + rarest);
        if (letter < 0)
            return;
        const qsizetype start = letter - rarest;
        while (ends_[item] <= start)
            ++item;
        const bool fits = start + folded.size() <= ends_[item];
        if (fits && std::memcmp(names.data() + start, folded.data(), bytes) == 0) {
            found.push_back(int(item));
            from = ends_[item];
        } else {
            from = start + 1;
        }
    }
}

std::vector<int> DropdownIndex::withRelatives(const std::vector<int>& found) const
{
    std::vector<char> isShown(ends_.size(), 0);
    for (const int item : found)
        isShown[std::size_t(item)] = 1;
    // Parents come before their children: children follow in this direction, parents in the other.
    for (std::size_t item = 0; item < isShown.size(); ++item)
        if (const int parent = parents_[item]; parent >= 0 && isShown[std::size_t(parent)])
            isShown[item] = 1;
    for (std::size_t item = isShown.size(); item-- > 0;)
        if (const int parent = parents_[item]; parent >= 0 && isShown[item])
            isShown[std::size_t(parent)] = 1;
    std::vector<int> shown;
    for (std::size_t item = 0; item < isShown.size(); ++item)
        if (isShown[item])
            shown.push_back(int(item));
    return shown;
}

} // namespace quor::formkit
