// SPDX-License-Identifier: MIT
#include "ToolKit/Identity/HardwareAddress.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QList>

#include <algorithm>
#include <vector>

#include <linux/ipv6_route.h>
#include <linux/route.h>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

struct DefaultRoute {
    QString interface;
    quint32 metric = 0;
};

using Fields = QList<QByteArray>;

quint32 hexadecimalField(const QByteArray& field)
{
    return field.toUInt(nullptr, 16);
}

bool isZero(const QByteArray& hexadecimal)
{
    return !hexadecimal.isEmpty() && hexadecimal.count('0') == hexadecimal.size();
}

bool isInUse(quint32 flags)
{
    return (flags & RTF_UP) != 0 && (flags & RTF_REJECT) == 0;
}

// Iface Destination Gateway Flags RefCnt Use Metric Mask ...
std::optional<DefaultRoute> ipv4Route(const Fields& fields)
{
    if (fields.size() < 8 || !isZero(fields[1]) || !isZero(fields[7])
        || !isInUse(hexadecimalField(fields[3])))
        return std::nullopt;
    return DefaultRoute{QFile::decodeName(fields[0]), fields[6].toUInt()};
}

// destination, its prefix, source, its prefix, next hop, metric, count, use, flags, interface
std::optional<DefaultRoute> ipv6Route(const Fields& fields)
{
    if (fields.size() < 10 || !isZero(fields[0]) || !isZero(fields[1])
        || !isInUse(hexadecimalField(fields[8])))
        return std::nullopt;
    return DefaultRoute{QFile::decodeName(fields[9]), hexadecimalField(fields[5])};
}

std::vector<DefaultRoute> defaultRoutes(
    const QString& path, std::optional<DefaultRoute> (*parse)(const Fields&))
{
    std::vector<DefaultRoute> routes;
    QFile file(path);
    if (!file.open(QFile::ReadOnly))
        return routes;
    for (QByteArray line = file.readLine(); !line.isEmpty(); line = file.readLine()) {
        if (auto route = parse(line.simplified().split(' ')))
            routes.push_back(std::move(*route));
    }
    std::stable_sort(routes.begin(), routes.end(),
        [](const DefaultRoute& a, const DefaultRoute& b) { return a.metric < b.metric; });
    return routes;
}

std::optional<HardwareAddress> addressOf(const QString& interface, const QString& interfaces)
{
    QFile file(interfaces + u'/' + interface + "/address"_L1);
    if (!file.open(QFile::ReadOnly))
        return std::nullopt;
    const auto parts = file.read(64).trimmed().split(':');
    HardwareAddress address{};
    if (parts.size() != qsizetype(address.size()))
        return std::nullopt;
    for (std::size_t i = 0; i < address.size(); ++i) {
        bool isNumber = false;
        const auto part = parts[qsizetype(i)].toUInt(&isNumber, 16);
        if (!isNumber || part > 0xFF)
            return std::nullopt;
        address[i] = static_cast<std::uint8_t>(part);
    }
    const bool isNone = std::all_of(address.begin(), address.end(), [](auto byte) { return byte == 0; });
    return isNone ? std::nullopt : std::optional(address);
}

std::vector<DefaultRoute> devices(const QString& interfaces)
{
    std::vector<DefaultRoute> found;
    for (const QString& name : QDir(interfaces).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        if (QFileInfo::exists(interfaces + u'/' + name + "/device"_L1))
            found.push_back({name});
    }
    return found;
}

} // namespace

std::optional<HardwareAddress> primaryHardwareAddress(
    const QString& routes, const QString& ipv6Routes, const QString& interfaces)
{
    auto candidates = defaultRoutes(routes, ipv4Route);
    for (auto& route : defaultRoutes(ipv6Routes, ipv6Route))
        candidates.push_back(std::move(route));
    if (candidates.empty())
        candidates = devices(interfaces);
    for (const auto& candidate : candidates) {
        if (const auto address = addressOf(candidate.interface, interfaces))
            return address;
    }
    return std::nullopt;
}

} // namespace quor::toolkit
