// SPDX-License-Identifier: MIT
// Paths that a plug-in may pass: none of them reads, creates or removes a file outside its folder.
#include "ToolKit/JavaScript/PluginFolder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using quor::toolkit::PluginFolder;
    static const QTemporaryDir top;
    static const QString secret = [] {
        QDir(top.path()).mkpath(QStringLiteral("plugin/sub"));
        QFile::link(QStringLiteral("../.."), top.filePath(QStringLiteral("plugin/sub/out")));
        QFile file(top.filePath(QStringLiteral("secret")));
        if (!file.open(QIODevice::WriteOnly) || file.write("secret") != 6)
            std::abort();
        return file.fileName();
    }();
    const QUrl url = QUrl::fromLocalFile(top.filePath(QStringLiteral("plugin")));
    const QString path = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    for (const auto resolution : {PluginFolder::Resolution::byKernel, PluginFolder::Resolution::byWalk}) {
        const PluginFolder folder(url, resolution);
        if (folder.contents(path) == "secret")
            std::abort();
        const bool written = folder.write("x", path);
        if (written && (folder.contents(path) != "x" || !folder.exists(path)))
            std::abort();
        folder.remove(path);
        if (written && folder.exists(path))
            std::abort();
    }
    QFile file(secret);
    if (!file.open(QIODevice::ReadOnly) || file.readAll() != "secret"
        || QDir(top.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size() != 2)
        std::abort();
    return 0;
}
