// SPDX-License-Identifier: MIT
#pragma once

#include <QFontMetricsF>
#include <QString>

#include <array>

namespace quor::helper {

/// Upper bounds for the widths of texts in one font: the sum of the widths of the single letters, each of
/// which is measured once. Much faster than to lay out the texts, for thousands of them.
///
/// All widths are whole numbers of 1/64 device-independent pixel. Main thread only.
class TextWidthBound final {
public:
    static constexpr int unitsPerPixel = 64;

    explicit TextWidthBound(const QFont& font);

    /// Returns a width that the text does not exceed. Stops adding letters above `limit`, so a result above
    /// `limit` only means that the text may be wider than that. The result is always above `limit` for
    /// scripts, other than Arabic, in which letters change their shape or place next to other letters.
    [[nodiscard]] int of(const QString& text, int limit);

private:
    static constexpr char16_t tableSize = 0x2C00;

    [[nodiscard]] int boundOf(char16_t letter);
    [[nodiscard]] int measure(char16_t letter) const;
    [[nodiscard]] double widestArabicForm(QChar letter) const;

    QFontMetricsF metrics_;
    int ideographBound_ = 0; ///< 0 until it is measured
    std::array<int, tableSize> bounds_{}; ///< of the letters before `tableSize`; 0 until they are measured
};

} // namespace quor::helper
