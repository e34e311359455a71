// SPDX-License-Identifier: MIT
#include "Support/Files.h"
#include "ToolKit/Data/Ciphers/Digest.h"
#include "ToolKit/Identity/ApplicationVersion.h"
#include "ToolKit/Identity/DeviceIdentifier.h"
#include "ToolKit/Identity/OSVersion.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <limits>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;

namespace {

/// A line of the kernel's table of routes: a default route, unless the mask or the flags say otherwise.
QByteArray route(const QByteArray& interface, const QByteArray& metric = "0",
    const QByteArray& mask = "00000000", const QByteArray& flags = "0003")
{
    return interface + "\t00000000\t010200C0\t" + flags + "\t0\t0\t" + metric + '\t' + mask
        + "\t0\t0\t0   \n";
}

class IdentityTest : public testing::Test {
protected:
    /// Puts `content` into the file of this name, below the temporary folder. Returns its path.
    QString file(const QString& name, const QByteArray& content)
    {
        QString path = folder_.filePath(name);
        EXPECT_TRUE(quor::test::writeFile(path, content));
        return path;
    }

    [[nodiscard]] DeviceIdentifier::Paths paths() const
    {
        const auto in = [this](const char* name) { return folder_.filePath(QString::fromLatin1(name)); };
        return {in("route"), in("ipv6_route"), in("net"), in("machine-info"), in("hostname")};
    }

