// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Views/Popover/PopoverAnchor.h"

#include <QColorDialog>

namespace quor::formkit {

/// The desktop's dialog for any colour, which the user can leave open beside the form. Closes when its anchor
/// is hidden, ends or goes to another window, or when the window is disabled. Deletes itself when it has
/// closed. Main thread only.
class ColorChooser final : public QColorDialog {
    Q_OBJECT

public:
    /// A child of the window that `anchor` is in. `color` is what the dialog begins with, and may be invalid.
    ColorChooser(const QColor& color, QWidget& anchor);

    /// Shows the dialog, above its window and with the keyboard.
    void present();

protected:
    void changeEvent(QEvent* event) override;
    void done(int result) override;

private:
    platform::PopoverAnchor watched_;
};

} // namespace quor::formkit
