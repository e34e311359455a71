// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Callback.h"
#include "Platform/Services/EventMonitors.h"
#include "ToolKit_macOS/EventMonitor.h"
#include "ToolKit_macOS/HotkeyFormatter.h"

#include <QLineEdit>

#include <memory>

class QAbstractButton;

namespace quor::formkit {

/// A field that captures a hot key. While an empty field has the focus, the next combination of keys becomes
/// its hot key; then it gives the focus away. Escape gives the focus away without one. A button, and the
/// Backspace and Delete keys, empty the field.
///
/// Takes function keys alone, and every other key only with Control, Alt or Super: without them the key could
/// not be typed any more. Tab, with or without Shift, goes on to the next control. A combination that is
/// registered as a hot key already does not reach the field.
///
/// Borrows the monitors and the layout, which must outlive it. Main thread only.
class HotkeyField final : public QLineEdit {
    Q_OBJECT

public:
    HotkeyField(
        platform::EventMonitors& monitors, const platform::KeyboardLayout& layout, QWidget* parent = nullptr);
    ~HotkeyField() override;

    /// A virtual key code; -1 if there is none.
    [[nodiscard]] int keyCode() const { return keyCode_; }
    /// A sum of `HotKeyModifier`; -1 if there is none.
    [[nodiscard]] int modifier() const { return modifier_; }
    /// Shows a hot key; -1 and -1 for none. Ends a capture. Does not call `hotkeyChangeHandler`.
    void setHotkey(int keyCode, int modifier);

    /// Called after the user has captured or deleted a hot key. May delete the field.
    platform::Callback<void(HotkeyField&)> hotkeyChangeHandler;

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void startCapture();
    /// Returns the event for the window, or `nullopt` if the capture takes it.
    [[nodiscard]] std::optional<platform::InputEvent> capture(const platform::InputEvent& event);
    void deleteHotkey();
    void placeDeleteButton();

    toolkit::HotkeyFormatter formatter_;
    platform::EventMonitors& monitors_;
    QAbstractButton* deleteHotKeyButton_; ///< A child.
    std::unique_ptr<toolkit::EventMonitor> keyMonitor_; ///< Exists while keys are captured.
    int keyCode_ = -1;
    int modifier_ = -1;
};

} // namespace quor::formkit
