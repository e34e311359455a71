// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace quor::platform {

/// Base of a class whose objects can be referred to weakly without being a `QObject` or living in a
/// `std::shared_ptr`: what others hold is a token that expires with the object.
/// Such an object must end on the thread that uses the references, since nothing keeps it alive
/// while it is called.
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

/// A weak reference to a `Trackable`; null once it has ended, and from the start if so given.
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
