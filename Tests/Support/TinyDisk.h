// SPDX-License-Identifier: MIT
#pragma once

#include "Support/Files.h"

#include <QString>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace quor::test {

/// Mounts a small file system on a folder, in namespaces of this process. The process must have a single
/// thread, for instance after a fork. Returns false if the system does not allow users such namespaces.
inline bool mountTinyDisk(const QString& folder, const char* options = "size=64k")
{
    const auto say = [](const QString& name, const QByteArray& text) {
        return writeFile(QStringLiteral("/proc/self/") + name, text);
    };
    const auto asRoot = [](auto id) { return "0 " + QByteArray::number(id) + " 1"; };
    const QByteArray user = asRoot(geteuid()), group = asRoot(getegid());
    return unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && say(QStringLiteral("setgroups"), "deny")
        && say(QStringLiteral("uid_map"), user) && say(QStringLiteral("gid_map"), group)
        && mount("none", qPrintable(folder), "tmpfs", 0, options) == 0;
}

} // namespace quor::test
