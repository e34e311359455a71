// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>

namespace quor::helper {

/// The window of a menu: without frame, above others, with an alpha channel, as large as its content, and
/// always where `placement` wants it. Size and place change in one step, and before it is shown.
///
/// It can be closed once, by whatever means; then it is of no further use. Main thread only.
class MenuWindow final : public QWidget {
    Q_OBJECT

public:
    MenuWindow();

    /// The top left corner for a window of that size, in the coordinates of `QScreen`; empty leaves the
    /// window where it is.
    std::function<QPoint(const QSize& size)> placement;

    /// The view fills the window, which owns it.
    void setContentView(QWidget* view);

    void setContentSize(const QSize& size);

    /// Asks `placement` anew.
    void place();

Q_SIGNALS:
    void didBecomeKey(); ///< It has the keyboard.
    void didResignKey();
    void cancelled(); ///< Escape was pressed, and nothing in the window wanted it.
    void willClose(); ///< Told once.
    void willDisappear(); ///< It was shown, and is not from now on.

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void matchSizeSteps(const QSize& size);

    QWidget* contentView_ = nullptr;
    QSize contentSize_;
    bool closed_ = false;
};

} // namespace quor::helper
