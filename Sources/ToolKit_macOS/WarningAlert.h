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

/// What an alert shows, and how.
struct AlertContent {
    QString message;
    /// An image of `images`, or of the desktop's icon theme; without one a warning sign is shown.
    QString iconName;
    QString informativeText;
    QString buttonTitle; ///< of the first button, which has the tag 0
    std::optional<QString> cancelTitle; ///< of a button with the tag 9999
    std::vector<QString> otherTitles; ///< of buttons with the tags 1, 2 and so on
    /// What the other buttons do besides ending the alert, in their order, each as long as its target
    /// lives; only where both are given.
    std::vector<QPointer<QObject>> targets;
    std::vector<std::function<void()>> actions;
    QWidget* accessoryView = nullptr; ///< stays the caller's, see `Alert::setAccessoryView`
    /// Blocks in an event loop of its own until a button is chosen. Else the alert is a sheet on
    /// `window`, or by itself over the whole application where there is no window at all.
    bool modal = false;
    /// Null for the active window, else the one that the focus is in, else the first to be seen.
    QWidget* window = nullptr;
    std::optional<platform::Bundle> images;
};

/// Shows an alert and tells how it ended, 0.3 seconds later, when it is surely off the screen.
///
/// The alert goes with this object, and with the window that it is a sheet on, untold: let
/// `completeHandler` hold what nobody else does. Main thread only.
class WarningAlert : public QObject {
    Q_OBJECT

public:
    /// Whether it was the first button, and the tag of the button.
    using Handler = std::function<void(bool first, int tag)>;

    explicit WarningAlert(QObject* parent = nullptr);
    ~WarningAlert() override;

    /// Shows an alert, in place of one that is still on the screen; that one's handler never runs.
    void show(const AlertContent& content, Handler handler);

    /// Takes the alert off the screen; the handler does not run for this. Does nothing once a
    /// button was chosen.
    void close();

    /// The alert that is on the screen or ending; else null.
    [[nodiscard]] Alert* alert() const { return alert_; }

    /// Runs once; what it holds is let go afterwards.
    Handler completeHandler;

private:
    void fill(const AlertContent& content);
    void finish(int tag);
    [[nodiscard]] Handler forget();

    QPointer<Alert> alert_; // a child of its window, which may take it along
    bool ending_ = false; // a button was chosen
};

} // namespace quor::toolkit
