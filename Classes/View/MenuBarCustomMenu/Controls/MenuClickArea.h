// SPDX-License-Identifier: MIT
#pragma once

#include "View/MenuBarCustomMenu/Controls/MenuButton.h"

namespace quor::helper {

/// An invisible button that makes all that lies below it one target for clicks. It never takes the
/// keyboard focus. Main thread only.
class MenuClickArea final : public MenuButton {
    Q_OBJECT

public:
    explicit MenuClickArea(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override; ///< Paints nothing.
};

} // namespace quor::helper
