// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Callback.h"

#include <QObject>
#include <QTimer>

class QWidget;

namespace quor::platform {

class PopoverAnchor;

/// Where the user turned to when leaving a popover.
enum class PopoverExit { anchorWindow, elsewhere };

/// Reports that the user turns away from a popover: by a press in another window of the application, or by
/// moving the keyboard to another window. Menus, dialogs and popovers that belong to the popover do not count
/// as other windows.
///
/// A press on the anchor's view is reported only after the click has been handled, since the click can close
/// the popover or open it elsewhere: the button that opened a popover closes it.
class PopoverDismissal final : public QObject {
    Q_OBJECT

public:
    /// Borrows the popover's window and its anchor, which must outlive this object.
    PopoverDismissal(const QWidget& window, const PopoverAnchor& anchor);

    /// For a press: called before the view under the pointer gets it.
    Callback<void(PopoverExit)> userTurnedAway;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool belongsToPopover(const QWidget& widget) const;
    void pressed(const QWidget& view, QPoint place);
    void released();
    void followKeyboard();

    const QWidget& window_;
    const PopoverAnchor& anchor_;
    QTimer pressOnAnchorLimit_; ///< Runs while the keyboard has left, possibly for a press on the anchor.
    bool hadKeyboard_ = false;
    bool isAnchorPressed_ = false;
};

} // namespace quor::platform
