// SPDX-License-Identifier: MIT
#include "OtherWindow.h"
#include "Platform/Linux/Bus/DBusWorkspace.h"
#include "Platform/Linux/Bus/SessionBus.h"
#include "Platform/Linux/Monitors/X11EventMonitors.h"
#include "Platform/Linux/QtApplication.h"
#include "Platform/Linux/X11/X11WindowServer.h"
#include "Support/WaitFor.h"
#include "ToolKit_macOS/WarningAlert.h"
#include "Xdotool.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;
using namespace quor::platform;
using quor::test::at;
using quor::test::OtherWindow;
using quor::test::waitFor;
using quor::test::xdotool;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr EventMask allTypes = 30; // a bit for each of the types 1 to 4
constexpr EventMask presses = 10; // the bits of leftMouseDown and rightMouseDown

/// A window that consists of one control, which has the keyboard whenever the window is active.
class Field final : public QLineEdit {
public:
    // When the keyboard goes straight from one window of an application to another, Qt gives it to a window
    // without children only if that window is known as its own focus widget.
    Field() { setFocus(); }
};

// Pointer positions are in device pixels.
class InputX11Test : public testing::Test {
protected:
    InputX11Test()
    {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& message) {
            EXPECT_FALSE(message.contains(u"xcb"_s, Qt::CaseInsensitive)) << qPrintable(message);
        });
        ours.setGeometry(10, 60, 150, 60);
        ours.setContextMenuPolicy(Qt::NoContextMenu);
    }
    ~InputX11Test() override { qInstallMessageHandler(nullptr); }

    void SetUp() override
    {
        ASSERT_TRUE(waitFor([&] { return other.isShown(); }));
        ours.show();
        application.activate(ours);
        ASSERT_TRUE(waitFor([&] { return ours.hasFocus(); }));
    }
    void TearDown() override
    {
        // After a click, a window manager grabs the pointer until it has handled the click. The window must
        // be there for that.
        xcb_map_window(other.x, other.id);
        EXPECT_TRUE(waitFor([&] { return other.grabPointer(); }));
    }
    [[nodiscard]] QPoint middleOfOurs() const
    {
        const auto middle = QPointF(ours.rect().center()) * scale;
        return other.onDesktop(xcb_window_t(ours.winId()), middle.toPoint());
    }
    static bool click(QPoint place, int button = 1) { return xdotool(at(place) + u"click %1"_s.arg(button)); }

    // The events that xdotool causes. After that, and when the pointer is free, a click on the desktop
    // follows: when it has arrived, all have.
    std::vector<InputEvent> globalEventsOf(
        const QString& arguments, const std::function<bool()>& isPointerFree = [] { return true; })
    {
        std::vector<InputEvent> events;
        const auto token
            = monitors.addGlobalMonitor(allTypes, [&](const auto& event) { events.push_back(event); });
        EXPECT_TRUE(token);
        EXPECT_TRUE(xdotool(arguments));
        EXPECT_TRUE(waitFor(isPointerFree));
        EXPECT_TRUE(click(desktop));
        EXPECT_TRUE(waitFor([&] {
            return !events.empty() && events.back().type == EventType::leftMouseUp
                && isAt(desktop, events.back());
        }));
        events.resize(std::max<std::size_t>(events.size(), 2) - 2);
        monitors.removeMonitor(token.value_or(EventMonitors::Token{}));
        return events;
    }
    [[nodiscard]] bool isAt(QPoint place, const InputEvent& event) const
    {
        return (event.screenLocation * scale - place).manhattanLength() < 2 * scale;
    }
    static std::vector<EventType> typesOf(const std::vector<InputEvent>& events)
    {
        std::vector<EventType> types(events.size());
        std::ranges::transform(events, types.begin(), &InputEvent::type);
        return types;
    }

    const double scale = qApp->devicePixelRatio();
    const QPoint desktop{1200, 700};
    SessionBus bus;
    X11EventMonitors monitors;
    DBusWorkspace workspace{bus};
    QtApplication application;
    Field ours;
    OtherWindow other{{700, 300}};
};

} // namespace

