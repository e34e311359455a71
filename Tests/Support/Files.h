// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace quor::test {

/// Puts `content` into the file at `path`, in folders made where missing. False if it could not.
inline bool writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly)
        && file.write(content) == content.size();
}

/// What the file at `path` holds, "none" if it cannot be read.
inline QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
}

} // namespace quor::test
