// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/EventStore.h"
#include "ToolKit/Calendar/EventStoreState.h"

#include <QUuid>

#include <cerrno>

#include <unistd.h>

namespace quor::toolkit {

namespace {

using Result = EventStore::Result;
using Kind = EventStoreError::Kind;

Result writeSmall(const CalendarDirectory& directory, const QByteArray& name, const QByteArray& text)
{
    const auto before = directory.read(name);
    if (before ? before->bytes && before->bytes->trimmed() == text : text.isEmpty())
        return std::nullopt;
    if (text.isEmpty())
        return directory.remove(name, before->identity);
    return directory.write(name, text, before ? std::optional(before->identity) : std::nullopt);
}

struct CalendarLook {
    QByteArray root;
    CalendarPath path;
    QByteArray title;
    QByteArray color;
    bool isNew;

    [[nodiscard]] Result write() const
    {
        if (isNew) {
            if (auto failure = CalendarDirectory::make(root, path))
                return failure;
        }
        const CalendarDirectory directory(root, path);
        if (!directory.isOpen())
            return systemError(ENOENT, path.identifier());
        directory.lock();
        auto failure = writeSmall(directory, "displayname", title);
        return failure ? failure : writeSmall(directory, "color", color);
    }
};

Result removeFolder(const QByteArray& root, const CalendarPath& path)
{
    const CalendarDirectory directory(root, path);
    if (!directory.isOpen())
        return systemError(ENOENT, path.identifier());
    directory.lock();
    for (const QByteArray& name : directory.names()) {
        const bool isOurs = name.endsWith(".ics") || name == "displayname" || name == "color";
        const auto identity = isOurs ? directory.identity(name) : std::nullopt;
        if (auto failure = identity ? directory.remove(name, *identity) : std::nullopt)
            return failure;
    }
    const QByteArray folder = root + '/' + path.identifier();
    if (rmdir(folder.constData()) == 0 || errno == ENOTEMPTY || errno == EEXIST || errno == ENOENT)
        return std::nullopt;
    return systemError(errno, path.identifier());
}

bool isFolderName(const QByteArray& name)
{
    return !name.isEmpty() && !name.startsWith('.') && !name.contains('/') && !name.contains('\0');
}

} // namespace

EventStore::Result EventStore::saveCalendar(const std::shared_ptr<EventCalendar>& calendar, bool commit)
{
    if (!state_->hasAccess(EntityType::event) && !state_->hasAccess(EntityType::reminder))
        return EventStoreError(Kind::accessDenied, QStringLiteral("the user refused access"));
    const std::scoped_lock lock(state_->mutex);
    state_->refresh();
    const QString identifier = calendar ? calendar->calendarIdentifier() : QString();
    const auto source = calendar ? calendar->source() : std::nullopt;
    const QByteArray sourceName = source ? source->sourceIdentifier.toUtf8() : QByteArray();
    if (!isFolderName(sourceName) || state_->root.isEmpty())
        return EventStoreError(Kind::invalid, QStringLiteral("a calendar without a source"));
    const bool isNew = identifier.isEmpty();
    if (!isNew && !state_->folder(identifier))
        return EventStoreError(Kind::notFound, QStringLiteral("the calendar is not there any more"));
    const qsizetype slash = identifier.indexOf(u'/');
    const CalendarPath path = isNew
        ? CalendarPath{sourceName, QUuid::createUuid().toByteArray(QUuid::WithoutBraces)}
        : CalendarPath{identifier.left(slash).toUtf8(), identifier.mid(slash + 1).toUtf8()};
    const QColor color = calendar->color();
    const CalendarLook look{state_->root, path, calendar->title().simplified().toUtf8(),
        color.isValid() ? color.name().toUpper().toLatin1() : QByteArray(), isNew};
    if (commit) {
        if (auto failure = look.write())
            return failure;
    } else {
        state_->calendarChanges.emplace_back([look] { return look.write(); });
    }
    calendar->set(&EventCalendar::Fields::identifier, QString::fromUtf8(path.identifier()));
    if (!commit)
        return std::nullopt;
    state_->relist(); // so that what is saved into it next finds it
    state_->refresh();
    if (CalendarFolder* const folder = state_->folder(QString::fromUtf8(path.identifier())))
        folder->invalidate();
    return state_->commit();
}

EventStore::Result EventStore::removeCalendar(const std::shared_ptr<EventCalendar>& calendar, bool commit)
{
    if (!state_->hasAccess(EntityType::event) && !state_->hasAccess(EntityType::reminder))
        return EventStoreError(Kind::accessDenied, QStringLiteral("the user refused access"));
    const std::scoped_lock lock(state_->mutex);
    state_->refresh();
    const QString identifier = calendar ? calendar->calendarIdentifier() : QString();
    CalendarFolder* const folder = state_->folder(identifier);
    if (!folder)
        return EventStoreError(Kind::notFound, QStringLiteral("the calendar is not there any more"));
    const qsizetype slash = identifier.indexOf(u'/');
    const CalendarPath path{identifier.left(slash).toUtf8(), identifier.mid(slash + 1).toUtf8()};
    folder->reset();
    if (!commit) {
        state_->calendarChanges.emplace_back(
            [root = state_->root, path] { return removeFolder(root, path); });
        return std::nullopt;
    }
    if (auto failure = removeFolder(state_->root, path))
        return failure;
    state_->relist();
    state_->refresh();
    return state_->commit();
}

} // namespace quor::toolkit
