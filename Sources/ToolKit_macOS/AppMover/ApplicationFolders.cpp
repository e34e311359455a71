// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/AppMover/ApplicationFolders.h"

#include <QByteArrayList>

#include <algorithm>
#include <filesystem>

namespace quor::toolkit {

namespace {

std::optional<QByteArray> resolved(const QByteArray& folder)
{
    std::error_code error;
    const auto path = std::filesystem::canonical(folder.toStdString(), error);
    if (error || !std::filesystem::is_directory(path, error))
        return std::nullopt;
    return QByteArray::fromStdString(path.native());
}

std::ptrdiff_t entryCount(const QByteArray& folder)
{
    std::error_code error;
    std::ptrdiff_t count = 0;
    for (std::filesystem::directory_iterator entry(folder.toStdString(), error), end; entry != end;
         entry.increment(error))
        ++count;
    return count;
}

} // namespace

bool isInApplicationsFolder(const QByteArray& bundlePath, const std::vector<QByteArray>& folders)
{
    const auto contains
        = [&](const QByteArray& folder) { return !folder.isEmpty() && bundlePath.startsWith(folder + '/'); };
    const bool isInside = std::any_of(folders.begin(), folders.end(), [&](const QByteArray& folder) {
        return contains(folder) || contains(resolved(folder).value_or(QByteArray()));
    });
    return isInside || bundlePath.split('/').contains("Applications");
}

std::optional<QByteArray> preferredInstallDirectory(const std::vector<QByteArray>& folders)
{
    std::optional<QByteArray> preferred;
    std::ptrdiff_t mostEntries = -1;
    for (const auto& folder : folders) {
        const auto path = resolved(folder);
        const auto count = path ? entryCount(*path) : -1;
        if (path && count >= mostEntries) {
            preferred = path;
            mostEntries = count;
        }
    }
    if (!preferred && !folders.empty())
        preferred = folders.back();
    return preferred;
}

} // namespace quor::toolkit
