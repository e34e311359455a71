// SPDX-License-Identifier: MIT
#include "ToolKit/Identity/DeviceIdentifier.h"

#include "ToolKit/Data/Ciphers/Digest.h"
#include "ToolKit/Identity/EnvironmentFile.h"
#include "ToolKit/Identity/HardwareAddress.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace quor::toolkit::DeviceIdentifier {

namespace {

QByteArray addressText(const HardwareAddress& address)
{
    return QByteArray(reinterpret_cast<const char*>(address.data()), qsizetype(address.size())).toHex(':');
}

QString hostName(const QString& path)
{
    QFile file(path);
    const QByteArray name = file.open(QFile::ReadOnly) ? file.readLine(256).trimmed() : QByteArray();
    return name == "(none)" ? QString() : QString::fromUtf8(name); // as the kernel reports a missing name
}

} // namespace

QString identifier(const Paths& paths)
{
    const auto address = primaryHardwareAddress(paths.routes, paths.ipv6Routes, paths.interfaces);
    return hexadecimal(digest(address ? addressText(*address) : deviceName(paths).toUtf8(), true));
}

QString deviceName(const Paths& paths)
{
    if (const auto pretty = valueInEnvironmentFile(paths.machineInfo, u"PRETTY_HOSTNAME"_s))
        return *pretty;
    const QString name = hostName(paths.hostName);
    return name.isEmpty() ? u"Default Device Name"_s : name;
}

} // namespace quor::toolkit::DeviceIdentifier
