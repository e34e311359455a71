// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Files/CalendarProperties.h"

#include "Platform/Files/Folder.h"

#include <cerrno>

#include <sys/stat.h>

namespace quor::toolkit {

namespace {

constexpr char titleFile[] = "displayname";
constexpr char colorFile[] = "color";
constexpr qint64 largestPropertyFile = 4096; // bytes

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

/// "#RRGGBB", which some programs follow with an opacity.
QColor colorOf(const QByteArray& text)
{
    return text.startsWith('#') && text.size() >= 7 ? QColor(QString::fromLatin1(text.first(7))) : QColor();
}

} // namespace

CalendarProperties readProperties(const CalendarDirectory& directory)
{
    return {
        QString::fromUtf8(readProperty(directory, titleFile)), colorOf(readProperty(directory, colorFile))};
}

bool isPropertyFile(const QByteArray& name)
{
    return name == titleFile || name == colorFile;
}

EventStoreResult CalendarPropertiesChange::write(const QByteArray& root) const
{
    if (isNew) {
        const QByteArray folder = path.below(root);
        if (const std::error_code error = platform::makeFolder(folder, S_IRWXU))
            return systemError(error.value(), folder);
    }
    const CalendarDirectory directory(root, path);
    if (!directory.isOpen())
        return systemError(ENOENT, path.below(root));
    directory.lock();
    directory.removeLeftovers();
    EventStoreResult failure;
    if (title)
        failure = writeProperty(directory, titleFile, title->simplified().toUtf8());
    if (color && !failure)
        failure = writeProperty(
            directory, colorFile, color->isValid() ? color->name().toUpper().toLatin1() : QByteArray());
    return failure;
}

} // namespace quor::toolkit