TEST_F(InputX11Test, GlobalMonitorsSeeOnlyWhatOtherApplicationsGet)
{
    using enum EventType;
    const auto us = middleOfOurs(), them = other.middle();
    const std::tuple<QString, std::vector<EventType>> cases[] = {
        {at(us) + u"click 1 click 3 click 2 "_s + at(them).trimmed(), {}},
        {at(us) + u"mousedown 1 "_s + at(them) + u"mouseup 1 click 2 click 4"_s, {}},
        {at(them) + u"click 1 click 1"_s, {leftMouseDown, leftMouseUp, leftMouseDown, leftMouseUp}},
    };
    for (const auto& [what, seen] : cases)
        EXPECT_EQ(typesOf(globalEventsOf(what)), seen) << qPrintable(what);

    std::vector<InputEvent> dragged;
    const auto token
        = monitors.addGlobalMonitor(allTypes, [&](const auto& event) { dragged.push_back(event); });
    EXPECT_TRUE(xdotool(at(them) + u"keydown shift mousedown 1"_s));
    ASSERT_TRUE(waitFor([&] { return !dragged.empty(); }));
    EXPECT_TRUE(isAt(them, dragged[0]));
    EXPECT_EQ(dragged[0].modifiers, Qt::ShiftModifier);
    EXPECT_FALSE(dragged[0].window);
    EXPECT_TRUE(xdotool(u"keyup shift "_s + at(us) + u"mouseup 1"_s));
    EXPECT_TRUE(waitFor([&] { return dragged.size() == 2 && isAt(us, dragged[1]); }));
    EXPECT_THAT(typesOf(dragged), ElementsAre(leftMouseDown, leftMouseUp));
    monitors.removeMonitor(token.value());

    QMenu menu;
    menu.addAction(u"a"_s);
    menu.popup({300, 300});
    ASSERT_TRUE(waitFor([&] { return menu.windowHandle() && menu.windowHandle()->isExposed(); }));
    const auto isMenuClosed = [&] { return other.grabPointer(); };
    EXPECT_THAT(globalEventsOf(at(them) + u"click 1"_s, isMenuClosed), IsEmpty()) << "it closes the menu";
    EXPECT_EQ(globalEventsOf(at(them) + u"click 1"_s).size(), 2U);
}

TEST_F(InputX11Test, GlobalMonitorsFollowTheUsersMappingOfButtons)
{
    const std::uint8_t exchanged[]{3, 2, 1}, usual[]{1, 2, 3};
    const auto map = [&](const std::uint8_t* three) {
        const auto now
            = x11Reply(xcb_get_pointer_mapping_reply(other.x, xcb_get_pointer_mapping(other.x), nullptr));
        auto* buttons = xcb_get_pointer_mapping_map(now.get());
        std::copy_n(three, 3, buttons);
        const auto reply = x11Reply(xcb_set_pointer_mapping_reply(
            other.x, xcb_set_pointer_mapping(other.x, now->map_len, buttons), nullptr));
        return reply->status == XCB_MAPPING_STATUS_SUCCESS; // refused while a button is down
    };
    std::vector<EventType> types;
    const auto token
        = monitors.addGlobalMonitor(presses, [&](const auto& event) { types.push_back(event.type); });
    EXPECT_TRUE(waitFor([&] { return map(exchanged); }));
    click(other.middle(), 1);
    EXPECT_TRUE(waitFor([&] { return types.size() == 1; }));
    EXPECT_TRUE(waitFor([&] { return map(usual); }));
    monitors.removeMonitor(token.value());
    EXPECT_THAT(types, ElementsAre(EventType::rightMouseDown));
}

TEST_F(InputX11Test, GlobalHandlersMayRemoveMonitorsAndDestroyTheirObject)
{
    auto mine = std::make_unique<X11EventMonitors>();
    QStringList calls;
    std::optional<EventMonitors::Token> first, second;
    first = mine->addGlobalMonitor(presses, [&](const auto&) {
        calls += u"first"_s;
        mine->removeMonitor(*second);
        mine->removeMonitor(*first);
    });
    second = mine->addGlobalMonitor(presses, [&](const auto&) { calls += u"second"_s; });
    const auto last = mine->addGlobalMonitor(presses, [&](const auto&) {
        calls += u"last"_s;
        if (calls.size() == 3)
            mine.reset();
    });
    EXPECT_TRUE(last);
    for (int press = 0; press < 3; ++press)
        click(other.middle());
    EXPECT_TRUE(waitFor([&] { return !mine; }));
    EXPECT_EQ(globalEventsOf(at(other.middle()) + u"click 1"_s).size(), 2U);
    EXPECT_THAT(calls, ElementsAre(u"first"_s, u"last"_s, u"last"_s));
}

TEST_F(InputX11Test, LocalMonitorsSeeEachEventOnceAndSwallowClicksWhole)
{
    int count = 0;
    const auto token = monitors.addLocalMonitor(presses, [&](const InputEvent& event) {
        ++count;
        EXPECT_EQ(event.window, ours.windowHandle());
        EXPECT_TRUE(isAt(middleOfOurs(), event));
        return std::nullopt;
    });
    ours.setText(u"word"_s);
    xdotool(at(middleOfOurs()) + u"click --repeat 2 1"_s);
    EXPECT_TRUE(waitFor([&] { return count == 2; }));
    monitors.removeMonitor(*token);
    EXPECT_EQ(ours.selectedText(), QString()) << "a double click selects";
    xdotool(at(desktop) + u"click 1 "_s + at(middleOfOurs()) + u"click --repeat 2 1"_s);
    EXPECT_TRUE(waitFor([&] { return ours.selectedText() == u"word"_s; }));
    EXPECT_EQ(count, 2);
}

