// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Files/ParsedFiles.h"

#include "ToolKit/Calendar/Items/ItemFile.h"
#include "ToolKit/Logging/Logger.h"

#include <utility>

namespace quor::toolkit {

void ParsedFiles::markChanged(const std::set<QByteArray>& names)
{
    if (changed_)
        changed_->insert(names.begin(), names.end());
}

bool ParsedFiles::update(const CalendarDirectory& directory, const CalendarPath& path)
{
    bool isAnyChanged = !changed_ && compareAll(directory);
    if (!changed_)
        return false;
    for (const QByteArray& name : std::exchange(*changed_, {})) {
        if (!name.endsWith(itemSuffix))
            continue;
        read(directory, path, name);
        isAnyChanged = true;
    }
    return isAnyChanged;
}

bool ParsedFiles::compareAll(const CalendarDirectory& directory)
{
    const auto names = directory.names();
    if (!names)
        return false;
    std::map<QByteArray, File> known = std::exchange(files_, {});
    changed_.emplace();
    for (const QByteArray& name : *names) {
        if (!name.endsWith(itemSuffix))
            continue;
        auto file = known.extract(name);
        if (file.empty() || directory.identity(name) != file.mapped().identity)
            changed_->insert(name);
        else
            files_.insert(std::move(file));
    }
    return !known.empty();
}

void ParsedFiles::read(const CalendarDirectory& directory, const CalendarPath& path, const QByteArray& name)
{
    const auto content = directory.read(name);
    if (!content) {
        files_.erase(name);
        return;
    }
    if (content->isRetried) {
        changed_->insert(name);
        return;
    }
    File& file = files_[name];
    file = {content->identity, std::nullopt};
    const auto items = content->bytes ? ItemFile::parse(*content->bytes) : std::nullopt;
    if (items) {
        file.records = items->records();
        return;
    }
    const QString reason = content->identity.size > largestItemFile ? QStringLiteral("is too large")
        : content->bytes                                            ? QStringLiteral("is broken")
                                                                    : QStringLiteral("cannot be read");
    Logger::log(QStringLiteral("Skipped the calendar file %1, which %2")
                    .arg(path.identifier() + u'/' + QString::fromUtf8(name), reason),
        true);
}

} // namespace quor::toolkit
