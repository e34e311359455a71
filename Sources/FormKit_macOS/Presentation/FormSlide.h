// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QVariantAnimation>
#include <QWidget>

#include <chrono>
#include <functional>
#include <memory>

namespace quor::formkit {

/// Moves one view out of its parent sideways while a second one comes in beside it.
///
/// Both views are children of the same parent and as large as it. The view that leaves gets no presses from
/// the mouse meanwhile. Destroying the slide stops it without calling its completion. Main thread only.
class FormSlide final {
public:
    enum class Direction { toLeft, toRight };

    FormSlide();

    [[nodiscard]] bool isRunning() const { return bool(completed_); }

    /// Starts a slide; `finish` must have ended the one before. Calls `completed` once, at the end; before
    /// this returns if `duration` is zero. Either view may end meanwhile. `completed` may end this object.
    void start(QWidget& leaving, QWidget& arriving, Direction direction, std::chrono::milliseconds duration,
        std::function<void()> completed);
    /// Ends a running slide at once. Its completion may end this object.
    void finish();

private:
    void place(double progress);

    QPointer<QWidget> leaving_;
    QPointer<QWidget> arriving_;
    Direction direction_ = Direction::toLeft;
    std::function<void()> completed_; ///< set while the slide runs
    std::unique_ptr<QVariantAnimation> animation_;
};

} // namespace quor::formkit