    /// Returns whether the identifier is made from `text`, an address or a name.
    [[nodiscard]] bool identifies(const QString& text) const
    {
        return DeviceIdentifier::identifier(paths()) == sha256(text);
    }

private:
    QTemporaryDir folder_;
};

TEST_F(IdentityTest, FollowsTheDefaultRoute)
{
    file(u"hostname"_s, "box\n");
    EXPECT_TRUE(identifies(u"box"_s)) << "with no network at all";
    for (const auto& [name, address] : std::initializer_list<std::pair<QString, QByteArray>>{
             {u"no-lo"_s, "00:00:00:00:00:00"}, {u"no-tun"_s, ""}, {u"no-eth0"_s, "A4:83:E7:12:9F:01"},
             {u"no-eth1"_s, "02:00:00:00:00:02"}, {u"no-wlan"_s, "02:00:00:00:00:03"}})
        file(u"net/%1/address"_s.arg(name), address + '\n');
    EXPECT_TRUE(identifies(u"box"_s)) << "with virtual interfaces alone";
    file(u"net/no-eth1/device/vendor"_s, "0x1af4\n");
    EXPECT_TRUE(identifies(u"02:00:00:00:00:02"_s)) << "offline, with a device";

    const QByteArray none(32, '0');
    const QByteArray ipv6 = none + " 00 " + none + " 00 " + none;
    file(u"ipv6_route"_s,
        ipv6 + " ffffffff 00000001 00000000 00200200 no-eth1\n" // a route that rejects packets
            + "fd" + none.sliced(2) + " 40 " + none + " 00 " + none
            + " 00000001 00000001 00000000 00000001 no-eth1\n" + ipv6
            + " 00000400 00000002 00000000 00000003    no-wlan\n");
    EXPECT_TRUE(identifies(u"02:00:00:00:00:03"_s)) << "with IPv6 alone";

    file(u"route"_s,
        "Iface\tDestination\tGateway \n\tgarbage\n" + route("no-eth1", "0", "000000FF")
            + route("no-eth1", "1", "00000000", "0201") + route("no-eth1", "700") + route("no-eth0", "100")
            + route("no-wlan", "100") + route("no-tun", "50") + route("no-lo", "53") + route("gone", "54"));
    EXPECT_TRUE(identifies(u"a4:83:e7:12:9f:01"_s)) << "by the least metric that has an address";
}

TEST_F(IdentityTest, KeepsThePermanentAddressWhileTheInterfaceUsesAnother)
{
    const QString real = u"/sys/class/net/%1/%2"_s;
    for (const QString& name : QDir(u"/sys/class/net"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QByteArray address = quor::test::readFile(real.arg(name, u"address"_s)).trimmed();
        const bool isPermanent = quor::test::readFile(real.arg(name, u"addr_assign_type"_s)) == "0\n";
        if (!isPermanent || address.size() != 17 || address == "00:00:00:00:00:00")
            continue;
        file(u"net/%1/address"_s.arg(name), "02:00:00:00:00:09\n");
        file(u"route"_s, route(name.toUtf8()));
        EXPECT_TRUE(identifies(QString::fromLatin1(address))) << qPrintable(name);
        return;
    }
    GTEST_SKIP() << "no interface of this machine uses its permanent address";
}

TEST_F(IdentityTest, NamesTheDevice)
{
    file(u"hostname"_s, "(none)\n");
    EXPECT_EQ(DeviceIdentifier::deviceName(paths()), u"Default Device Name");
    file(u"hostname"_s, "box\n");
    EXPECT_EQ(DeviceIdentifier::deviceName(paths()), u"box");
    file(u"machine-info"_s, "CHASSIS=laptop\nPRETTY_HOSTNAME=\"Jörg's \\\"small\\\" box\"\n");
    EXPECT_EQ(DeviceIdentifier::deviceName(paths()), u"Jörg's \"small\" box");
}

TEST_F(IdentityTest, ReadsTheVersionOfTheSystem)
{
    for (const auto& [content, version] : std::initializer_list<std::pair<const char*, const char*>>{
             {"NAME=Debian\nVERSION_ID=\"12\"\n", "12"}, {"VERSION_ID='22.04'", "22.04"},
             {"  VERSION_ID=39 \r\n", "39"}, {"VERSION_ID=1\nVERSION_ID=2", "2"}, {"", "None"},
             {"#VERSION_ID=1\nMY_VERSION_ID=2\nVERSION_ID", "None"}, {"VERSION_ID=\"\"", "None"},
             {"VERSION_ID=\"1", "None"}, {"VERSION_ID=\"", "None"}, {"VERSION_ID='1'2", "None"},
             {R"(VERSION_ID="a\$b\c\\")", R"(a$b\c\)"}, {R"(VERSION_ID="1\")", "None"},
             {"\xff\xfe\0", "None"}})
        EXPECT_EQ(OSVersion::productVersion({file(u"os-release"_s, content)}).toStdString(), version)
            << content;
    const QString second = file(u"second"_s, "VERSION_ID=3");
    EXPECT_EQ(OSVersion::productVersion({u"/nowhere"_s, u"/"_s, second}), u"3");
    EXPECT_EQ(OSVersion::productVersion({}), u"None");
}

TEST_F(IdentityTest, KnowsTheApplicationsVersion)
{
    for (const QString& set : {u"3.1.2 (2847)"_s, u"3.1.2"_s, QString()}) {
        QCoreApplication::setApplicationVersion(set);
        EXPECT_EQ(shortVersion(), set.isEmpty() ? u"0.0.0"_s : u"3.1.2"_s);
        EXPECT_EQ(versionDescription(), set.isEmpty() ? u"0.0.0"_s : set);
    }
    const QString texts = file(u"en.lproj/Localizable.json"_s, R"({"Greeting": "Hello"})");
    const quor::platform::Bundle bundle(QDir::cleanPath(texts + "/../.."_L1));
    EXPECT_EQ(localized(u"Greeting"_s, bundle), u"Hello");
}

TEST(NumericVersion, OrdersVersionsAndSurvivesAnything)
{
    for (const auto& [text, number] :
        std::initializer_list<std::pair<QStringView, qint64>>{{u"14.2.1", 140201}, {u"14.2", 140200},
            {u"14", 0}, {u"1..2", 10200}, {u"1.2.3.4", 10203}, {u"+1.-2.x.3", 9803}, {u"1. 2.3", 10300},
            {u"", 0}, {u"1.2-beta.3", 10300}, {u"٣.٤", 0}, {u"9223372036854775808.1.2", 10200},
            {u"9223372036854775807.1", std::numeric_limits<qint64>::max()}})
        EXPECT_EQ(numericVersion(text), number) << text.toUtf8().constData();
}

} // namespace
