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

int TableViewTypeSelect::find(const QString& typed, std::chrono::milliseconds now, int selectedRow, int count,
    const std::function<QString(int)>& textOfRow)
{
    if (typed.isEmpty())
        return -1;
    const bool goesOn = isTyping(now);
    text_ = goesOn ? text_ + typed : typed;
    last_ = now;
    if (count <= 0)
        return -1;
    const int selected = std::clamp(selectedRow, -1, count - 1);
    // While a text grows, the row that fits it so far may fit on; a new text goes to the next row.
    const int found
        = rowBeginningWith(text_, goesOn ? std::max(selected, 0) : (selected + 1) % count, count, textOfRow);
    const bool oneLetter = text_ == typed.repeated(text_.size() / typed.size());
    if (found >= 0 || !goesOn || !oneLetter)
        return found;
    return rowBeginningWith(typed, (selected + 1) % count, count, textOfRow);
}

} // namespace quor::platform
