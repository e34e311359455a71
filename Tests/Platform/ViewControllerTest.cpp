// SPDX-License-Identifier: MIT
#include "Platform/Views/ViewController.h"

#include "Platform/Services/Appearance.h"
#include "Platform/Views/Animation.h"
#include "Support/WaitFor.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProxyStyle>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTextEdit>
#include <QVBoxLayout>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace quor::platform;
using quor::test::waitFor;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Records its hooks as "name.hook".
class Recorder final : public ViewController {
public:
    Recorder(QString name, QStringList& calls)
        : name_(std::move(name))
        , calls_(calls)
    {
    }

    std::function<void(const QString& hook)> during;
    bool cancels = false;

protected:
    void viewDidLoad() override { call(u"load"_s); }
    void viewWillAppear() override { call(u"willAppear"_s); }
    void viewDidAppear() override { call(u"didAppear"_s); }
    void viewDidLayout() override { call(u"layout"_s); }
    bool cancelOperation() override
    {
        const bool had = cancels;
        call(u"cancel"_s);
        return had;
    }

private:
    void call(const QString& hook)
    {
        calls_ += name_ + u'.' + hook;
        if (const auto action = during)
            action(hook);
    }

    QString name_;
    QStringList& calls_;
};

class ViewControllerTest : public testing::Test {
protected:
    std::string callsOf(const std::function<void()>& action)
    {
        calls.clear();
        action();
        // Everything that the action has queued is handled before what is queued now.
        bool handled = false;
        QMetaObject::invokeMethod(
            qApp, [&] { handled = true; }, Qt::QueuedConnection);
        EXPECT_TRUE(waitFor([&] { return handled; }));
        return calls.join(u' ').toStdString();
    }

    QStringList calls;
    QWidget window;
    std::shared_ptr<Recorder> parent = std::make_shared<Recorder>(u"p"_s, calls);
    std::shared_ptr<Recorder> child = std::make_shared<Recorder>(u"c"_s, calls);
};

} // namespace

TEST_F(ViewControllerTest, ItsHooksFollowTheLifeOfTheView)
{
    QVBoxLayout* layout = nullptr;
    const std::tuple<const char*, std::function<void()>, std::string> steps[] = {
        {"made once", [&] { EXPECT_EQ(&child->view(), &child->view()); }, "c.load"},
        {"in a hidden window", [&] { child->view().setParent(&window), child->view().show(); }, ""},
        {"window shown", [&] { window.show(); }, "c.willAppear c.layout c.didAppear"},
        {"resized", [&] { child->view().resize(50, 50); }, "c.layout"},
        {"hidden and resized", [&] { child->view().hide(), child->view().resize(60, 60); }, ""},
        {"shown, hidden, shown", [&] { child->view().show(), child->view().hide(), child->view().show(); },
            "c.willAppear c.layout c.willAppear c.layout c.didAppear"},
        {"shown and hidden at once", [&] { child->view().hide(), child->view().show(), window.hide(); },
            "c.willAppear c.layout"},
        {"deleted by its parent", [&] { delete child->viewIfLoaded(), static_cast<void>(child->view()); },
            "c.load"},
        {"given a layout",
            [&] {
                layout = new QVBoxLayout(&child->view());
                child->view().setParent(&window), child->view().show(), window.show();
            },
            "c.willAppear c.layout c.layout c.didAppear"},
    };
    for (const auto& [name, action, expected] : steps)
        EXPECT_EQ(callsOf(action), expected) << name;

    auto* label = new QLabel(u"text"_s);
    bool isPlaced = false;
    child->during = [&](const QString& hook) { isPlaced = hook == u"layout" && label->width() > 500; };
    child->view().resize(600, 300);
    layout->addWidget(label);
    EXPECT_TRUE(waitFor([&] { return isPlaced; })) << "the layout comes before the hook";
}

TEST_F(ViewControllerTest, AControllerMayEndInAnyHook)
{
    for (const auto* hook : {"load", "willAppear", "layout", "didAppear", "cancel"}) {
        auto ending = std::make_shared<Recorder>(u"e"_s, calls);
        ending->during = [&](const QString& called) {
            if (called == QLatin1String(hook))
                ending.reset();
        };
        const std::weak_ptr<Recorder> life = ending;
        QWidget& view = ending->view();
        view.setParent(&window);
        view.setFocusPolicy(Qt::StrongFocus);
        view.show();
        window.show();
        EXPECT_TRUE(waitFor([&] {
            QTest::keyClick(&window, Qt::Key_Escape);
            if (auto* focused = window.findChild<QWidget*>())
                QTest::keyClick(focused, Qt::Key_Escape);
            return life.expired();
        })) << hook;
        window.hide();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_THAT(window.children(), IsEmpty()) << hook;
    }
}

