// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Callback.h"

#include <QWidget>

namespace quor::helper {

/// The window of a menu: frameless, above other windows, with an alpha channel, as large as its content, and
/// at the position that `placement` returns. Size and position change in one step, also before it is shown.
///
/// Once closed it must not be shown again. Main thread only.
class MenuWindow final : public QWidget {
    Q_OBJECT

public:
    MenuWindow();

    /// Returns the top left corner for a window of this size, in the coordinates of `QScreen`. While it is
    /// empty, the window stays where it is.
    platform::Callback<QPoint(const QSize& size)> placement;

    /// Takes ownership of the view, which fills the window from now on.
    void setContentView(QWidget* view);

    /// Resizes and places the window.
    void setContentSize(const QSize& size);

    /// Moves the window to where `placement` now puts it.
    void place();

Q_SIGNALS:
    void didBecomeKey(); ///< The window has got the keyboard.
    void didResignKey(); ///< The window has lost the keyboard.
    void cancelled(); ///< Escape was pressed, and no widget of the window has handled it.
    void willClose(); ///< The user or the program closes the window, which is still visible. Emitted once.
    void willDisappear(); ///< The window was hidden, but not by the window manager.

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void adjustBaseSize(const QSize& size);

    QWidget* contentView_ = nullptr;
    QSize contentSize_;
    bool closed_ = false;
};

} // namespace quor::helper
