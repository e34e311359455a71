// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Presentation/ViewAppearance.h"

#include "Platform/Views/PaletteApplier.h"
#include "ToolKit/Colors/AppearanceMode.h"

#include <QApplication>
#include <QPalette>
#include <QWidget>

namespace quor::formkit {

void applyAppearance(QWidget& view, const toolkit::AppearanceMode& mode)
{
    if (view.testAttribute(Qt::WA_SetPalette))
        view.setPalette({});
    if (!mode.isDark() || platform::colorSchemeOf(view.palette()) == platform::ColorScheme::dark)
        return;
    QPalette palette = QApplication::palette();
    palette.setResolveMask(~QPalette::ResolveMask(0)); // else the window's colours win
    view.setPalette(palette);
}

} // namespace quor::formkit
