// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QString>

#include <cstdint>
#include <optional>

namespace quor::peer {

struct SettingField;
struct Settings;
struct Task;
struct TimeEntry;

/// The JSON forms of the tracker's records, on disk and in what `quor-peer` prints. Moments are in
/// seconds since 1970, colours "RRGGBB"; what has no value is left out.

// None if the object is no such record.
[[nodiscard]] std::optional<Task> taskFromJSON(const QString& id, const QJsonObject& object);
[[nodiscard]] std::optional<TimeEntry> entryFromJSON(const QString& id, const QJsonObject& object);

[[nodiscard]] QJsonObject toJSON(const Task& task);
[[nodiscard]] QJsonObject toJSON(const TimeEntry& entry);

[[nodiscard]] QJsonValue toJSON(const Settings& settings, const SettingField& field);
/// A value of another type, or one below 0, changes nothing.
void assignJSON(Settings& settings, const SettingField& field, const QJsonValue& value);

/// Six hexadecimal digits, a "#" before them or not.
[[nodiscard]] std::optional<std::uint32_t> colorFromText(const QString& text);
[[nodiscard]] QString colorToText(std::uint32_t color);

} // namespace quor::peer
