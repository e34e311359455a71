// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// A stable, anonymous identifier of this machine, and the name that it is shown by.
///
/// Both look at the system each time they are called, which takes some hundred microseconds: keep the result.
/// Neither fails. Stateless; any thread.
namespace quor::toolkit::DeviceIdentifier {

/// Where the system tells of itself.
struct Paths {
    QString routes = QStringLiteral("/proc/net/route");
    QString ipv6Routes = QStringLiteral("/proc/net/ipv6_route");
    QString interfaces = QStringLiteral("/sys/class/net");
    QString machineInfo = QStringLiteral("/etc/machine-info");
    QString hostName = QStringLiteral("/proc/sys/kernel/hostname");
};

/// 64 lower-case hexadecimal digits: the SHA-256 of the hardware address of the interface that the default
/// route goes through (`a4:83:e7:12:9f:01`), so it stays as long as that interface does, and the address
/// itself is not told. Offline it is the first network device; without one, the machine's name is taken, and
/// two such machines of one name have one identifier.
[[nodiscard]] QString identifier(const Paths& paths = {});

/// The machine's pretty name (`hostnamectl --pretty`), else its host name, else "Default Device Name".
[[nodiscard]] QString deviceName(const Paths& paths = {});

} // namespace quor::toolkit::DeviceIdentifier
