// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/Rows/MenuCellMetrics.h"

#include "View/MenuBarCustomMenu/Drawing/MenuFont.h"

#include <QFontMetricsF>
#include <QGuiApplication>

#include <algorithm>
#include <cmath>

namespace quor::helper {

namespace {

constexpr int spacing = 6;
constexpr double titleAlpha = 0.5;

} // namespace

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
        right -= width + 2 * spacing; // on both sides of the free space in between
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

bool MenuCellMetrics::mayBeWiderThan(const MenuEntry::Entry& entry, int width) const
{
    if (!widthBound_)
        widthBound_ = std::make_shared<TextWidthBound>(font_);
    constexpr int unit = TextWidthBound::unitsPerPixel;
    int room = width * unit;
    if (!entry.hotkey.isEmpty())
        room -= 2 * spacing * unit + widthBound_->of(entry.hotkey, room);
    const int label = widthBound_->of(entry.label, room);
    if (label > room || !entry.iconName)
        return label > room;
    if (label + (spacing + MenuIcons::largestAspectRatio * height_) * unit <= room)
        return false; // without loading the icon
    const QSizeF icon = MenuIcons::icon(*entry.iconName, height_, qGuiApp->devicePixelRatio()).size();
    const int iconWidth = icon.isEmpty() ? 0 : (spacing + iconRoom(icon)) * unit;
    return label + iconWidth > room;
}

} // namespace quor::helper