TEST_F(ViewControllerTest, EscapeReachesTheControllersThatContainTheFocusFromTheInsideOut)
{
    auto edit = std::make_unique<QDateTimeEdit>();
    auto list = std::make_unique<QListWidget>();
    list->addItem(u"item"_s);
    QWidget* const views[] = {new QLineEdit, new QTextEdit, new QSpinBox, new QComboBox, new QCheckBox,
        new QPushButton, edit.release(), list.release(), new QLabel};
    parent->addChild(child);
    child->view().setParent(&parent->view());
    for (auto* view : views)
        view->setParent(&child->view());
    parent->view().setParent(&window);
    parent->view().show();
    window.show();
    callsOf([] {});
    for (auto* view : views) {
        view->setFocusPolicy(Qt::StrongFocus);
        view->setFocus();
        const auto press = [&] { QTest::keyClick(view, Qt::Key_Escape); };
        child->cancels = false;
        EXPECT_EQ(callsOf(press), "c.cancel p.cancel") << view->metaObject()->className();
        child->cancels = true;
        EXPECT_EQ(callsOf(press), "c.cancel") << view->metaObject()->className();
    }
    EXPECT_EQ(callsOf([&] { QTest::keyClick(views[0], Qt::Key_Escape, Qt::ControlModifier); }), "");

    EXPECT_EQ(callsOf([&] { EXPECT_TRUE(parent->performCancel()); }), "c.cancel");
    child->view().hide();
    callsOf([] {});
    EXPECT_EQ(callsOf([&] { EXPECT_FALSE(parent->performCancel()); }), "p.cancel");
}

TEST_F(ViewControllerTest, AChildHasOneParentWhichOwnsIt)
{
    parent->addChild(child);
    parent->addChild(std::make_shared<Recorder>(u"d"_s, calls));
    parent->addChild(child);
    EXPECT_EQ(parent->children().size(), 2U);
    EXPECT_EQ(parent->children().back(), child);
    const auto other = std::make_shared<Recorder>(u"o"_s, calls);
    other->addChild(child);
    EXPECT_EQ(parent->children().size(), 1U);
    EXPECT_EQ(child->parentController(), other.get());

    const std::weak_ptr<Recorder> life = child;
    child.reset();
    ASSERT_FALSE(life.expired());
    life.lock()->removeFromParent();
    EXPECT_TRUE(life.expired());
    const auto orphan = parent->children().front();
    parent.reset();
    EXPECT_EQ(orphan->parentController(), nullptr);
}

TEST_F(ViewControllerTest, AnAnimatorShowsAndRemovesAndMayDismissAtOnce)
{
    class Animator final : public ViewControllerPresentationAnimator {
    public:
        Animator(QStringList& calls, bool isHasty)
            : calls_(calls)
            , isHasty_(isHasty)
        {
        }
        ~Animator() override { calls_ += u"end"_s; }
        void animatePresentation(
            const std::shared_ptr<ViewController>& controller, ViewController& presenter) override
        {
            calls_ += u"present"_s;
            if (isHasty_)
                presenter.dismiss(*controller);
            calls_ += u"presented"_s;
        }
        void animateDismissal(const std::shared_ptr<ViewController>&, ViewController& presenter) override
        {
            calls_ += u"dismiss %1"_s.arg(presenter.presentedControllers().size());
        }

    private:
        QStringList& calls_;
        bool isHasty_;
    };
    parent->dismiss(*child);
    parent->present(child, std::make_unique<Animator>(calls, false));
    EXPECT_THAT(parent->presentedControllers(), ElementsAre(child));
    parent->dismiss(*child);
    parent->present(child, std::make_unique<Animator>(calls, true));
    EXPECT_THAT(parent->presentedControllers(), IsEmpty());
    EXPECT_THAT(calls,
        ElementsAre(u"present"_s, u"presented"_s, u"dismiss 0"_s, u"end"_s, u"present"_s, u"dismiss 0"_s,
            u"presented"_s, u"end"_s));
}

TEST(AnimationTest, TakesNoTimeIfTheDesktopOrTheStyleDoesNotAnimate)
{
    class Style final : public QProxyStyle {
    public:
        int styleHint(StyleHint hint, const QStyleOption*, const QWidget*, QStyleHintReturn*) const override
        {
            return hint == SH_Widget_Animation_Duration ? duration : 0;
        }
        int duration = 0;
    } style;
    QWidget view;
    view.setStyle(&style);
    using std::chrono::milliseconds;
    for (const auto& [desktop, ofStyle, expected] :
        {std::tuple{true, 200, 250}, {false, 200, 0}, {true, 0, 0}}) {
        Appearance appearance;
        appearance.setDesktopAnimates(desktop);
        style.duration = ofStyle;
        EXPECT_EQ(animationDuration(appearance, view, milliseconds(250)), milliseconds(expected));
    }
    view.setStyle(QApplication::style());
    EXPECT_EQ(animationDuration(Appearance(), view, milliseconds(250)), milliseconds(250));
}
