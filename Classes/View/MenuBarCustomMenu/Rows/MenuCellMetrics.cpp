// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/Rows/MenuCellMetrics.h"

#include "View/MenuBarCustomMenu/Drawing/MenuFont.h"

#include <QFontMetricsF>
#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <cmath>

namespace quor::helper {

namespace {

constexpr int spacing = 6;
constexpr double titleAlpha = 0.5;
constexpr double widestIcon = 3; // times the height

} // namespace

/// Bounds of widths in whole numbers, of `unit` to a pixel: thousands of rows are summed up.
class MenuCellMetrics::Advances {
public:
    static constexpr int unit = 64;

    explicit Advances(const QFont& font)
        : metrics_(font)
    {
        advances_.fill(unknown);
    }

    /// No less than the text is wide, as far as that can be told; no further than beyond `enough`.
    [[nodiscard]] int bound(const QString& text, int enough)
    {
        int sum = slack;
        for (const QChar letter : text) {
            sum += advances_[std::min(letter.unicode(), limit)];
            if (sum > enough)
                return learnt(text, enough);
        }
        return sum;
    }

private:
    static constexpr int slack = 2 * unit;
    static constexpr int unknown = 1 << 29;
    static constexpr char16_t limit = 0x2C00; // stands for all from here on

    int learnt(const QString& text, int enough)
    {
        int sum = slack;
        for (const QChar letter : text) {
            sum += advance(letter);
            if (sum > enough)
                break;
        }
        return sum;
    }

    int advance(QChar letter)
    {
        const char16_t code = letter.unicode();
        // Elsewhere letters stack, and are only known together.
        const bool isAlone
            = code < 0x900 || (code >= 0xE00 && code < 0xE80) || (code >= 0x1E00 && code < limit);
        if (isAlone) {
            int& known = advances_[code];
            if (known == unknown)
                known = inUnits(
                    code < 0x600 || code >= 0x900 ? metrics_.horizontalAdvance(letter) : widestForm(letter));
            return known;
        }
        const bool isKana = code >= 0x3000 && code < 0x3100;
        const bool isHan = code >= 0x4E00 && code < 0xA000;
        const bool isHangul = code >= 0xAC00 && code < 0xD7A4;
        return isKana || isHan || isHangul ? inUnits(ideograph()) : unknown;
    }

    /// Of a letter that joins others: alone, at a beginning, within, and at an end.
    double widestForm(QChar letter)
    {
        const QString joiner(QChar(0x200D));
        double widest = 0;
        for (const QString& form :
            {QString(letter), letter + joiner, joiner + letter + joiner, joiner + letter})
            widest = std::max(widest, metrics_.horizontalAdvance(form));
        return widest;
    }

    /// They are all of one width, but those of several fonts may meet.
    double ideograph()
    {
        if (ideograph_ == 0)
            for (const char16_t sample : {u'\u3042', u'\u4E00', u'\uAC00', u'M'})
                ideograph_ = std::max(ideograph_, metrics_.horizontalAdvance(QChar(sample)));
        return ideograph_;
    }

    static int inUnits(double width)
    {
        constexpr double kerning = 1.05;
        return int(std::ceil(kerning * width * unit));
    }

    QFontMetricsF metrics_;
    double ideograph_ = 0; // not measured yet
    std::array<int, limit + 1> advances_{};
};

MenuCellMetrics::MenuCellMetrics()
    : font_(menuFont())
    , titleFont_(smallMenuFont())
    , height_(int(std::ceil(QFontMetricsF(font_).height())))
{
}

MenuCellMetrics::Parts MenuCellMetrics::parts(const MenuEntry::Entry& entry, qreal devicePixelRatio) const
{
    Parts parts;
    if (entry.iconName)
        parts.icon = MenuIcons::icon(*entry.iconName, height_, devicePixelRatio);
    parts.label
        = entry.isTitle ? MenuLine(entry.label, titleFont_, titleAlpha) : MenuLine(entry.label, font_);
    if (!entry.hotkey.isEmpty())
        parts.hotKey = MenuLine(entry.hotkey, font_);
    return parts;
}

int MenuCellMetrics::iconRoom(const QSizeF& icon) const
{
    return std::max(height_, int(std::ceil(icon.width())));
}

MenuCellMetrics::Frames MenuCellMetrics::frames(const Parts& parts, const QSizeF& size) const
{
    Frames frames;
    double left = 0;
    double right = size.width();
    if (const QSizeF icon = parts.icon.size(); !icon.isEmpty()) {
        const double room = iconRoom(icon);
        frames.icon = QRectF(QPointF((room - icon.width()) / 2, (size.height() - icon.height()) / 2), icon);
        left = room + spacing;
    }
    if (!parts.hotKey.text().isEmpty()) {
        const double width = std::min<double>(parts.hotKey.width(), std::max(0.0, right - left));
        frames.hotKey = QRectF(right - width, 0, width, size.height());
        right -= width + 2 * spacing; // a free room stands between the two
    }
    frames.label = QRectF(left, 0, std::max(0.0, right - left), size.height());
    return frames;
}

QSize MenuCellMetrics::fittingSize(const Parts& parts) const
{
    int width = parts.label.width();
    if (const QSizeF icon = parts.icon.size(); !icon.isEmpty())
        width += iconRoom(icon) + spacing;
    if (!parts.hotKey.text().isEmpty())
        width += 2 * spacing + parts.hotKey.width();
    return {width, height_};
}

QSize MenuCellMetrics::fittingSize(const MenuEntry::Entry& entry) const
{
    return fittingSize(parts(entry, qGuiApp->devicePixelRatio()));
}

bool MenuCellMetrics::mayBeWiderThan(const MenuEntry::Entry& entry, int width) const
{
    if (!advances_)
        advances_ = std::make_shared<Advances>(font_);
    constexpr int unit = Advances::unit;
    int room = width * unit;
    if (!entry.hotkey.isEmpty())
        room -= 2 * spacing * unit + advances_->bound(entry.hotkey, room);
    const int label = advances_->bound(entry.label, room);
    if (label > room || !entry.iconName)
        return label > room;
    if (label + int((spacing + widestIcon * height_) * unit) <= room)
        return false;
    const QSizeF icon = MenuIcons::icon(*entry.iconName, height_, qGuiApp->devicePixelRatio()).size();
    return label + (icon.isEmpty() ? 0 : int(std::ceil((spacing + iconRoom(icon)) * unit))) > room;
}

} // namespace quor::helper
