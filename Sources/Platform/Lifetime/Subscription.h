// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <utility>

namespace quor::platform {

/// A registration that lasts as long as this handle. Movable, not copyable; an empty handle has no effect.
class [[nodiscard]] Subscription final {
public:
    Subscription() = default;
    explicit Subscription(std::function<void()> end)
        : end_(std::move(end))
    {
    }
    Subscription(Subscription&& other) noexcept
        : end_(std::exchange(other.end_, nullptr))
    {
    }
    Subscription& operator=(Subscription&& other) noexcept
    {
        if (this != &other) {
            reset();
            end_ = std::exchange(other.end_, nullptr);
        }
        return *this;
    }
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    ~Subscription() { reset(); }

    /// Ends the registration now. Further calls have no effect.
    void reset()
    {
        if (const auto end = std::exchange(end_, nullptr))
            end();
    }

private:
    std::function<void()> end_;
};

} // namespace quor::platform
