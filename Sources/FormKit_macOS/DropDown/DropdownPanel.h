// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/DropDown/DropdownView.h"
#include "FormKit_macOS/DropDown/PanelPlacement.h"
#include "Platform/Views/Popover/PopoverAnchor.h"

#include <QFrame>

namespace quor::formkit {

/// The panel that a `DropdownView` opens in: below its anchor, or above it where there is no room, as long as
/// the anchor can be seen and operated. It closes on a press elsewhere and on Escape, and gives the keyboard
/// back. Deletes itself when it has closed. Main thread only.
class DropdownPanel final : public QFrame {
    Q_OBJECT

public:
    /// A child of the window that `anchor` is in. A press on the anchor closes the panel, and does nothing
    /// else.
    DropdownPanel(const DropdownItems& items, std::optional<int> selectedIndex, QWidget& anchor);

    [[nodiscard]] DropdownView& dropdownView() const { return *view_; }

    /// Shows the panel, with the keyboard.
    void open();

Q_SIGNALS:
    /// The panel has been hidden.
    void closed();

protected:
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] QRect screen() const;
    [[nodiscard]] QSize panelSize() const;
    void place();

    platform::PopoverAnchor watched_;
    DropdownView* view_ = nullptr;
    PanelSide side_ = PanelSide::below;
};

} // namespace quor::formkit
