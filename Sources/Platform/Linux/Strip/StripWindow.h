// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Linux/Strip/StripGeometry.h"

#include <QColor>
#include <QWidget>

namespace quor::platform {

/// The window of the strip: a dock window, on every desktop, above other windows, without a frame, and
/// never focused. It is opaque, since without a compositor a translucent window shows black. The owner
/// places it and adds widgets to it. Main thread only.
class StripWindow final : public QWidget {
    Q_OBJECT

public:
    StripWindow();

    void setBackground(const QColor& color);

    /// Moves and resizes the window in one step, and creates it at the first call. `frame` is in Qt's
    /// screen coordinates.
    void place(QScreen& screen, const QRect& frame);

    /// Shows the window; has no effect while it is shown. Call `place` first.
    void appear();

    /// Asks the window manager to keep this room free while the window is shown. Call `place` first.
    void reserve(const TopStrut& strut);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void createNativeWindow(const QRect& frame);

    QColor background_;
    TopStrut strut_;
};

} // namespace quor::platform
