// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <array>
#include <cstdint>
#include <optional>

namespace quor::toolkit {

using HardwareAddress = std::array<std::uint8_t, 6>;

/// The address of the interface that the default route goes through, IPv4 before IPv6, the least metric
/// first. Interfaces without an address of their own, such as tunnels, are passed over. With no default
/// route at all, as offline, that of the first interface by name that is a real device.
[[nodiscard]] std::optional<HardwareAddress> primaryHardwareAddress(
    const QString& routes, const QString& ipv6Routes, const QString& interfaces);

} // namespace quor::toolkit
