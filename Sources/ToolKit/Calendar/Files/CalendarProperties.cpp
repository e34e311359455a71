// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Files/CalendarProperties.h"

#include "Platform/Files/Folder.h"

#include <cerrno>
#include <cstdio>

#include <sys/stat.h>
#include <unistd.h>

namespace quor::toolkit {

namespace {

constexpr const char* titleFile = "displayname";
constexpr const char* colorFile = "color";
constexpr const char* typesFile = "supported-components"; // names of iCalendar components
constexpr qint64 largestPropertyFile = 4096; // bytes

// A new calendar gets its own name when it is complete, so that nobody sees a half of it, even if this
// process is killed. The source is locked meanwhile, so what is left there by a killed process can be used.
constexpr const char* unfinishedFolder = ".quor-calendar.new";

QByteArray readProperty(const CalendarDirectory& directory, const QByteArray& name)
{
    const auto content = directory.read(name, largestPropertyFile);
    return content && content->bytes ? content->bytes->trimmed() : QByteArray();
}

EventStoreResult writeProperty(
    const CalendarDirectory& directory, const QByteArray& name, const QByteArray& text)
{
    const auto before = directory.identity(name);
    if (text.isEmpty())
        return before ? directory.remove(name, *before) : std::nullopt;
    return directory.write(name, text, before);
}

void removeFiles(const CalendarDirectory& directory)
{
    for (const QByteArray& name : directory.names()) {
        if (const auto identity = directory.identity(name); identity && isPropertyFile(name))
            (void)directory.remove(name, *identity);
    }
}

/// "#RRGGBB", which some programs follow with an opacity.
QColor colorOf(const QByteArray& text)
{
    return text.startsWith('#') && text.size() >= 7 ? QColor(QString::fromLatin1(text.first(7))) : QColor();
}

constexpr const char* componentOf(EntityType type)
{
    return type == EntityType::event ? "VEVENT" : "VTODO";
}

std::set<EntityType> typesOf(const QByteArray& text)
{
    std::set<EntityType> types;
    for (const QByteArray& name : text.toUpper().replace(',', ' ').simplified().split(' ')) {
        for (const EntityType type : {EntityType::event, EntityType::reminder}) {
            if (name == componentOf(type))
                types.insert(type);
        }
    }
    return types;
}

} // namespace

CalendarProperties readProperties(const CalendarDirectory& directory)
{
    return {QString::fromUtf8(readProperty(directory, titleFile)),
        colorOf(readProperty(directory, colorFile)), typesOf(readProperty(directory, typesFile))};
}

bool isPropertyFile(const QByteArray& name)
{
    return name == titleFile || name == colorFile || name == typesFile;
}

EventStoreResult CalendarPropertiesChange::write(const QByteArray& root) const
{
    if (isNew)
        return make(root);
    const CalendarDirectory directory(root, path);
    if (auto failure = directory.lock(path.below(root)))
        return failure;
    directory.removeLeftovers();
    return writeFiles(directory);
}

EventStoreResult CalendarPropertiesChange::make(const QByteArray& root) const
{
    const CalendarPath source{path.source, {}};
    const CalendarPath unfinished{path.source, unfinishedFolder};
    const QByteArray folder = unfinished.below(root);
    if (const std::error_code error = platform::makeFolder(source.below(root), S_IRWXU))
        return systemError(error.value(), source.below(root));
    const CalendarDirectory parent(root, source);
    if (auto failure = parent.lock(source.below(root)))
        return failure;
    if (const std::error_code error = platform::makeFolder(folder, S_IRWXU))
        return systemError(error.value(), folder);
    const CalendarDirectory directory(root, unfinished);
    if (!directory.isOpen())
        return systemError(directory.openError(), folder);
    directory.removeLeftovers();
    removeFiles(directory);
    auto failure = writeFiles(directory);
    if (!failure && rename(folder.constData(), path.below(root).constData()) != 0)
        failure = systemError(errno, path.below(root));
    if (failure) {
        removeFiles(directory);
        rmdir(folder.constData());
    }
    return failure;
}

EventStoreResult CalendarPropertiesChange::obstacle(const QByteArray& root) const
{
    if (!isNew)
        return CalendarDirectory(root, path).writeObstacle();
    const CalendarDirectory source(root, {path.source, {}});
    return source.isOpen() ? source.writeObstacle() : std::nullopt; // a missing folder will be made
}

EventStoreResult CalendarPropertiesChange::writeFiles(const CalendarDirectory& directory) const
{
    EventStoreResult failure;
    if (title)
        failure = writeProperty(directory, titleFile, title->simplified().toUtf8());
    if (color && !failure)
        failure = writeProperty(
            directory, colorFile, color->isValid() ? color->name().toUpper().toLatin1() : QByteArray());
    if (type && !failure)
        failure = writeProperty(directory, typesFile, componentOf(*type));
    return failure;
}

} // namespace quor::toolkit
