// SPDX-License-Identifier: MIT
#include "OtherWindow.h"
#include "Platform/Linux/QtApplication.h"
#include "Platform/Linux/X11/X11WindowServer.h"
#include "Platform/Services/Appearance.h"
#include "Platform/Views/Popover.h"
#include "Platform/Views/ViewController.h"
#include "Support/WaitFor.h"
#include "Xdotool.h"

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <QWindow>

#include <gtest/gtest.h>

#include <algorithm>

#include <xcb/xfixes.h>

using namespace Qt::StringLiterals;
using namespace quor::platform;
using quor::test::at;
using quor::test::OtherWindow;
using quor::test::waitFor;
using quor::test::xdotool;
using Behavior = Popover::Behavior;

namespace {

/// Shows a text field, a button and some background below them.
class Content final : public ViewController {
public:
    bool cancels = false;
    int cancelled = 0;
    QLineEdit* field = nullptr;
    QPushButton* button = nullptr;

protected:
    std::unique_ptr<QWidget> loadView() override
    {
        auto view = std::make_unique<QWidget>();
        auto* column = new QVBoxLayout(view.get());
        field = new QLineEdit;
        button = new QPushButton(u"inside"_s);
        column->addWidget(field);
        column->addWidget(button);
        column->addSpacing(60);
        return view;
    }
    bool cancelOperation() override
    {
        ++cancelled;
        return cancels;
    }
};

class Delegate final : public PopoverDelegate {
public:
    explicit Delegate(Popover& popover)
        : popover_(&popover)
    {
        popover.setDelegate(this);
    }
    ~Delegate()
    {
        if (auto* popover = popover_.get())
            popover->setDelegate(nullptr);
    }
    bool popoverShouldClose(Popover&) override
    {
        ++asked;
        call("shouldClose");
        return closes;
    }
    bool popoverShouldDetach(Popover&) override
    {
        call("shouldDetach");
        return detaches;
    }
    void popoverDidClose(Popover&) override
    {
        ++closed;
        call("didClose");
    }

    bool closes = true;
    bool detaches = true;
    int asked = 0;
    int closed = 0;
    std::function<void(std::string_view)> during;

private:
    void call(std::string_view name) const
    {
        if (const auto action = during)
            action(name);
    }
    TrackedPointer<Popover> popover_;
};

// The height of the lowest rectangle that the shape of a window consists of, in device pixels; 0 if the
// window is one rectangle.
int lowestStep(xcb_connection_t* x, WId window)
{
    const xcb_xfixes_region_t region = xcb_generate_id(x);
    (void)x11Reply(xcb_xfixes_query_version_reply(x, xcb_xfixes_query_version(x, 2, 0), nullptr));
    xcb_xfixes_create_region_from_window(x, region, xcb_window_t(window), XCB_SHAPE_SK_BOUNDING);
    const auto reply
        = x11Reply(xcb_xfixes_fetch_region_reply(x, xcb_xfixes_fetch_region(x, region), nullptr));
    xcb_xfixes_destroy_region(x, region);
    const int count = xcb_xfixes_fetch_region_rectangles_length(reply.get());
    const auto* first = xcb_xfixes_fetch_region_rectangles(reply.get());
    const auto* lowest = std::min_element(
        first, first + count, [](const auto& a, const auto& b) { return a.height < b.height; });
    return count > 1 ? lowest->height : 0;
}

// Places of the pointer are in device pixels.
class PopoverX11Test : public testing::Test {
protected:
    PopoverX11Test()
    {
        window->setWindowTitle(u"Tasks"_s);
        window->setGeometry(300, 200, 300, 200);
        anchor->setGeometry(100, 20, 100, 30);
        elsewhere->setGeometry(5, 150, 50, 30);
        second.setGeometry(20, 500, 100, 40);
        other.sync();
    }
    void SetUp() override
    {
        ASSERT_TRUE(waitFor([&] { return other.isShown(); }));
        second.show();
        window->show();
        ASSERT_TRUE(waitFor([&] { return second.windowHandle()->isExposed(); }));
        QtApplication().activate(*window);
        ASSERT_TRUE(waitFor([&] { return window->isActiveWindow(); }));
        popover->setContentViewController(content);
    }
    void TearDown() override
    {
        // After a click a window manager may still hold the pointer.
        EXPECT_TRUE(waitFor([&] { return other.grabPointer(); }));
    }

