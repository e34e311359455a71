// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormElementSeparator.h"
#include "FormKit_macOS/Elements/FormBase.h"

class QFrame;

namespace quor::formkit {

/// A line between rows, 15 pixels high with the space around it; without the line 5 pixels.
class FormSeparator final : public FormBase, public FormElementSeparator {
public:
    using FormBase::FormBase;

    [[nodiscard]] bool isTransparent() const override { return isTransparent_; }
    void setTransparent(bool isTransparent) override;
    [[nodiscard]] QWidget* view() const override { return container_.get(); }
    void setup() override;

private:
    platform::WidgetHandle<QWidget> container_ = platform::makeWidget<QWidget>();
    QFrame* line_ = nullptr; // child of `container_`
    bool isTransparent_ = false;
};

} // namespace quor::formkit
