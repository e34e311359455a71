// SPDX-License-Identifier: MIT
#include "System/ScreenReader.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

constexpr int rowsRead = 40;
const auto accessible = u"org.a11y.atspi.Accessible"_s;
const auto root = u"/org/a11y/atspi/accessible/root"_s;

constexpr uint selectedState = 1U << 23U;
constexpr uint showingState = 1U << 25U;

QRect rectangle(const QVariant& value)
{
    const auto argument = value.value<QDBusArgument>();
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    argument.beginStructure();
    argument >> x >> y >> width >> height;
    argument.endStructure();
    return {x, y, width, height};
}

QString pathIn(const QVariant& reference)
{
    QString bus;
    QDBusObjectPath path;
    const auto argument = reference.value<QDBusArgument>();
    argument.beginStructure();
    argument >> bus >> path;
    argument.endStructure();
    return path.path();
}

} // namespace

ScreenReader::ScreenReader()
{
    // Inherited by the programs. Without it, they would ask the bus whether to be accessible, and wait.
    qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    bus_.connection().registerObject(u"/org/a11y/bus"_s, this, QDBusConnection::ExportScriptableSlots);
    EXPECT_EQ(bus_.claim(u"org.a11y.Bus"_s), platform::SessionBus::Claim::claimed);
}

QString ScreenReader::GetAddress() const
{
    return platform::SessionBus::sessionAddress();
}

QVariant ScreenReader::ask(
    const QString& path, const QString& interface, const QString& method, const QVariantList& arguments) const
{
    auto message = QDBusMessage::createMethodCall(program_, path, interface, method);
    message.setArguments(arguments);
    return bus_.connection().call(message).arguments().value(0);
}

QVariant ScreenReader::property(const QString& path, const QString& name) const
{
    return ask(path, u"org.freedesktop.DBus.Properties"_s, u"Get"_s, {accessible, name})
        .value<QDBusVariant>()
        .variant();
}

std::vector<ScreenReader::Thing> ScreenReader::read(qint64 pid)
{
    auto* names = bus_.connection().interface();
    if (program_.isEmpty() || names->servicePid(program_) != pid) {
        const QStringList all = names->registeredServiceNames();
        // The program can have several connections. Only one serves assistive programs.
        const auto found = std::find_if(all.begin(), all.end(), [&](const QString& name) {
            program_ = name;
            return name.startsWith(u':') && names->servicePid(name) == pid
                && property(root, u"ChildCount"_s).isValid();
        });
        if (found == all.end())
            program_.clear();
    }
    std::vector<Thing> things;
    if (!program_.isEmpty())
        readInto(things, root);
    return things;
}

void ScreenReader::readInto(std::vector<Thing>& things, const QString& path) const
{
    if (path != root) {
        const auto state = qdbus_cast<QList<uint>>(ask(path, accessible, u"GetState"_s)).value(0);
        if (!(state & showingState))
            return;
        const auto frame = ask(path, u"org.a11y.atspi.Component"_s, u"GetExtents"_s, {0U});
        if (!frame.isValid())
            return; // gone in the meantime
        things.push_back(
            {property(path, u"Name"_s).toString(), rectangle(frame), (state & selectedState) != 0});
    }
    const int children = std::min(rowsRead, property(path, u"ChildCount"_s).toInt());
    for (int child = 0; child < children; ++child) {
        if (const auto reference = ask(path, accessible, u"GetChildAtIndex"_s, {child}); reference.isValid())
            readInto(things, pathIn(reference));
    }
}

} // namespace quor::test