    void open(Behavior behavior = Behavior::semitransient)
    {
        popover->setBehavior(behavior);
        popover->show(anchor->rect(), *anchor, RectEdge::maxY);
        ASSERT_TRUE(waitFor([&] { return popover->window()->isActiveWindow(); }));
    }
    [[nodiscard]] QPoint placeOf(const QWidget& view, QPoint point) const
    {
        const auto place = QPointF(view.mapTo(view.window(), point)) * qApp->devicePixelRatio();
        return other.onDesktop(xcb_window_t(view.window()->winId()), place.toPoint());
    }
    [[nodiscard]] QPoint middleOf(const QWidget& view) const { return placeOf(view, view.rect().center()); }
    void click(QPoint place) const { EXPECT_TRUE(xdotool(at(place) + u"click 1"_s)); }
    // A click on a button, which it has handled when this returns.
    void click(QPushButton& button) const
    {
        bool isClicked = false;
        const auto connection
            = QObject::connect(&button, &QPushButton::clicked, qApp, [&] { isClicked = true; });
        click(middleOf(button));
        EXPECT_TRUE(waitFor([&] { return isClicked; })) << qPrintable(button.text());
        QObject::disconnect(connection);
    }
    void drag(QPoint from, QPoint to) const
    {
        const QPoint between = (from + to) / 2;
        EXPECT_TRUE(xdotool(at(from) + u"mousedown 1 "_s + at(between) + at(to)));
    }
    bool closes()
    {
        return waitFor([&] { return !popover->isShown(); });
    }
    [[nodiscard]] int gapToAnchor() const
    {
        return popover->window()->geometry().top() - anchor->mapToGlobal(QPoint(0, anchor->height())).y();
    }

    X11WindowServer server;
    Appearance appearance;
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    QPushButton* anchor = new QPushButton(u"anchor"_s, window.get());
    QPushButton* elsewhere = new QPushButton(u"elsewhere"_s, window.get());
    QPushButton second{u"second"_s};
    OtherWindow other{{900, 500}};
    std::shared_ptr<Content> content = std::make_shared<Content>();
    std::unique_ptr<Popover> popover = std::make_unique<Popover>(server, appearance);
};

} // namespace

TEST_F(PopoverX11Test, TakesTheKeyboardAndGivesItBackOnEscape)
{
    QShortcut shortcut(QKeySequence(Qt::Key_Escape), window.get());
    open();
    EXPECT_FALSE(content->field->hasFocus()) << "nothing gets the focus by itself";
    content->cancels = true;
    EXPECT_TRUE(xdotool(u"key Escape"_s));
    EXPECT_TRUE(waitFor([&] { return content->cancelled == 1; }));
    EXPECT_TRUE(xdotool(u"key Tab type abc"_s));
    EXPECT_TRUE(waitFor([&] { return content->field->text() == u"abc"_s; }));
    EXPECT_TRUE(xdotool(u"key Escape"_s));
    EXPECT_TRUE(waitFor([&] { return content->cancelled == 2; }));
    EXPECT_TRUE(popover->isShown());

    content->cancels = false;
    Delegate delegate(*popover);
    delegate.closes = false;
    EXPECT_TRUE(xdotool(u"key Escape"_s));
    EXPECT_TRUE(waitFor([&] { return delegate.asked == 1; }));
    EXPECT_TRUE(popover->isShown());
    delegate.closes = true;
    EXPECT_TRUE(xdotool(u"key Escape"_s));
    EXPECT_TRUE(closes());
    EXPECT_EQ(delegate.closed, 1);
    EXPECT_EQ(content->view().parent(), nullptr) << "the controller keeps its view";
    EXPECT_TRUE(waitFor([&] { return window->isActiveWindow(); }));
}

TEST_F(PopoverX11Test, APressElsewhereClosesItAsItsBehaviorSays)
{
    int presses = 0;
    for (auto* button : {elsewhere, &second})
        QObject::connect(button, &QPushButton::pressed, qApp, [&] { ++presses; });
    const auto pressOther = [&] { click(other.middle()); };
    const std::tuple<const char*, std::function<void()>, Behavior, bool> cases[] = {
        {"its window", [&] { click(*elsewhere); }, Behavior::applicationDefined, false},
        {"its window", [&] { click(*elsewhere); }, Behavior::semitransient, true},
        {"its window", [&] { click(*elsewhere); }, Behavior::transient, true},
        {"another window", [&] { click(second); }, Behavior::semitransient, false},
        {"another window", [&] { click(second); }, Behavior::transient, true},
        {"another program", pressOther, Behavior::semitransient, false},
        {"inside", [&] { click(*content->button); }, Behavior::transient, false},
        {"its shadow",
            [&] {
                click(placeOf(*popover->window(), {3, 3}));
            },
            Behavior::applicationDefined, false},
    };
    for (const auto& [name, press, behavior, expected] : cases) {
        open(behavior);
        press();
        if (expected) {
            EXPECT_TRUE(closes()) << name << int(behavior);
            continue;
        }
        click(*content->button);
        EXPECT_TRUE(popover->isShown()) << name << int(behavior);
        popover->close();
    }
    EXPECT_EQ(presses, 5) << "a press that closes the popover takes its normal effect";

    open(Behavior::transient);
    // Again and again, as the window manager may still be about to give the keyboard to the popover.
    EXPECT_TRUE(waitFor([&] {
        if (!other.hasKeyboard())
            xcb_set_input_focus(other.x, XCB_INPUT_FOCUS_PARENT, other.id, XCB_CURRENT_TIME);
        return !popover->isShown();
    })) << "the keyboard went to another program";
}

