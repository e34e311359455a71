// SPDX-License-Identifier: MIT
#pragma once

namespace quor::helper {

/// Lets `std::visit` take one lambda for each alternative of a variant:
///
///     std::visit(Overloaded{[](const Start& start) { ... }, [](const Stop& stop) { ... }}, action);
template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

} // namespace quor::helper
