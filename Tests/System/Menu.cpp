// SPDX-License-Identifier: MIT
#include "System/Menu.h"

#include "Platform/Linux/X11/X11Connection.h"
#include "Support/WaitFor.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using quor::platform::x11Connection;
using quor::platform::x11Reply;
using quor::platform::x11Root;

namespace quor::test {

namespace {

constexpr std::chrono::milliseconds limit = 15s;

qint64 processOf(xcb_window_t window)
{
    const auto pid = platform::x11Values(x11Connection(), window, "_NET_WM_PID");
    return pid.empty() ? 0 : pid[0];
}

// The frame of the first visible window of the process that is not at the upper edge of the screen. Skips
// windows that are destroyed meanwhile.
QRect menuBelow(xcb_window_t parent, qint64 pid)
{
    auto* const x = x11Connection();
    const auto tree = x11Reply(xcb_query_tree_reply(x, xcb_query_tree(x, parent), nullptr));
    if (!tree)
        return {};
    const auto* const children = xcb_query_tree_children(tree.get());
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
        const xcb_window_t window = children[i];
        const auto attributes
            = x11Reply(xcb_get_window_attributes_reply(x, xcb_get_window_attributes(x, window), nullptr));
        if (!attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE)
            continue;
        const auto size = x11Reply(xcb_get_geometry_reply(x, xcb_get_geometry(x, window), nullptr));
        const auto origin = x11Reply(xcb_translate_coordinates_reply(
            x, xcb_translate_coordinates(x, window, x11Root(x), 0, 0), nullptr));
        if (size && origin && origin->dst_y > 0 && pid != 0 && processOf(window) == pid)
            return {origin->dst_x, origin->dst_y, size->width, size->height};
        if (const QRect deeper = menuBelow(window, pid); !deeper.isNull())
            return deeper;
    }
    return {};
}

} // namespace

Menu::Menu(ScreenReader& reader, const Program& helper)
    : reader_(reader)
    , helper_(helper)
{
}

QRect Menu::frame() const
{
    return menuBelow(x11Root(x11Connection()), helper_.pid());
}

bool Menu::opens() const
{
    return waitFor([this] { return !frame().isNull(); }, limit);
}

bool Menu::closes() const
{
    return waitFor([this] { return frame().isNull(); }, limit);
}

std::optional<ScreenReader::Thing> Menu::find(const QString& name, int further) const
{
    if (frame().isNull())
        return {};
    for (const auto& thing : reader_.read(helper_.pid()))
        if (thing.name == name && further-- == 0)
            return thing;
    return {};
}

bool Menu::shows(const QString& name) const
{
    return waitFor([&] { return find(name).has_value(); }, limit);
}

bool Menu::selects(const QString& name) const
{
    return waitFor(
        [&] {
            QStringList selected;
            for (const auto& thing : reader_.read(helper_.pid()))
                if (thing.isSelected)
                    selected += thing.name;
            return selected == QStringList{name};
        },
        limit);
}

bool Menu::pointAt(const QString& name, int further, const QString& andThen) const
{
    std::optional<ScreenReader::Thing> thing;
    if (!waitFor([&] { return (thing = find(name, further)).has_value(); }, limit))
        return false;
    const QPoint place = thing->frame.center();
    xdotool(u"mousemove %1 %2"_s.arg(place.x()).arg(place.y()) + andThen);
    return true;
}

bool Menu::hover(const QString& name) const
{
    return pointAt(name, 0, {}) && selects(name);
}

bool Menu::click(const QString& name, int further) const
{
    return pointAt(name, further, u" click 1"_s);
}

TypingWindow::TypingWindow(QPoint place)
    : middle(place + QPoint(150, 20))
    , program_(u"typing-window"_s, {QString::number(place.x()), QString::number(place.y())})
{
    EXPECT_TRUE(waitFor([this] { return isActive(); }, limit));
}

QString TypingWindow::last(const QString& inLine)
{
    const QStringList lines = program_.output().split(u'\n').filter(inLine);
    return lines.value(lines.size() - 1);
}

bool TypingWindow::takesFocus()
{
    xdotool(u"search --all --onlyvisible --pid %1 --name typing windowfocus"_s.arg(pid()));
    return waitFor([this] { return isActive(); }, limit);
}

bool TypingWindow::isActive()
{
    return last(u"active"_s) == "active"_L1;
}

QString TypingWindow::text()
{
    return last(u"text "_s).mid(5);
}

bool TypingWindow::takes(const QString& typed)
{
    const QString wanted = text() + typed;
    if (!waitFor([this] { return isActive(); }, limit))
        return false;
    xdotool(u"type "_s + typed);
    return waitFor([&] { return text().size() >= wanted.size(); }, limit) && text() == wanted;
}

bool hasFocus(qint64 pid)
{
    auto* const x = x11Connection();
    const auto focus = x11Reply(xcb_get_input_focus_reply(x, xcb_get_input_focus(x), nullptr));
    return focus && processOf(focus->focus) == pid;
}

void xdotool(const QString& arguments)
{
    EXPECT_EQ(QProcess::execute(u"xdotool"_s, arguments.split(u' ')), 0) << qPrintable(arguments);
}

} // namespace quor::test