TEST_F(PopoverX11Test, ASecondClickOnTheButtonThatOpenedItCloses)
{
    Delegate delegate(*popover);
    int opened = 0;
    QObject::connect(anchor, &QPushButton::clicked, qApp, [&] {
        if (popover->isShown())
            return popover->close();
        ++opened;
        popover->show(anchor->rect(), *anchor, RectEdge::maxY);
    });
    for (const auto behavior : {Behavior::semitransient, Behavior::transient}) {
        popover->setBehavior(behavior);
        for (int time = 0; time < 3; ++time) {
            opened = delegate.closed = 0;
            click(*anchor);
            ASSERT_TRUE(popover->isShown());
            ASSERT_TRUE(waitFor([&] { return popover->window()->isActiveWindow(); }));
            click(*anchor);
            EXPECT_FALSE(popover->isShown()) << int(behavior);
            EXPECT_EQ(opened, 1);
            EXPECT_EQ(delegate.closed, 1);
        }
    }
    anchor->disconnect();
    open();
    click(*anchor);
    EXPECT_TRUE(closes()) << "a click that has no effect on the popover is one outside it";
}

TEST_F(PopoverX11Test, FollowsItsAnchor)
{
    open();
    EXPECT_EQ(gapToAnchor(), 0);
    const auto anchorMiddle = [&] { return anchor->mapToGlobal(anchor->rect().center()).x(); };
    const auto isBelow = [&] {
        return gapToAnchor() == 0 && qAbs(popover->window()->geometry().center().x() - anchorMiddle()) <= 1;
    };
    EXPECT_TRUE(isBelow());
    window->move(500, 100);
    EXPECT_TRUE(waitFor([&] { return window->x() > 450 && isBelow(); })) << "the window moves";
    anchor->move(150, 60);
    EXPECT_TRUE(waitFor(isBelow)) << "the view moves";
    const QSize before = popover->window()->size();
    popover->setContentSize(popover->contentSize() + QSize(80, 40));
    EXPECT_TRUE(waitFor([&] { return popover->window()->size() == before + QSize(80, 40) && isBelow(); }));
    popover->setContentSize({5000, 5000});
    const QRect screen = window->screen()->availableGeometry();
    EXPECT_TRUE(waitFor([&] { return popover->window()->height() == screen.height(); }));
    EXPECT_TRUE(screen.contains(popover->window()->geometry()));

    anchor->hide();
    EXPECT_TRUE(closes()) << "the anchor is hidden";
    anchor->show();
    open();
    window->hide();
    EXPECT_FALSE(popover->isShown()) << "the window is hidden";
}

TEST_F(PopoverX11Test, APressInAPopoverDoesNotCloseTheOneThatItWasOpenedFrom)
{
    open(Behavior::transient);
    auto childContent = std::make_shared<Content>();
    Popover child(server, appearance);
    child.setBehavior(Behavior::semitransient);
    child.setContentViewController(childContent);
    child.show(content->button->rect(), *content->button, RectEdge::maxX);
    ASSERT_TRUE(waitFor([&] { return child.window()->isActiveWindow(); }));
    click(*childContent->button);
    EXPECT_TRUE(child.isShown());
    EXPECT_TRUE(popover->isShown());
    EXPECT_TRUE(xdotool(u"key Escape"_s));
    EXPECT_TRUE(waitFor([&] { return !child.isShown(); }));
    EXPECT_TRUE(waitFor([&] { return popover->isShown() && popover->window()->isActiveWindow(); }));
    child.show(content->button->rect(), *content->button, RectEdge::maxX);
    ASSERT_TRUE(waitFor([&] { return child.window()->isActiveWindow(); }));
    click(*elsewhere);
    EXPECT_TRUE(closes());
    EXPECT_TRUE(waitFor([&] { return !child.isShown(); }));
}

