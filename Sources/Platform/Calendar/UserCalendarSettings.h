// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QLocale>
#include <QTimeZone>

#include <chrono>

namespace quor::platform {

/// The user's locale for dates: the program's default locale, if it has set one, else what the
/// environment says for dates (`LC_ALL`, `LC_TIME`), else the system's. Any thread.
[[nodiscard]] QLocale userDateLocale();

/// What ICU calls this zone: its name, else, for one that ICU does not know, its present distance from
/// UTC ("GMT+05:30").
[[nodiscard]] QByteArray icuZoneName(const QTimeZone& zone);

/// The machine's time zone, looked up again when the variable TZ has changed or a second has passed:
/// the name stands in the file system. One thread at a time.
class MachineZone final {
public:
    /// As ICU calls it.
    [[nodiscard]] const QByteArray& icuName();

private:
    using Clock = std::chrono::steady_clock;

    QByteArray variable_;
    QByteArray name_;
    Clock::time_point nextLook_ = Clock::time_point::min();
};

} // namespace quor::platform
