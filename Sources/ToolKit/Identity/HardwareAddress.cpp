// SPDX-License-Identifier: MIT
#include "ToolKit/Identity/HardwareAddress.h"

#include "Platform/Files/FileDescriptor.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QList>

#include <algorithm>
#include <vector>

#include <linux/ethtool.h>
#include <linux/ipv6_route.h>
#include <linux/route.h>
#include <linux/sockios.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

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

bool isNone(const HardwareAddress& address)
{
    return std::all_of(address.begin(), address.end(), [](auto byte) { return byte == 0; });
}

/// The address that the hardware was made with, from the kernel. Virtual interfaces mostly have none.
std::optional<HardwareAddress> permanentAddressOf(const QString& interface)
{
    const QByteArray name = QFile::encodeName(interface);
    const platform::FileDescriptor any(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    if (name.size() >= IFNAMSIZ || !any)
        return std::nullopt;
    struct { // an ethtool_perm_addr
        std::uint32_t command = ETHTOOL_GPERMADDR;
        std::uint32_t size = sizeof(HardwareAddress);
        HardwareAddress address{};
    } answer;
    ifreq request{};
    std::copy(name.begin(), name.end(), std::begin(request.ifr_name));
    request.ifr_data = reinterpret_cast<char*>(&answer);
    if (ioctl(any.get(), SIOCETHTOOL, &request) != 0 || answer.size != sizeof(HardwareAddress)
        || isNone(answer.address))
        return std::nullopt;
    return answer.address;
}

std::optional<HardwareAddress> currentAddressOf(const QString& interface, const QString& interfaces)
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
    return isNone(address) ? std::nullopt : std::optional(address);
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
        // Wi-Fi interfaces may use another, random address in each network.
        const auto permanent = permanentAddressOf(candidate.interface);
        if (const auto address = permanent ? permanent : currentAddressOf(candidate.interface, interfaces))
            return address;
    }
    return std::nullopt;
}

} // namespace quor::toolkit
