// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>

namespace quor::formkit {

/// Listens for the ways to go back that need no button on the screen: Alt+Left, a keyboard's back key, and
/// the back button of a mouse, in one view and all views in it. The view that they were
/// meant for does not get them. Main thread only.
class BackNavigation final : public QObject {
    Q_OBJECT

public:
    /// `goBack` may end this object.
    BackNavigation(QWidget& view, std::function<void()> goBack);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QWidget> view_;
    std::function<void()> goBack_;
};

} // namespace quor::formkit
