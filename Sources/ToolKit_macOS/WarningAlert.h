// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/Bundle.h"
#include "ToolKit_macOS/Alert.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <optional>
#include <vector>

namespace quor::toolkit {

/// What an alert shows, and how. Texts are shown without markup.
struct AlertContent {
    QString message = {};
    /// An image in `images`, else in the desktop's icon theme. A warning sign if neither has it.
    QString iconName = {};
    QString informativeText = {};
    QString buttonTitle = {}; ///< of the first button, which has the tag 0
    std::optional<QString> cancelTitle = {}; ///< of a button with the tag `Alert::cancelTag`
    std::vector<QString> otherTitles = {}; ///< of buttons with the tags 1, 2 and so on
    /// `actions[i]` is called when the button of `otherTitles[i]` is chosen, in addition to the handler, if
    /// `targets[i]` still lives. Buttons without a target or without an action only end the alert.
    std::vector<QPointer<QObject>> targets = {};
    std::vector<std::function<void()>> actions = {};
    QWidget* accessoryView = nullptr; ///< owned by the caller, see `Alert::setAccessoryView`
    /// True: `show` runs an event loop of its own until a button is chosen. False: the alert is a sheet on
    /// `window`, which it blocks; without a window it blocks all windows of the application.
    bool modal = false;
    /// Null for the active window, else the window with the focus, else the first visible one.
    QWidget* window = nullptr;
    std::optional<platform::Bundle> images = {};
};

/// An object that shows an alert and reports how it ended, 0.3 seconds after a button was chosen: then the
/// alert is off the screen for sure.
///
/// The alert ends with this object, and with the window that it is a sheet on. The handler is destroyed
/// then without being called, so it may own what has to live as long as the alert. Main thread only.
class WarningAlert : public QObject {
    Q_OBJECT

public:
    /// Gets the tag of the chosen button, and whether it was the first button.
    using Handler = platform::Callback<void(bool isFirst, int tag)>;

    explicit WarningAlert(QObject* parent = nullptr);
    ~WarningAlert() override;

    /// Shows an alert. One that is still on the screen is hidden, and its handler not called.
    void show(const AlertContent& content, Handler handler);

    /// Hides the alert, and does not call the handler. Has no effect after a button was chosen.
    void close();

    /// The alert on the screen, or one whose button was chosen less than 0.3 seconds ago; otherwise null.
    [[nodiscard]] Alert* alert() const { return alert_; }

    /// The handler of the present alert. Destroyed after its call.
    Handler completeHandler;

private:
    void fill(const AlertContent& content);
    void finish(int tag);
    [[nodiscard]] Handler forget();

    QPointer<Alert> alert_; // a child of its window, which may delete it
    bool isEnding_ = false; // a button was chosen
};

} // namespace quor::toolkit
