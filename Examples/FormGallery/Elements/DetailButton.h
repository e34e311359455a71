// SPDX-License-Identifier: MIT
#pragma once

#include <FormKit/FormDetailElement.h>
#include <Platform/Lifetime/Trackable.h>
#include <Platform/Views/WidgetHandle.h>

#include <QToolButton>

#include <memory>
#include <utility>

namespace quor::gallery {

/// A small button at the end of a row: a detail element that an application has written for itself. A click
/// calls `valueChanged`.
class DetailButton final : public formkit::FormDetailElement, public platform::Trackable {
public:
    enum class Kind { push, toggle };

    /// `symbol` is one character. The tool tip is also the name that assistive technology reads.
    DetailButton(Kind kind, const QString& symbol, const QString& toolTip);

    /// Whether a button of the kind `toggle` is down.
    [[nodiscard]] bool isOn() const { return button_ && button_->isChecked(); }

    [[nodiscard]] QWidget* view() const override { return button_.get(); }
    [[nodiscard]] bool enabled() const override { return enabled_; }
    void setEnabled(bool enabled) override;
    [[nodiscard]] QString toolTip() const override { return toolTip_; }
    void setToolTip(const QString& toolTip) override;
    [[nodiscard]] bool hasChanges() const override { return hasChanges_; }
    void setHasChanges(bool hasChanges) override { hasChanges_ = hasChanges; }
    [[nodiscard]] ValueChanged valueChanged() const override { return valueChanged_; }
    void setValueChanged(ValueChanged valueChanged) override { valueChanged_ = std::move(valueChanged); }

private:
    platform::WidgetHandle<QToolButton> button_ = platform::makeWidget<QToolButton>();
    bool enabled_ = true;
    QString toolTip_;
    bool hasChanges_ = false;
    ValueChanged valueChanged_;
};

} // namespace quor::gallery
