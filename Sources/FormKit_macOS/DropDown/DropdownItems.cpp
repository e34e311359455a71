// SPDX-License-Identifier: MIT
#include "FormKit_macOS/DropDown/DropdownItems.h"

#include <algorithm>
#include <utility>

namespace quor::formkit {

namespace {

constexpr std::size_t measured = 40; ///< items, whose measuring takes less time than to open a window
constexpr qsizetype longestEstimated = 300; ///< characters, which fill the widest list

/// A width in quarters of a wide letter. Measuring a text takes a hundred times as long.
int estimatedWidth(const FormItem& item)
{
    constexpr QStringView narrow = u" !'()*,-./:;I[]fijlrt|";
    constexpr QStringView wide = u"%@GMOQWmw—…";
    constexpr char16_t firstEastAsian = 0x1100;
    int width = 3 * item.indentationLevel + (item.image ? 4 : 0) + (item.color ? 3 : 0);
    for (const QChar letter : QStringView(item.name).left(longestEstimated)) {
        if (narrow.contains(letter))
            width += 1;
        else
            width += letter.unicode() >= firstEastAsian || wide.contains(letter) ? 4 : 2;
    }
    return width;
}

} // namespace

DropdownItems::List& DropdownItems::changeable()
{
    if (list_.use_count() > 1)
        list_ = std::make_shared<List>(*list_);
    return *list_;
}

void DropdownItems::append(FormItem item)
{
    note(item);
    changeable().push_back(std::move(item));
}

void DropdownItems::prepend(FormItem item)
{
    note(item);
    List& list = changeable();
    list.insert(list.begin(), std::move(item));
}

void DropdownItems::clear()
{
    *this = DropdownItems();
}

void DropdownItems::note(const FormItem& item)
{
    hasSeparators_ = hasSeparators_ || item.isSeparator();
    const int width = estimatedWidth(item);
    if (widest_.size() < measured) {
        widest_.push_back(item);
        widths_.push_back(width);
        return;
    }
    const auto least = std::min_element(widths_.begin(), widths_.end());
    if (width <= *least)
        return;
    *least = width;
    widest_[std::size_t(least - widths_.begin())] = item;
}

} // namespace quor::formkit
