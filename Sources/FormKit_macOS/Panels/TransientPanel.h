// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Panels/PanelPlacement.h"
#include "Platform/Views/Popover/PopoverAnchor.h"

#include <QFrame>
#include <QPointer>

namespace quor::formkit {

/// A panel that opens from a control, as long as its anchor can be seen. It closes on a press elsewhere and
/// on Escape, and gives the keyboard back; it closes later when the anchor is hidden, ends, or goes to
/// another window. Deletes itself when it has closed.
///
/// A derived class fills it, and tells its size. It stands below the anchor, or above it where there is no
/// room, unless the class places it elsewhere. Main thread only.
class TransientPanel : public QFrame {
    Q_OBJECT

public:
    /// Shows the panel, with the keyboard.
    void open();

Q_SIGNALS:
    /// The panel has been hidden.
    void closed();

protected:
    /// A child of the window that `anchor` is in. A press on `opener` closes the panel, and does nothing
    /// else; any other press also has its usual effect.
    TransientPanel(QWidget& anchor, QWidget& opener);

    /// The size that the panel wants on this screen.
    [[nodiscard]] virtual QSize wantedSize(const QRect& screen) const = 0;
    /// Where the panel stands. `anchor` is what can be seen of it; all are in screen coordinates.
    [[nodiscard]] virtual QRect placeAt(const QRect& anchor, QSize size, const QRect& screen) const;
    /// The widget in the panel that gets the keyboard.
    [[nodiscard]] virtual QWidget& keyboardReceiver() const = 0;

    /// Places the panel again, after its size has changed.
    void place();
    [[nodiscard]] QRect anchorOnScreen() const { return watched_.onScreen(); }

    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] QRect screenArea() const;

    platform::PopoverAnchor watched_;
    QPointer<QWidget> opener_;
    PanelSide side_ = PanelSide::below;
};

} // namespace quor::formkit
