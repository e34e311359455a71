// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/Bundle.h"
#include "ToolKit_macOS/Alert.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <optional>
#include <vector>

namespace quor::platform {
class WindowServer;
}

namespace quor::toolkit {

/// What an alert shows, and how. Texts are shown without markup.
struct AlertContent {
    QString message = {};
    /// The name of the icon. It is looked up in `images`, then in the application's own bundle, then in the
    /// desktop's icon theme. If none has it, the alert shows a warning sign.
    QString iconName = {};
    QString informativeText = {};
    QString buttonTitle = {}; ///< of the first button, which has the tag 0
    std::optional<QString> cancelTitle = {}; ///< of a button with the tag `Alert::cancelTag`
    std::vector<QString> otherTitles = {}; ///< of buttons with the tags 1, 2 and so on
    /// `actions[i]` is called at the click on the button of `otherTitles[i]`, if `targets[i]` still lives;
    /// the handler is called too, 0.3 seconds later. Buttons without a target or without an action only end
    /// the alert.
    std::vector<QPointer<QObject>> targets = {};
    std::vector<std::function<void()>> actions = {};
    QWidget* accessoryView = nullptr; ///< owned by the caller, see `Alert::setAccessoryView`
    /// True: `show` runs an event loop of its own until the alert ends. False: the alert is a sheet that
    /// blocks `window`; if there is no window at all, it blocks all windows of the application.
    bool modal = false;
    /// The window that the alert belongs to. If it is null, the alert takes the active window; if no window
    /// is active, the window with the focus; if there is none, the frontmost visible window.
    QWidget* window = nullptr;
    /// Searched for the icon first. Can be `nullopt`.
    std::optional<platform::Bundle> images = {};
    /// Reports which window is the frontmost one. Borrowed until the alert is shown. Without it, or if the
    /// window system does not report the order, the alert takes any visible window in place of the frontmost
    /// one.
    platform::WindowServer* windowServer = nullptr;
};

/// An object that shows an alert and reports which button the user chose. It calls the handler 0.3 seconds
/// after the choice, when the alert is off the screen for sure.
///
/// The alert ends with this object, and with the window that it belongs to. If no button was chosen before,
/// the handler is then destroyed without being called, so it may own what has to live as long as the alert.
/// After a choice the handler is always called, even if the window is deleted or another alert is shown
/// within the 0.3 seconds; only the destruction of this object prevents that. The handler may destroy this
/// object. Main thread only.
class WarningAlert : public QObject {
    Q_OBJECT

public:
    /// Receives the tag of the chosen button, and whether it was the first button.
    using Handler = platform::Callback<void(bool isFirst, int tag)>;

    explicit WarningAlert(QObject* parent = nullptr);
    ~WarningAlert() override;

    /// Shows an alert. If another alert of this object is still on the screen, hides it and does not call its
    /// handler. `handler` may be empty.
    void show(const AlertContent& content, Handler handler);

    /// Hides the alert, and destroys the handler without calling it. Has no effect after a button was chosen.
    void close();

    /// The alert that `show` has shown last. After a button was chosen, the hidden alert stays until the
    /// handler has returned; without a handler, until the next `show`. Null if there is no alert.
    [[nodiscard]] Alert* alert() const { return alert_; }

    /// The handler of `alert()`. Empty after its call.
    Handler completeHandler;

private:
    void fill(const AlertContent& content);
    void finish(int tag);
    [[nodiscard]] Handler forget();

    QPointer<Alert> alert_; // a child of its window, which may delete it
    bool isEnding_ = false; // a button was chosen
};

} // namespace quor::toolkit
