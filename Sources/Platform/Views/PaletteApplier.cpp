// SPDX-License-Identifier: MIT
#include "Platform/Views/PaletteApplier.h"

#include "Platform/Resources/Tinting.h"

#include <QApplication>
#include <QEvent>
#include <QPalette>

namespace quor::platform {

namespace {

QPalette plainPalette(ColorScheme scheme, const QPalette& desktop)
{
    const bool dark = scheme == ColorScheme::dark;
    const QColor text = dark ? QColor(0xF2, 0xF2, 0xF2) : QColor(0x1C, 0x1C, 0x1E);
    const QColor button = dark ? QColor(0x4A, 0x4A, 0x50) : QColor(0xF0, 0xF0, 0xF2);
    const QColor window = dark ? QColor(0x24, 0x24, 0x27) : QColor(0xF0, 0xF0, 0xF2);
    const QColor faint = withAlpha(text, 0.45);

    QPalette palette(button, window);
    for (const auto role :
        {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, faint);
    }
    palette.setColor(QPalette::PlaceholderText, withAlpha(text, 0.6));
    palette.setColor(
        QPalette::Disabled, QPalette::PlaceholderText, withAlpha(text, 0.3)); // else the brightest
    // Styles outline fields and boxes in a shade darker than the window. A field that is dark, too, would
    // disappear.
    const QColor base = dark ? QColor(0x40, 0x40, 0x46) : QColor(Qt::white);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Disabled, QPalette::Base, dark ? QColor(0x32, 0x32, 0x36) : window);
    palette.setColor(QPalette::AlternateBase, dark ? QColor(0x46, 0x46, 0x4C) : QColor(0xF7, 0xF7, 0xF9));
    palette.setColor(QPalette::ToolTipBase, button);
    palette.setColor(QPalette::Link, dark ? QColor(0x6C, 0xB0, 0xFF) : QColor(0x0A, 0x5F, 0xD6));
    palette.setColor(QPalette::LinkVisited, dark ? QColor(0xC0, 0x9A, 0xFF) : QColor(0x7A, 0x3F, 0xC8));
    for (const auto role : {QPalette::Highlight, QPalette::HighlightedText})
        palette.setColor(role, desktop.color(QPalette::Active, role));
    palette.setColor(
        QPalette::Disabled, QPalette::Highlight, dark ? QColor(0x5A, 0x5A, 0x60) : QColor(0xC8, 0xC8, 0xCC));
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, faint);
    return palette;
}

} // namespace

ColorScheme colorSchemeOf(const QPalette& palette)
{
    return palette.color(QPalette::WindowText).lightness() > palette.color(QPalette::Window).lightness()
        ? ColorScheme::dark
        : ColorScheme::light;
}

PaletteApplier::PaletteApplier(Appearance& appearance)
    : appearance_(appearance)
    , changes_(appearance.observe([this] { apply(); }))
{
    apply();
    QCoreApplication::instance()->installEventFilter(this);
}

bool PaletteApplier::eventFilter(QObject* watched, QEvent* event)
{
    // The desktop's palette may have changed. The check waits until the other listeners to the desktop,
    // which set the effective appearance, have seen the change.
    if (event->type() == QEvent::ApplicationPaletteChange && watched == QCoreApplication::instance())
        QMetaObject::invokeMethod(this, &PaletteApplier::apply, Qt::QueuedConnection);
    return QObject::eventFilter(watched, event);
}

void PaletteApplier::apply()
{
    const auto wanted = appearance_.effectiveAppearance();
    if (colorSchemeOf(QApplication::palette()) == wanted)
        return;
    if (QCoreApplication::testAttribute(Qt::AA_SetPalette))
        QApplication::setPalette({}); // back to the desktop's
    if (colorSchemeOf(QApplication::palette()) != wanted)
        QApplication::setPalette(plainPalette(wanted, QApplication::palette()));
}

} // namespace quor::platform
