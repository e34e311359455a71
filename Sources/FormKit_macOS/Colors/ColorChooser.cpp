// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Colors/ColorChooser.h"

#include "FormKit_macOS/FormMacOSResource.h"

#include <QEvent>

using namespace Qt::StringLiterals;

namespace quor::formkit {

ColorChooser::ColorChooser(const QColor& color, QWidget& anchor)
    // Not of the anchor, which would be half destroyed when it deletes this dialog.
    : QColorDialog(anchor.window())
    , watched_(anchor, anchor.rect())
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(FormMacOSResource::localizedString(u"FormColorChooserTitle"_s));
    if (color.isValid())
        setCurrentColor(color);
    watched_.lost = [this] { close(); };
}

void ColorChooser::present()
{
    setModal(false);
    show();
    raise();
    activateWindow();
}

void ColorChooser::changeEvent(QEvent* event)
{
    QColorDialog::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        close(); // it is disabled together with the window
}

void ColorChooser::done(int result)
{
    const bool hadKeyboard = isActiveWindow();
    QColorDialog::done(result);
    // Some window managers would give the keyboard to the window below a popover.
    if (hadKeyboard && parentWidget()->isVisible())
        parentWidget()->activateWindow();
}

} // namespace quor::formkit
