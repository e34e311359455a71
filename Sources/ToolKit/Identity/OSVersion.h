// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// The version of the operating system. Stateless. Any thread.
namespace quor::toolkit::OSVersion {

/// Returns `VERSION_ID` of the first of these files that can be read, as in "12" for Debian 12. Returns
/// "None" if that file has no such line (rolling distributions have none), or no file can be read. Reads the
/// file at each call.
[[nodiscard]] QString productVersion(
    const QStringList& files = {QStringLiteral("/etc/os-release"), QStringLiteral("/usr/lib/os-release")});

} // namespace quor::toolkit::OSVersion
