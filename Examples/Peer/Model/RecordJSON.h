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

/// The JSON forms of the tracker's records, on disk and in the output of `quor-peer`. Moments are in seconds
/// since 1970, colours are "RRGGBB"; a member without a value is left out.

// Return `nullopt` if the object is not such a record.
[[nodiscard]] std::optional<Task> taskFromJSON(const QString& id, const QJsonObject& object);
[[nodiscard]] std::optional<TimeEntry> entryFromJSON(const QString& id, const QJsonObject& object);

[[nodiscard]] QJsonObject toJSON(const Task& task);
[[nodiscard]] QJsonObject toJSON(const TimeEntry& entry);

[[nodiscard]] QJsonValue toJSON(const Settings& settings, const SettingField& field);
/// Has no effect if the value has another type or is negative.
void assignJSON(Settings& settings, const SettingField& field, const QJsonValue& value);

/// Reads six hexadecimal digits, with or without a "#" in front. Returns `nullopt` for any other text.
[[nodiscard]] std::optional<std::uint32_t> colorFromText(const QString& text);
[[nodiscard]] QString colorToText(std::uint32_t color);

} // namespace quor::peer
