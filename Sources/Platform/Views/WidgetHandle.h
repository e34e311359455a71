// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>

#include <memory>
#include <utility>

namespace quor::platform {

/// Owns a widget that others may give a parent: the widget survives each change of its parent, and the handle
/// is null after a parent has deleted it.
///
/// The end of the handle hides the widget, takes it out of its parent and deletes it with `deleteLater`, so a
/// handle can end while its widget handles an event. Movable, not copyable. Main thread only.
template <class T>
class WidgetHandle final {
public:
    WidgetHandle() = default;
    explicit WidgetHandle(std::unique_ptr<T> widget)
        : widget_(widget.release())
    {
    }
    WidgetHandle(WidgetHandle&& other) noexcept
        : widget_(std::exchange(other.widget_, nullptr))
    {
    }
    WidgetHandle& operator=(WidgetHandle&& other) noexcept
    {
        std::swap(widget_, other.widget_);
        return *this;
    }
    WidgetHandle(const WidgetHandle&) = delete;
    WidgetHandle& operator=(const WidgetHandle&) = delete;
    ~WidgetHandle()
    {
        if (!widget_)
            return;
        widget_->hide();
        widget_->setParent(nullptr);
        widget_->deleteLater();
    }

    [[nodiscard]] T* get() const { return widget_.data(); }
    [[nodiscard]] T* operator->() const { return widget_.data(); }
    [[nodiscard]] T& operator*() const { return *widget_; }
    [[nodiscard]] explicit operator bool() const { return !widget_.isNull(); }

private:
    QPointer<T> widget_;
};

/// Makes a widget without a parent, owned by the returned handle.
template <class T, class... Arguments>
[[nodiscard]] WidgetHandle<T> makeWidget(Arguments&&... arguments)
{
    return WidgetHandle<T>(std::make_unique<T>(std::forward<Arguments>(arguments)...));
}

} // namespace quor::platform
