// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/SearchField.h"

#include "Platform/Resources/Tinting.h"
#include "ToolKit_macOS/SearchGlass.h"

#include <QEvent>
#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

namespace quor::formkit {

namespace {

constexpr int glassMargin = 7;
constexpr int glassTextSpacing = 2;
constexpr double glassOpacity = 0.6;

} // namespace

SearchField::SearchField(QWidget* parent)
    : InputField(parent)
{
    setClearButtonEnabled(true);
    makeRoomForGlass();
}

int SearchField::glassSide() const
{
    return fontMetrics().ascent() * 3 / 4;
}

void SearchField::makeRoomForGlass()
{
    const int room = glassMargin + glassSide() + glassTextSpacing;
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    setTextMargins(isMirrored ? 0 : room, 0, isMirrored ? room : 0, 0);
}

void SearchField::changeEvent(QEvent* event)
{
    InputField::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange || event->type() == QEvent::FontChange)
        makeRoomForGlass();
}

void SearchField::paintEvent(QPaintEvent* event)
{
    InputField::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int side = glassSide();
    const QRect place(glassMargin, (height() - side) / 2, side, side);
    toolkit::drawSearchGlass(painter, QStyle::visualRect(layoutDirection(), rect(), place),
        platform::withAlpha(palette().color(QPalette::Text), glassOpacity));
}

} // namespace quor::formkit
