// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/WeakReference.h"

#include <type_traits>
#include <utility>

namespace quor::platform {

/// Wraps a closure that refers to `owner`, so that calling it after the owner has ended has no effect and
/// returns a default-constructed result:
///
///     button.clicked = whileAlive(*this, [this] { close(); });
///
/// The owner is any object that a `WeakReference` can hold. An owner in a `std::shared_ptr` is kept alive
/// during the call, so the result can be called on any thread. For any other owner, call it on the thread on
/// which the owner ends. Such an owner can end during the call; the closure then must not use it any more.
template <class Owner, class Closure>
[[nodiscard]] auto whileAlive(Owner& owner, Closure closure)
{
    return [owner = WeakReference<Owner>(owner), closure = std::move(closure)](
               auto&&... arguments) mutable -> std::invoke_result_t<Closure&, decltype(arguments)...> {
        if (const auto alive = owner.lock())
            return closure(std::forward<decltype(arguments)>(arguments)...);
        return std::invoke_result_t<Closure&, decltype(arguments)...>();
    };
}

} // namespace quor::platform