TEST_F(PopoverX11Test, DraggingTheBackgroundMakesItAWindow)
{
    Delegate delegate(*popover);
    delegate.detaches = false;
    open();
    const auto background = [&] {
        return placeOf(content->view(), QPoint(content->view().width() / 2, content->view().height() - 15));
    };
    const QPoint way(120, 90);
    drag(background(), background() + way);
    EXPECT_TRUE(xdotool(u"mouseup 1"_s));
    click(*content->button);
    EXPECT_FALSE(popover->isDetached());

    delegate.detaches = true;
    const QPoint before = content->view().mapToGlobal(QPoint());
    drag(background(), background() + way);
    EXPECT_TRUE(waitFor([&] { return popover->isDetached(); }));
    EXPECT_TRUE(xdotool(u"mouseup 1"_s));
    EXPECT_TRUE(waitFor(
        [&] { return popover->window()->windowType() == Qt::Tool && popover->window()->isActiveWindow(); }));
    EXPECT_EQ(popover->window()->windowTitle(), u"Tasks"_s);
    const auto moved = content->view().mapToGlobal(QPoint()) - before;
    EXPECT_LE((moved - way / qApp->devicePixelRatio()).manhattanLength(), 4);
    click(*elsewhere);
    click(*content->button);
    EXPECT_TRUE(popover->isShown());
    window->hide();
    EXPECT_TRUE(closes()) << "it ends with the window that it was torn off from";
    EXPECT_EQ(delegate.closed, 1);
}

TEST_F(PopoverX11Test, IsCutOutWhileThereIsNoCompositor)
{
    open();
    const auto isCutOut = [&] { return lowestStep(other.x, popover->window()->winId()) > 0; };
    EXPECT_TRUE(waitFor([&] { return isCutOut(); }));
    EXPECT_EQ(lowestStep(other.x, popover->window()->winId()), 1) << "in device pixels";
    auto* compositor = xcb_connect(nullptr, nullptr);
    quor::test::OtherWindow owner({0, 0});
    xcb_set_selection_owner(owner.x, owner.id, x11Atom(owner.x, "_NET_WM_CM_S0"), XCB_CURRENT_TIME);
    owner.sync();
    xcb_disconnect(compositor);
    EXPECT_TRUE(waitFor([&] { return !isCutOut(); }));
    const auto* accessible = QAccessible::queryAccessibleInterface(popover->window());
    EXPECT_EQ(accessible->role(), QAccessible::Dialog);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"Tasks"_s);
}

TEST_F(PopoverX11Test, AnythingMayEndInAHandler)
{
    const std::tuple<const char*, std::function<void()>> ends[] = {
        {"popover", [&] { popover.reset(); }},
        {"content", [&] { popover->setContentViewController({}), content = std::make_shared<Content>(); }},
        {"anchor", [&] { delete anchor, anchor = nullptr; }},
        {"window", [&] { window.reset(), anchor = elsewhere = nullptr; }},
        {"closed", [&] { popover->close(); }},
        {"shown again", [&] { popover->show(anchor->rect(), *anchor, RectEdge::minY); }},
    };
    for (const std::string_view where : {"click", "shouldClose", "didClose", "shouldDetach", "cancel"}) {
        for (const auto& [name, end] : ends) {
            window = std::make_unique<QWidget>();
            window->setGeometry(300, 200, 300, 200);
            anchor = new QPushButton(u"anchor"_s, window.get());
            elsewhere = new QPushButton(u"elsewhere"_s, window.get());
            anchor->setGeometry(100, 20, 100, 30);
            elsewhere->setGeometry(5, 150, 50, 30);
            window->show();
            content = std::make_shared<Content>();
            popover = std::make_unique<Popover>(server, appearance);
            popover->setContentViewController(content);
            open();
            bool hasEnded = false;
            const auto endOnce = [&hasEnded, &end = end] {
                if (!std::exchange(hasEnded, true))
                    end();
            };
            Delegate delegate(*popover);
            delegate.during = [&](std::string_view called) {
                if (called == where)
                    endOnce();
            };
            QObject::connect(content->button, &QPushButton::clicked, qApp, endOnce);
            if (where == "click")
                click(middleOf(*content->button));
            else if (where == "shouldDetach")
                drag(placeOf(content->view(), {30, content->view().height() - 10}),
                    placeOf(content->view(), {80, content->view().height() + 30}));
            else if (where == "cancel")
                delegate.during = [&](std::string_view) { endOnce(); }, xdotool(u"key Escape"_s);
            else
                click(middleOf(*elsewhere));
            EXPECT_TRUE(waitFor([&] { return hasEnded; })) << where << ": " << name;
            if (where == "shouldDetach")
                xdotool(u"mouseup 1"_s);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCoreApplication::processEvents();
            EXPECT_TRUE(waitFor([&] { return other.grabPointer(); }));
            xcb_ungrab_pointer(other.x, XCB_CURRENT_TIME);
            other.sync();
        }
    }
}
