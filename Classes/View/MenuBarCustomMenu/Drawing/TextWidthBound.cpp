// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/Drawing/TextWidthBound.h"

#include <algorithm>
#include <cmath>

namespace quor::helper {

namespace {

constexpr int unbounded = 1 << 29;
constexpr int rounding = 2 * TextWidthBound::unitsPerPixel; // for a text as a whole

bool isBetween(char16_t letter, char16_t first, char16_t end)
{
    return letter >= first && letter < end;
}

int boundFor(double width)
{
    constexpr double kerning = 1.05;
    return 1 + int(std::ceil(kerning * width * TextWidthBound::unitsPerPixel));
}

} // namespace

TextWidthBound::TextWidthBound(const QFont& font)
    : metrics_(font)
{
}

int TextWidthBound::of(const QString& text, int limit)
{
    int sum = rounding;
    for (const QChar character : text) {
        // Nearly all letters were measured before. Without a call for them, long menus take half the time.
        const char16_t letter = character.unicode();
        const int known = letter < tableSize ? bounds_[letter] : 0;
        sum += known != 0 ? known : boundOf(letter);
        if (sum > limit)
            break;
    }
    return sum;
}

int TextWidthBound::boundOf(char16_t letter)
{
    if (letter < tableSize) {
        int& bound = bounds_[letter];
        if (bound == 0)
            bound = measure(letter);
        return bound;
    }
    const bool isKana = isBetween(letter, 0x3000, 0x3100);
    const bool isHan = isBetween(letter, 0x4E00, 0xA000);
    const bool isHangul = isBetween(letter, 0xAC00, 0xD7A4);
    if (!isKana && !isHan && !isHangul)
        return unbounded;
    // All are equally wide in one font, but a text may need several fonts.
    if (ideographBound_ == 0)
        for (const char16_t sample : {u'\u3042', u'\u4E00', u'\uAC00', u'M'})
            ideographBound_ = std::max(ideographBound_, boundFor(metrics_.horizontalAdvance(QChar(sample))));
    return ideographBound_;
}

int TextWidthBound::measure(char16_t letter) const
{
    const bool isArabic = isBetween(letter, 0x600, 0x900);
    // Letters of the other scripts are combined with each other.
    const bool standsAlone = letter < 0x600 || isBetween(letter, 0xE00, 0xE80) || letter >= 0x1E00;
    if (isArabic)
        return boundFor(widestArabicForm(letter));
    return standsAlone ? boundFor(metrics_.horizontalAdvance(QChar(letter))) : unbounded;
}

double TextWidthBound::widestArabicForm(QChar letter) const
{
    const QString joiner(QChar(0x200D));
    double widest = 0;
    // Alone, and at the beginning, in the middle and at the end of a word.
    for (const QString& form : {QString(letter), letter + joiner, joiner + letter + joiner, joiner + letter})
        widest = std::max(widest, metrics_.horizontalAdvance(form));
    return widest;
}

} // namespace quor::helper
