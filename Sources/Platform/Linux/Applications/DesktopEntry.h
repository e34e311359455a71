// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>
#include <QString>

#include <optional>
#include <vector>

/// Desktop entry files, as freedesktop.org defines them. Not installed. Any thread.
namespace quor::platform {

/// The program of a desktop entry.
struct DesktopEntry {
    QString name;
    QString comment;
    std::vector<QByteArray> arguments; ///< the first is the program, a name or an absolute path
    QByteArray folder; ///< in which it runs; empty for any

    /// Reads the content of the file `path`. `locales` are the names in the brackets of localised keys, the
    /// preferred one first. Returns `nullopt` if the content is invalid, or if the entry is hidden, needs a
    /// terminal, or names a program that is not installed.
    [[nodiscard]] static std::optional<DesktopEntry> read(
        const QByteArray& content, const QByteArray& path, const QByteArrayList& locales);
};

/// The locales of the user's messages, from the environment, as `DesktopEntry::read` takes them.
[[nodiscard]] QByteArrayList messageLocales();

} // namespace quor::platform
