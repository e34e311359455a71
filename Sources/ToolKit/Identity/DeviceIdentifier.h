// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// A stable, anonymous identifier of this machine, and its name for users.
///
/// Both functions read files of the system at each call, which takes some hundred microseconds, so keep the
/// result. They never fail. Stateless. Any thread.
namespace quor::toolkit::DeviceIdentifier {

/// The files and folders that are read. Permanent hardware addresses come from the kernel, by the names of
/// the interfaces.
struct Paths {
    QString routes = QStringLiteral("/proc/net/route");
    QString ipv6Routes = QStringLiteral("/proc/net/ipv6_route");
    QString interfaces = QStringLiteral("/sys/class/net");
    QString machineInfo = QStringLiteral("/etc/machine-info");
    QString hostName = QStringLiteral("/proc/sys/kernel/hostname");
};

/// Returns 64 lower-case hexadecimal digits: the SHA-256 of the hardware address of the interface that the
/// default route uses, as text (`a4:83:e7:12:9f:01`). The identifier changes only with that interface, and
/// does not reveal the address. A random address that the interface uses instead of its own, as for privacy
/// in Wi-Fi networks, does not change it; only for an interface without a permanent address, such as a
/// bridge, the address in use counts. If there is no default route, the first network device is used, and
/// without one the name of the machine: then two machines with the same name have the same identifier.
[[nodiscard]] QString identifier(const Paths& paths = {});

/// Returns the machine's pretty name (`hostnamectl --pretty`), else its host name, else "Default Device
/// Name".
[[nodiscard]] QString deviceName(const Paths& paths = {});

} // namespace quor::toolkit::DeviceIdentifier
