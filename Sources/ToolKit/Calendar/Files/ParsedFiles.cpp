// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Files/ParsedFiles.h"

#include "ToolKit/Calendar/Items/ItemFile.h"
#include "ToolKit/Logging/Logger.h"

#include <utility>

namespace quor::toolkit {

namespace {

void logFile(const CalendarPath& path, const QByteArray& name, const QString& message)
{
    Logger::log(message.arg(path.identifier() + u'/' + QString::fromUtf8(name)), true);
}

bool hasNamelessItem(const ItemFile& file)
{
    return !file.components(ICAL_VEVENT_COMPONENT, {}).empty()
        || !file.components(ICAL_VTODO_COMPONENT, {}).empty();
}

} // namespace

void ParsedFiles::markChanged(const std::set<QByteArray>& names)
{
    if (changed_)
        changed_->insert(names.begin(), names.end());
}

bool ParsedFiles::update(const CalendarDirectory& directory, const CalendarPath& path)
{
    bool isAnyChanged = !changed_ && compareAll(directory);
    for (const QByteArray& name : std::exchange(*changed_, {})) {
        if (!name.endsWith(itemSuffix))
            continue;
        if (!read(directory, path, name))
            changed_->insert(name);
        isAnyChanged = true;
    }
    return isAnyChanged;
}

bool ParsedFiles::compareAll(const CalendarDirectory& directory)
{
    std::map<QByteArray, File> known = std::exchange(files_, {});
    changed_.emplace();
    for (const QByteArray& name : directory.names()) {
        if (!name.endsWith(itemSuffix))
            continue;
        auto file = known.extract(name);
        if (file.empty() || directory.identity(name) != file.mapped().identity)
            changed_->insert(name);
        if (!file.empty())
            files_.insert(std::move(file));
    }
    return !known.empty();
}

bool ParsedFiles::read(const CalendarDirectory& directory, const CalendarPath& path, const QByteArray& name)
{
    const auto content = directory.read(name);
    if (!content) {
        files_.erase(name);
        return true;
    }
    if (isTemporary(content->error))
        return false;
    File& file = files_[name];
    file = {content->identity, std::nullopt};
    const auto items = content->bytes ? ItemFile::parse(*content->bytes) : std::nullopt;
    if (items) {
        file.records = items->records();
        if (hasNamelessItem(*items))
            logFile(path, name, QStringLiteral("Skipped an item without UID in the calendar file %1"));
        return true;
    }
    const QString reason = content->identity.size > largestItemFile ? QStringLiteral("is too large")
        : content->bytes                                            ? QStringLiteral("is broken")
                                                                    : QStringLiteral("cannot be read");
    logFile(path, name, QStringLiteral("Skipped the calendar file %1, which ") + reason);
    return true;
}

} // namespace quor::toolkit
