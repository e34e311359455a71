// SPDX-License-Identifier: MIT
#include "Platform/Text/GraphemeClusters.h"

#include <unicode/ubrk.h>

#include <algorithm>
#include <limits>
#include <memory>

namespace quor::platform {

namespace {

struct CloseIterator {
    void operator()(UBreakIterator* iterator) const { ubrk_close(iterator); }
};

/// The iterator of this thread, set to `text`. Kept, since creating one takes longer than walking most texts.
/// Null if ICU has no data.
UBreakIterator* iteratorOver(QStringView text)
{
    UErrorCode status = U_ZERO_ERROR;
    thread_local const std::unique_ptr<UBreakIterator, CloseIterator> iterator(
        ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &status));
    if (!iterator)
        return nullptr;
    ubrk_setText(iterator.get(), text.utf16(), static_cast<int32_t>(text.size()), &status);
    return U_SUCCESS(status) ? iterator.get() : nullptr;
}

/// Whether each unit is a character of its own. The only ASCII character that joins another is the carriage
/// return, a control character.
bool isPlain(QStringView text)
{
    return std::all_of(
        text.utf16(), text.utf16() + text.size(), [](char16_t unit) { return unit >= 0x20 && unit < 0x7f; });
}

} // namespace

qsizetype GraphemeClusters::count(QStringView text)
{
    if (isPlain(text))
        return text.size();
    UBreakIterator* iterator = iteratorOver(text);
    qsizetype count = 0;
    while (iterator && ubrk_next(iterator) != UBRK_DONE)
        ++count;
    return count;
}

QStringView GraphemeClusters::first(QStringView text, qsizetype count)
{
    if (count <= 0)
        return text.first(0);
    // The unit after them must be plain, too: otherwise it may join the last of them.
    if (text.size() > count && isPlain(text.first(count + 1)))
        return text.first(count);
    UBreakIterator* iterator = iteratorOver(text);
    if (!iterator)
        return text;
    int32_t to = 0;
    for (qsizetype left = count; left > 0 && to < text.size(); --left)
        to = ubrk_next(iterator);
    return text.first(to);
}

QStringView GraphemeClusters::last(QStringView text, qsizetype count)
{
    if (count <= 0)
        return text.last(0);
    // The unit before them must be plain, too: otherwise the first of them may join it.
    if (text.size() > count && isPlain(text.last(count + 1)))
        return text.last(count);
    UBreakIterator* iterator = iteratorOver(text);
    if (!iterator)
        return text;
    int32_t from = ubrk_last(iterator);
    for (qsizetype left = count; left > 0 && from > 0; --left)
        from = ubrk_previous(iterator);
    return text.sliced(from);
}

std::vector<QStringView> GraphemeClusters::characters(QStringView text)
{
    std::vector<QStringView> characters;
    if (isPlain(text)) {
        characters.reserve(static_cast<std::size_t>(text.size()));
        for (qsizetype at = 0; at < text.size(); ++at)
            characters.push_back(text.sliced(at, 1));
        return characters;
    }
    UBreakIterator* iterator = iteratorOver(text);
    int32_t from = 0;
    while (iterator) {
        const int32_t to = ubrk_next(iterator);
        if (to == UBRK_DONE)
            break;
        characters.push_back(text.sliced(from, to - from));
        from = to;
    }
    return characters;
}

} // namespace quor::platform
