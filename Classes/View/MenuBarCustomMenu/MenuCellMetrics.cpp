// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/MenuCellMetrics.h"

#include "View/MenuBarCustomMenu/MenuFont.h"

#include <QFontMetricsF>
#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace quor::helper {

namespace {

constexpr int spacing = 6;
constexpr double titleAlpha = 0.5;
constexpr double widestIcon = 3; // times the height

} // namespace

class MenuCellMetrics::Advances {
public:
    explicit Advances(const QFont& font)
        : metrics_(font)
        , widest_(1.25 * metrics_.height())
    {
        advances_.fill(unknown);
    }

    /// No less than the text is wide, as far as that can be told; no further than beyond `enough`.
    [[nodiscard]] double bound(const QString& text, double enough)
    {
        constexpr double kerning = 1.05;
        double sum = 2;
        for (const QChar unit : text) {
            sum += kerning * advance(unit);
            if (sum > enough)
                break;
        }
        return sum;
    }

private:
    static constexpr float unknown = -1;
    static constexpr char16_t shapedAlone = 0x530; // from here on letters join, or lie right to left

    double advance(QChar unit)
    {
        const char16_t code = unit.unicode();
        if (code < shapedAlone) {
            float& known = advances_[code];
            if (known == unknown)
                known = float(metrics_.horizontalAdvance(unit));
            return known;
        }
        const bool isKana = code >= 0x3000 && code < 0x3100;
        const bool isHan = code >= 0x4E00 && code < 0xA000;
        const bool isHangul = code >= 0xAC00 && code < 0xD7A4;
        return isKana || isHan || isHangul ? widest_ : std::numeric_limits<double>::infinity();
    }

    QFontMetricsF metrics_;
    double widest_;
    std::array<float, shapedAlone> advances_{};
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
    double room = width;
    if (!entry.hotkey.isEmpty())
        room -= 2 * spacing + advances_->bound(entry.hotkey, room);
    const double label = advances_->bound(entry.label, room);
    if (!entry.iconName)
        return label > room;
    if (label + spacing + widestIcon * height_ <= room)
        return false;
    const QSizeF icon = MenuIcons::icon(*entry.iconName, height_, qGuiApp->devicePixelRatio()).size();
    return label + (icon.isEmpty() ? 0 : spacing + iconRoom(icon)) > room;
}

} // namespace quor::helper
