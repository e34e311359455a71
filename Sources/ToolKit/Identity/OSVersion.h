// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// The version of the operating system. Stateless; any thread.
namespace quor::toolkit::OSVersion {

/// `VERSION_ID` of the first of these files that can be read, "12" on Debian 12. "None" where it has none,
/// as on systems without releases. Reads the file each time.
[[nodiscard]] QString productVersion(
    const QStringList& files = {QStringLiteral("/etc/os-release"), QStringLiteral("/usr/lib/os-release")});

} // namespace quor::toolkit::OSVersion
