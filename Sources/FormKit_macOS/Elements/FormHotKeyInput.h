// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Controls/HotkeyField.h"
#include "FormKit_macOS/Elements/FormBase.h"

namespace quor::formkit {

/// An input of a hot key. The application registers what the user has captured, by a `GlobalHotKeyManager`.
///
///     const auto input = makeElement<FormHotKeyInput>(services.eventMonitors, layout);
class FormHotKeyInput final : public FormBase {
public:
    /// Borrows the monitors and the layout, which must outlive it.
    FormHotKeyInput(
        Construction construction, platform::EventMonitors& monitors, const platform::KeyboardLayout& layout);

    /// The field, owned by this element; null after its parent has deleted it. Change its hot key by
    /// `setHotkey`; `hotkeyChangeHandler` is this element's own.
    [[nodiscard]] HotkeyField* textInput() const { return textInput_.get(); }

    /// Shown while there is no hot key.
    [[nodiscard]] QString placeholderString() const { return placeholderString_; }
    void setPlaceholderString(const QString& placeholderString);

    void setEnabled(bool enabled) override;
    [[nodiscard]] QWidget* view() const override { return textInput_.get(); }
    void setup() override;

private:
    platform::WidgetHandle<HotkeyField> textInput_;
    QString placeholderString_;
};

} // namespace quor::formkit
