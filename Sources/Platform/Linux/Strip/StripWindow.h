// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Linux/Strip/StripGeometry.h"

#include <QColor>
#include <QWidget>

namespace quor::platform {

/// The window of the strip: a dock in the eyes of the window manager, on every desktop, above others,
/// without frame or focus, opaque (without a compositor anything else shows black). Whoever owns it
/// places it and puts widgets into it.
class StripWindow final : public QWidget {
    Q_OBJECT

public:
    StripWindow();

    void setBackground(const QColor& color);

    /// Moves and resizes in one step. `frame` is in device-independent pixels.
    void place(QScreen& screen, const QRect& frame);

    /// Shows it, if it is not shown. It must have been placed.
    void appear();

    /// Asks the window manager to keep this room free while the window is shown. It must have been placed.
    void reserve(const TopStrut& strut);

Q_SIGNALS:
    void layoutRequested(); ///< A widget in the window wants another size.
    void pressedBesideWidgets(); ///< A left or right press that met no widget.

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void createNativeWindow(const QRect& frame);

    QColor background_;
    TopStrut strut_;
};

} // namespace quor::platform
