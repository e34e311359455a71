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
/// The owner is any object that a `WeakReference` can hold. The closure is not told when the owner ends
/// during the call. Call it on the thread on which the owner ends; only an owner in a `std::shared_ptr`
/// may be called from any thread, as it is kept alive for the duration of the call.
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
