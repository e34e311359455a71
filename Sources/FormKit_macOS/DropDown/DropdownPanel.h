// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/DropDown/DropdownView.h"
#include "FormKit_macOS/Panels/TransientPanel.h"

namespace quor::formkit {

/// The panel that a `DropdownView` opens in. Main thread only.
class DropdownPanel final : public TransientPanel {
    Q_OBJECT

public:
    DropdownPanel(const DropdownItems& items, std::optional<int> selectedIndex, QWidget& anchor);

    [[nodiscard]] DropdownView& dropdownView() const { return *view_; }

protected:
    [[nodiscard]] QSize wantedSize(const QRect& screen) const override;
    [[nodiscard]] QWidget& keyboardReceiver() const override { return view_->keyboardReceiver(); }

private:
    DropdownView* view_;
};

} // namespace quor::formkit
