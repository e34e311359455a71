// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Stores/ItemSaving.h"

namespace quor::toolkit {

QByteArray copyOfItem(CalendarFolder& folder, const QByteArray& file, const QString& uid)
{
    const auto content = folder.content(file);
    return content ? content->extract(uid).bytes() : QByteArray();
}

EventStoreResult stageTransfer(const FileInFolder& from, const FileInFolder& to, const QByteArray& bytes,
    ItemEdit arrive, ItemEdit leave)
{
    const auto insert = [bytes, arrive = std::move(arrive)](ItemFile& file) -> EventStoreResult {
        if (!file.isEmpty())
            return conflict(QStringLiteral("the new file of an item"));
        auto copy = ItemFile::parse(bytes);
        if (!copy)
            return unreadable(QStringLiteral("the copy of an item"));
        file = *std::move(copy);
        return arrive(file);
    };
    if (auto failure = to.folder.stage(to.file, insert))
        return failure;
    auto failure = from.folder.stage(from.file, std::move(leave), to.folder.status(to.file));
    if (failure)
        to.folder.unstage(to.file);
    return failure;
}

ItemEdit removalOfCopied(const QString& uid, const QByteArray& bytes)
{
    return [uid, bytes](ItemFile& file) -> EventStoreResult {
        if (file.extract(uid).bytes() != bytes)
            return conflict(uid);
        for (const auto kind : {ICAL_VEVENT_COMPONENT, ICAL_VTODO_COMPONENT}) {
            for (icalcomponent* each : file.components(kind, uid))
                file.remove(each);
        }
        return std::nullopt;
    };
}

} // namespace quor::toolkit