TEST_F(InputX11Test, LocalMonitorsSeeKeysByPositionAndSwallowThem)
{
    std::vector<std::tuple<EventType, std::uint32_t, Qt::KeyboardModifiers>> seen;
    const auto token = monitors.addLocalMonitor(keyMask, [&](const InputEvent& event) {
        seen.emplace_back(event.type, event.keyCode.value_or(999), event.modifiers);
        EXPECT_EQ(event.window, ours.windowHandle());
        const bool isPassedOn = event.keyCode == 0x0BU; // B
        return isPassedOn ? std::optional(event) : std::nullopt;
    });
    xdotool(u"keydown super key z keyup super key b"_s);
    EXPECT_TRUE(waitFor([&] { return seen.size() == 6; }));
    constexpr auto command = Qt::MetaModifier;
    constexpr Qt::KeyboardModifiers plain = Qt::NoModifier;
    EXPECT_THAT(seen,
        ElementsAre(std::tuple(EventType::flagsChanged, 0x37U, command),
            std::tuple(EventType::keyDown, 0x06U, command), std::tuple(EventType::keyUp, 0x06U, command),
            std::tuple(EventType::flagsChanged, 0x37U, plain), std::tuple(EventType::keyDown, 0x0BU, plain),
            std::tuple(EventType::keyUp, 0x0BU, plain)));
    EXPECT_EQ(ours.text(), u"b"_s);
    monitors.removeMonitor(*token);
}

TEST_F(InputX11Test, TheKeyboardIsTakenAndGivenBack)
{
    ASSERT_EQ(bus.claim(u"com.example.Other"_s), SessionBus::Claim::claimed);
    const RunningApplication them{u"com.example.Other"_s, other.id};
    workspace.activate(them);
    ASSERT_TRUE(waitFor([&] { return other.hasKeyboard(); }));
    click(other.middle());
    EXPECT_EQ(workspace.frontmostApplication(), them);

    for (int time = 0; time < 3; ++time) {
        Field opened;
        opened.setGeometry(300, 60, 150, 40);
        opened.show();
        application.activate(opened);
        EXPECT_TRUE(waitFor([&] { return opened.hasFocus(); }));
        EXPECT_TRUE(waitFor([&] {
            return workspace.frontmostApplication()
                == RunningApplication{them.bundleIdentifier, opened.winId()};
        }));
        xdotool(u"type abc"_s);
        EXPECT_TRUE(waitFor([&] { return opened.text() == u"abc"_s; })) << qPrintable(opened.text());
        workspace.activate(them);
        opened.close();
        EXPECT_TRUE(waitFor([&] { return other.hasKeyboard(); }));
    }
}

TEST_F(InputX11Test, AnAlertBelongsToTheFrontmostWindowWhileTheUserWorksElsewhere)
{
    X11WindowServer server;
    QWidget second;
    second.setGeometry(60, 90, 150, 60);
    second.show();
    for (QWidget* front : {static_cast<QWidget*>(&ours), &second, static_cast<QWidget*>(&ours)}) {
        front->raise();
        // The window manager has seen the end of the last alert, and passes its focus on no more.
        EXPECT_TRUE(waitFor([&] {
            const auto windows = server.orderedWindows();
            return windows.size() == 2 && windows.front() == front->windowHandle();
        }));
        workspace.activate({{}, other.id});
        EXPECT_TRUE(waitFor([&] { return other.hasKeyboard() && !QApplication::focusWindow(); }));
        quor::toolkit::WarningAlert alert;
        alert.show({.buttonTitle = u"OK"_s, .windowServer = &server}, {});
        EXPECT_EQ(alert.alert()->parentWidget(), front);
        EXPECT_TRUE(waitFor([&] { return alert.alert()->isActiveWindow(); }));
    }
}

TEST_F(InputX11Test, ActivatingWindowsThatAreGoneHasNoEffect)
{
    RunningApplication gone;
    {
        const OtherWindow window({700, 500});
        gone.window = window.id;
    }
    workspace.activate(gone);
    workspace.activate({u"com.example.Nobody"_s, gone.window});
    workspace.activate({});
    xcb_unmap_window(other.x, other.id);
    other.sync();
    workspace.activate({{}, other.id});
    xcb_set_input_focus(other.x, XCB_INPUT_FOCUS_POINTER_ROOT, XCB_INPUT_FOCUS_NONE, XCB_CURRENT_TIME);
    other.sync();
    EXPECT_TRUE(waitFor([&] {
        const auto frontmost = workspace.frontmostApplication();
        return !frontmost || frontmost->window == ours.winId();
    }));
    QLineEdit hidden;
    application.activate(hidden);
    application.activate(ours);
    EXPECT_TRUE(waitFor([&] { return ours.hasFocus(); }));
}
