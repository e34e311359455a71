// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Trackable.h"

#include <QObject>
#include <QPointer>

#include <concepts>
#include <memory>

namespace quor::platform {

template <class T>
concept SharedFromThis = requires(T& object)
{
    {
        object.weak_from_this()
        } -> std::convertible_to<std::weak_ptr<T>>;
};

/// A weak reference to an object: a `QPointer` for a `QObject`, a `std::weak_ptr` for a class that derives
/// from `std::enable_shared_from_this`, else the token of a `Trackable`. `lock()` returns a pointer, null
/// after the object has ended. An object in a `std::shared_ptr` stays alive as long as the result.
template <class T>
class WeakReference final {
    static_assert(!std::same_as<T, T>,
        "the target must be a QObject, or derive from std::enable_shared_from_this or "
        "quor::platform::Trackable, so that references to it can expire");
};

template <std::derived_from<QObject> T>
class WeakReference<T> final {
public:
    explicit WeakReference(T& object)
        : object_(&object)
    {
    }
    [[nodiscard]] T* lock() const { return object_.data(); }

private:
    QPointer<T> object_;
};

template <class T>
requires(!std::derived_from<T, QObject> && SharedFromThis<T>) class WeakReference<T> final {
public:
    /// The object must already be in a `std::shared_ptr`, so its own constructor cannot use this.
    explicit WeakReference(T& object)
        : object_(object.weak_from_this())
    {
        Q_ASSERT_X(!object_.expired(), "WeakReference", "the object is in no std::shared_ptr yet");
    }
    [[nodiscard]] std::shared_ptr<T> lock() const { return object_.lock(); }

private:
    std::weak_ptr<T> object_;
};

template <class T>
requires(!std::derived_from<T,
             QObject> && !SharedFromThis<T> && std::derived_from<T, Trackable>) class WeakReference<T> final {
public:
    explicit WeakReference(T& object)
        : object_(&object)
    {
    }
    [[nodiscard]] T* lock() const { return object_.get(); }

private:
    TrackedPointer<T> object_;
};

} // namespace quor::platform
