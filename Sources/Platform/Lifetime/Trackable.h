// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace quor::platform {

/// Base of a class whose objects can be referred to weakly without being a `QObject` or living in a
/// `std::shared_ptr`: others hold a token that expires with the object. The object must end on the thread
/// that uses the references, since nothing keeps it alive during a call.
class Trackable {
public:
    /// Expired as soon as this object has ended. Any thread, as long as the object lives.
    [[nodiscard]] std::weak_ptr<const void> life() const { return life_; }

    Trackable(const Trackable&) = delete;
    Trackable& operator=(const Trackable&) = delete;

protected:
    Trackable() = default;
    ~Trackable() = default;

private:
    std::shared_ptr<const void> life_ = std::make_shared<char>();
};

/// A weak reference to a `Trackable`; null after the object has ended, or if it was made from null.
template <class T>
class TrackedPointer final {
public:
    TrackedPointer() = default;
    explicit TrackedPointer(T* object)
        : life_(object ? object->life() : std::weak_ptr<const void>())
        , object_(object)
    {
    }
    [[nodiscard]] T* get() const { return life_.expired() ? nullptr : object_; }

private:
    std::weak_ptr<const void> life_;
    T* object_ = nullptr;
};

} // namespace quor::platform
