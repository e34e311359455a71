// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <array>
#include <cstdint>
#include <optional>

namespace quor::toolkit {

using HardwareAddress = std::array<std::uint8_t, 6>;

/// Returns the hardware address of the interface that the default route uses: its permanent address, or the
/// address in use if it has no permanent one. Of several routes, IPv4 routes are preferred, and then the
/// route with the lowest metric. Interfaces without a hardware address, such as tunnels, are ignored. If
/// there is no default route, returns the address of the first interface by name that is a real device.
/// Returns `nullopt` if no interface has an address. The parameters are the paths that
/// `DeviceIdentifier::Paths` describes.
[[nodiscard]] std::optional<HardwareAddress> primaryHardwareAddress(
    const QString& routes, const QString& ipv6Routes, const QString& interfaces);

} // namespace quor::toolkit
