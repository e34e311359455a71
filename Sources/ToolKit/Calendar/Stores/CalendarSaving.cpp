// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Stores/EventStore.h"
#include "ToolKit/Calendar/Stores/EventStoreState.h"

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
    if (text.isEmpty())
        return before ? directory.remove(name, before->identity) : std::nullopt;
    return directory.write(name, text, before ? std::optional(before->identity) : std::nullopt);
}

struct CalendarLook {
    QByteArray root;
    CalendarPath path;
    std::optional<QByteArray> title; ///< none: stays as it is
    std::optional<QByteArray> color;
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
        auto failure = title ? writeSmall(directory, "displayname", *title) : std::nullopt;
        return failure || !color ? failure : writeSmall(directory, "color", *color);
    }
};

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
    const auto [fields, saved] = calendar->both();
    CalendarLook look{state_->root, path, {}, {}, isNew};
    if (fields.title != saved.title)
        look.title = fields.title.simplified().toUtf8();
    if (fields.color != saved.color)
        look.color = fields.color.isValid() ? fields.color.name().toUpper().toLatin1() : QByteArray();
    if (commit) {
        if (auto failure = look.write())
            return failure;
    } else {
        state_->calendarChanges.emplace_back([look] { return look.write(); });
    }
    calendar->setSaved(fields, QString::fromUtf8(path.identifier()));
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
    if (!state_->folder(identifier))
        return EventStoreError(Kind::notFound, QStringLiteral("the calendar is not there any more"));
    const qsizetype slash = identifier.indexOf(u'/');
    const CalendarPath path{identifier.left(slash).toUtf8(), identifier.mid(slash + 1).toUtf8()};
    state_->calendarRemovals.push_back(path);
    if (!commit)
        return std::nullopt;
    auto failure = state_->commit();
    std::erase(state_->calendarRemovals, path);
    return failure;
}

} // namespace quor::toolkit
