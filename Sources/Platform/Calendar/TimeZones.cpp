// SPDX-License-Identifier: MIT
#include "Platform/Calendar/TimeZones.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <chrono>

using namespace Qt::StringLiterals;

namespace quor::platform {

namespace {

/// Where Qt looks for zone files.
constexpr std::array zoneFolders{"/usr/share/zoneinfo/"_L1, "/usr/lib/zoneinfo/"_L1};
/// Leads from either of them to any file.
constexpr auto rootFromZoneFolder = "../../.."_L1;

/// The dates that the C library fills in, which are the dates of the United States.
constexpr QByteArrayView defaultChanges = ",M3.2.0,M11.1.0";

/// The zone in a file. It has a name if the file is one of the system's zone data, or a link to one.
QTimeZone zoneOfFile(QString path)
{
    constexpr int mostLinks = 10;
    for (int link = 0; link < mostLinks; ++link) {
        for (const auto folder : zoneFolders) {
            if (path.startsWith(folder))
                return QTimeZone(QFile::encodeName(path.sliced(folder.size())));
        }
        const QFileInfo file(path);
        // Not the final target: the data have links among themselves, and the user chose one of the names.
        if (!file.isSymLink())
            break;
        path = file.symLinkTarget();
    }
    return QTimeZone(QFile::encodeName(rootFromZoneFolder + path));
}

QTimeZone validOrUTC(const QTimeZone& zone)
{
    return zone.isValid() ? zone : QTimeZone::utc();
}

} // namespace

std::optional<QTimeZone> namedTimeZone(const QByteArray& name)
{
    constexpr qsizetype longestName = 100;
    const auto isNamePart = [](char character) {
        return QChar::isLetterOrNumber(uchar(character)) || QByteArrayView("_+-/").contains(character);
    };
    if (name.startsWith('/') || name.size() > longestName
        || !std::all_of(name.begin(), name.end(), isNamePart))
        return std::nullopt;
    // Qt takes any word for a rule.
    const bool isFile = std::any_of(zoneFolders.begin(), zoneFolders.end(),
        [&](QLatin1StringView folder) { return QFileInfo(folder + QLatin1StringView(name)).isFile(); });
    const QTimeZone zone = isFile ? QTimeZone(name) : QTimeZone();
    return zone.isValid() ? std::optional(zone) : std::nullopt;
}

QTimeZone timeZoneOfVariable(QByteArray value)
{
    if (value.startsWith(':'))
        value.remove(0, 1);
    if (value.isEmpty())
        return QTimeZone::utc();
    if (value.startsWith('/'))
        return validOrUTC(zoneOfFile(QFile::decodeName(value)));
    // Qt refuses rules with these letters, or reads them as names with the opposite sign. In a rule the
    // letters have no effect on the offsets.
    if ((value.startsWith("UTC") || value.startsWith("GMT")) && value.size() > 3)
        value.replace(0, 3, "STD");
    const QTimeZone zone(value);
    return zone.isValid() ? zone : validOrUTC(QTimeZone(value.append(defaultChanges)));
}

QTimeZone userTimeZone()
{
    using Clock = std::chrono::steady_clock;
    struct Known {
        QByteArray variable;
        QTimeZone zone;
        Clock::time_point nextLook = Clock::time_point::min();
    };
    thread_local Known known;

    const QByteArray variable = qEnvironmentVariableIsSet("TZ") ? qgetenv("TZ") : "/etc/localtime"_ba;
    if (const auto now = Clock::now(); now >= known.nextLook || variable != known.variable)
        known = {variable, timeZoneOfVariable(variable), now + std::chrono::seconds(1)};
    return known.zone;
}

} // namespace quor::platform
