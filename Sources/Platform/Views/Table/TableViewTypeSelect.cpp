// SPDX-License-Identifier: MIT
#include "Platform/Views/Table/TableViewTypeSelect.h"

#include <algorithm>

namespace quor::platform {

namespace {

int rowBeginningWith(const QString& text, int from, int count, const std::function<QString(int)>& textOfRow)
{
    for (int step = 0; step < count; ++step) {
        const int row = (from + step) % count;
        if (textOfRow(row).startsWith(text, Qt::CaseInsensitive))
            return row;
    }
    return -1;
}

} // namespace

int TableViewTypeSelect::find(const QString& typed, TimePoint now, int selectedRow, int count,
    const std::function<QString(int)>& textOfRow)
{
    if (typed.isEmpty())
        return -1;
    const bool continues = isTyping(now);
    text_ = continues ? text_ + typed : typed;
    lastTyped_ = now;
    if (count <= 0)
        return -1;
    const int selected = std::clamp(selectedRow, -1, count - 1);
    const int next = (selected + 1) % count;
    // The selected row may still match a text that has grown; a new text leads to another row.
    const int found = rowBeginningWith(text_, continues ? std::max(selected, 0) : next, count, textOfRow);
    const bool isOneLetterRepeated = text_ == typed.repeated(text_.size() / typed.size());
    if (found >= 0 || !continues || !isOneLetterRepeated)
        return found;
    return rowBeginningWith(typed, next, count, textOfRow);
}

} // namespace quor::platform
