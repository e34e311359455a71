// SPDX-License-Identifier: MIT
#include "Peer/Model/RecordJSON.h"

#include "Peer/Model/Settings.h"
#include "Peer/Model/Task.h"
#include "Peer/Model/TimeEntry.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor::peer {

namespace {

constexpr auto nameKey = "name"_L1;
constexpr auto colorKey = "color"_L1;
constexpr auto taskKey = "taskID"_L1;
constexpr auto startKey = "start"_L1;
constexpr auto endKey = "end"_L1;

} // namespace

std::optional<Task> taskFromJSON(const QString& id, const QJsonObject& object)
{
    static const QRegularExpression numbered(u"^T[1-9][0-9]{0,8}$"_s);
    Task task{id, object[nameKey].toString(), colorFromText(object[colorKey].toString())};
    return task.name.isEmpty() || !numbered.match(id).hasMatch() ? std::nullopt : std::optional(task);
}

std::optional<TimeEntry> entryFromJSON(const QString& id, const QJsonObject& object)
{
    if (!object[taskKey].isString() || !object[startKey].isDouble())
        return std::nullopt;
    TimeEntry entry{
        id, object[taskKey].toString(), platform::dateFromSeconds(object[startKey].toDouble()), {}};
    if (const QJsonValue end = object[endKey]; end.isDouble())
        entry.end = std::max(entry.start, platform::dateFromSeconds(end.toDouble()));
    return entry;
}

QJsonObject toJSON(const Task& task)
{
    QJsonObject object{{nameKey, task.name}};
    if (task.color)
        object.insert(colorKey, colorToText(*task.color));
    return object;
}

QJsonObject toJSON(const TimeEntry& entry)
{
    QJsonObject object{{taskKey, entry.taskID}, {startKey, platform::secondsSince1970(entry.start)}};
    if (entry.end)
        object.insert(endKey, platform::secondsSince1970(*entry.end));
    return object;
}

QJsonValue toJSON(const Settings& settings, const SettingField& field)
{
    return std::visit([&](auto member) { return QJsonValue(settings.*member); }, field.member);
}

void assignJSON(Settings& settings, const SettingField& field, const QJsonValue& value)
{
    if (const auto* const flag = std::get_if<bool Settings::*>(&field.member); flag && value.isBool())
        settings.*(*flag) = value.toBool();
    if (const auto* const seconds = std::get_if<double Settings::*>(&field.member);
        seconds && value.toDouble(-1) >= 0)
        settings.*(*seconds) = value.toDouble();
}

std::optional<std::uint32_t> colorFromText(const QString& text)
{
    static const QRegularExpression sixDigits(u"^#?([0-9A-Fa-f]{6})$"_s);
    const auto match = sixDigits.match(text);
    return match.hasMatch() ? std::optional(match.captured(1).toUInt(nullptr, 16)) : std::nullopt;
}

QString colorToText(std::uint32_t color)
{
    return u"%1"_s.arg(color, 6, 16, QLatin1Char('0')).toUpper();
}

} // namespace quor::peer
