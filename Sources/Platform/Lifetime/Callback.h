// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

namespace quor::platform {

template <class Signature>
class Callback;

/// A closure that the owner of an object sets and the object calls, as in `button.clicked = ...`.
///
/// Calling an empty one has no effect and returns a default-constructed result. A call keeps the closure
/// alive until it returns, so the closure may replace or clear the callback, and may delete the object
/// that holds it. Copies share one closure. Not synchronized: set and call it on one thread.
template <class Result, class... Arguments>
class Callback<Result(Arguments...)> final {
public:
    using Function = std::function<Result(Arguments...)>;

    Callback() = default;
    Callback(std::nullptr_t) { }
    template <class Closure>
    requires(
        !std::is_same_v<std::remove_cvref_t<Closure>, Callback> && std::is_constructible_v<Function, Closure>)
        Callback(Closure&& closure) // NOLINT(bugprone-forwarding-reference-overload): constrained
    {
        if (Function function(std::forward<Closure>(closure)); function)
            function_ = std::make_shared<const Function>(std::move(function));
    }

    [[nodiscard]] explicit operator bool() const { return function_ != nullptr; }

    Result operator()(Arguments... arguments) const
    {
        if (const auto function = function_)
            return (*function)(std::forward<Arguments>(arguments)...);
        return Result();
    }

private:
    std::shared_ptr<const Function> function_;
};

} // namespace quor::platform
