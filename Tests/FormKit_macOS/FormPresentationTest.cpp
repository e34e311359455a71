// SPDX-License-Identifier: MIT
#include "FormKit/Elements/FormElementButtonSelection.h"
#include "FormKit_macOS/Controls/Segment.h"
#include "FormKit_macOS/Rendering/FormViewRenderer.h"
#include "FormPresentationFixture.h"
#include "ToolKit_macOS/FlippedEffectView.h"

#include <QApplication>
#include <QDesktopServices>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTextBrowser>
#include <QUrl>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace quor;
using namespace quor::formkit;
using quor::test::FormPresentationTest;
using quor::test::OtherForm;
using quor::test::TestForm;
using quor::test::waitFor;

namespace {

// Deletes `view` as a window of the application would that it was put into.
void endWithWindow(QWidget& view)
{
    QWidget parent;
    view.setParent(&parent);
}

TEST_F(FormPresentationTest, TheKeyboardStaysInAFormWhoseFocusedRowIsHidden)
{
    show();
    ASSERT_EQ(QApplication::focusWidget(), &form->field());
    for (const auto& element : form->elements())
        element->setHidden(true);
    ASSERT_TRUE(rendered(*form));
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(FormPresentationTest, AnotherFormTakesThePlaceAndOtherPayloadsAreIgnored)
{
    show();
    const std::weak_ptr<TestForm> old = form;
    using Payload = std::any;
    for (const auto& wrong : {Payload(), Payload(u"text"_s), Payload(second),
             Payload(std::shared_ptr<Form>()), Payload(std::shared_ptr<platform::ViewController>())}) {
        for (const auto event :
            {FormEvent::replaceForm, FormEvent::showForm, FormEvent::presentForm, FormEvent::showLink})
            form->trigger(event, wrong);
    }
    EXPECT_EQ(container->form(), form);
    EXPECT_EQ(depth(), 1U);
    EXPECT_EQ(popover(), nullptr);
    form->replaceForm(second);
    form.reset();
    EXPECT_TRUE(old.expired());
    EXPECT_EQ(container->form(), second);
    EXPECT_EQ(second->preparations, 1);
    EXPECT_EQ(QApplication::focusWidget(), &second->field());
    EXPECT_EQ(window->size(), container->view().sizeHint());
}

TEST_F(FormPresentationTest, EscapeAndTheCancelButtonCloseTheWindow)
{
    struct {
        const char* name;
        std::function<void()> act;
    } const cases[] = {
        {"Escape", [&] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape); }},
        {"button", [&] { std::dynamic_pointer_cast<FormButton>(form->cancelButton())->button()->click(); }},
    };
    for (const auto& [name, act] : cases) {
        SCOPED_TRACE(name);
        form = std::make_shared<TestForm>(u"Root"_s);
        show();
        closes = 0;
        act();
        EXPECT_EQ(closes, 1);
        EXPECT_FALSE(closePayload);
        EXPECT_FALSE(window->isVisible());
    }
}

TEST_F(FormPresentationTest, ReturnPressesTheDefaultButtonUnlessTheFocusedViewNeedsIt)
{
    for (const bool isSticky : {false, true}) {
        SCOPED_TRACE(isSticky);
        form = std::make_shared<TestForm>(u"Root"_s);
        form->setDefaultButton(form->button);
        auto other = makeElement<FormButton>();
        int otherClicks = 0;
        other->setButtonClickedHandler([&](FormElementButton&) { ++otherClicks; });
        form->addElement(other);
        show();
        container->setHasStickyHeaders(isSticky);
        ASSERT_TRUE(rendered(*form));
        int clicks = 0;
        form->clicked = [&] { ++clicks; };
        EXPECT_TRUE(form->button->button()->isDefault());
        QTest::keyClick(&form->field(), Qt::Key_Return);
        EXPECT_EQ(clicks, 1);
        form->text->view()->setFocus();
        QTest::keyClick(form->text->view(), Qt::Key_Return);
        EXPECT_EQ(clicks, 1);
        other->button()->setFocus();
        QTest::keyClick(other->button(), Qt::Key_Return);
        EXPECT_EQ(std::pair(clicks, otherClicks), std::pair(1, 1));
        form->button->setEnabled(false);
        form->field().setFocus();
        QTest::keyClick(&form->field(), Qt::Key_Enter);
        EXPECT_EQ(clicks, 1);
    }
}

TEST_F(FormPresentationTest, LinksOpenWithTheDesktop)
{
    QTextBrowser browser;
    QDesktopServices::setUrlHandler(u"task"_s, &browser, "setSource");
    show();
    form->showLink(QUrl(u"task:12"_s));
    QDesktopServices::unsetUrlHandler(u"task"_s);
    EXPECT_EQ(browser.source(), QUrl(u"task:12"_s));
}

TEST_F(FormPresentationTest, APopoverHasNoFocusedInputAndPresentsAtTheClickedView)
{
    second = std::make_shared<TestForm>(u"Second"_s);
    show();
    window->move(250, 0); // there is room for it below the button
    form->clicked = [&] { form->presentForm(second); };
    QTest::mouseClick(form->button->button(), Qt::LeftButton);
    ASSERT_TRUE(popover());
    const QRect anchor(form->button->button()->mapToGlobal(QPoint()), form->button->button()->size());
    EXPECT_LE(std::abs(popover()->geometry().center().x() - anchor.center().x()), 1);
    ASSERT_TRUE(waitFor([&] { return popover()->isActiveWindow(); }));
    ASSERT_TRUE(waitFor([&] { return second->preparations == 1; }));
    QCoreApplication::processEvents();
    EXPECT_FALSE(second->field().hasFocus());
    // The view itself has the keyboard, so Return and Escape work.
    int clicks = 0;
    second->clicked = [&] { ++clicks; };
    second->setDefaultButton(second->button);
    second->setNeedsRender(true);
    ASSERT_TRUE(rendered(*second));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(clicks, 1);
    // It follows the size, and what it changed is seen when it closes.
    const int height = popover()->height();
    second->addElement(makeElement<test::Input<QLineEdit>>());
    ASSERT_TRUE(waitFor([&] { return popover()->height() > height; }));
    const int preparations = form->preparations;
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(popover(), nullptr);
    EXPECT_EQ(form->preparations, preparations + 1);
}

TEST_F(FormPresentationTest, APopoverPointsToTheSelectedSegment)
{
    const auto selection = form->viewFactory()->buttonSelection();
    form->addElement(selection);
    second = std::make_shared<TestForm>(u"Second"_s);
    show();
    window->move(250, 0);
    for (const auto& [number, selected] : {std::pair(1, 0), std::pair(3, 1), std::pair(3, -1)}) {
        const int count = number;
        std::vector<FormElementButtonSelection::Button> buttons;
        buttons.reserve(std::size_t(count));
        for (int tag = 0; tag < count; ++tag)
            buttons.push_back({tag, QString(10, u'm')});
        selection->setButtons(buttons);
        selection->setSelectedTag(selected);
        ASSERT_TRUE(waitFor([&] { return selection->view()->findChildren<Segment*>().size() == count; }));
        ASSERT_TRUE(rendered(*form));
        const auto segments = selection->view()->findChildren<Segment*>();
        root().present(std::make_shared<FormContainerViewController>(second, services), *segments.front(),
            false, platform::RectEdge::maxY);
        ASSERT_TRUE(popover());
        const auto* anchor = segments[std::max(selected, 0)];
        EXPECT_NEAR(popover()->geometry().center().x(), anchor->mapToGlobal(anchor->rect().center()).x(), 1);
        root().closePopover();
    }
}

TEST_F(FormPresentationTest, ASecondFormOfTheSameClassClosesThePopover)
{
    show();
    form->presentForm(second);
    ASSERT_TRUE(popover());
    form->presentForm(std::make_shared<TestForm>(u"Same class"_s));
    EXPECT_FALSE(popover());
    form->presentForm(second);
    form->presentForm(std::make_shared<OtherForm>(u"Other class"_s));
    ASSERT_TRUE(popover());
    EXPECT_TRUE(root().activePopover()->performClose());
    root().present(std::make_shared<FormContainerViewController>(second, services), form->field(), true,
        platform::RectEdge::maxY);
    ASSERT_TRUE(popover());
    EXPECT_FALSE(root().activePopover()->performClose()); // important
    root().closePopover();
    window->hide();
    form->presentForm(second);
    EXPECT_FALSE(popover());
}

TEST_F(FormPresentationTest, FormsArePushedAndPoppedWithTheirSizesAndTheFocus)
{
    show();
    const auto third = std::make_shared<TestForm>(u"Third"_s, 2);
    form->text->view()->setFocus();
    const QSize size = window->size();
    form->showForm(second);
    EXPECT_EQ(QApplication::focusWidget(), &second->field());
    EXPECT_GT(window->height(), size.height());
    second->showForm(third);
    EXPECT_EQ(depth(), 3U);
    EXPECT_EQ(container->children().size(), 1U);
    using Payload = const std::shared_ptr<FormRenderViewController>;
    third->trigger(FormEvent::close);
    EXPECT_EQ(std::pair(closes, depth()), std::pair(1, std::size_t(3)));
    window->show();
    window->activateWindow();
    ASSERT_TRUE(waitFor([&] { return window->isActiveWindow(); }));
    third->trigger(FormEvent::close, Payload(container->formRenderViewControllers().back()));
    EXPECT_EQ(std::pair(closes, depth()), std::pair(1, std::size_t(2)));
    const auto* title = container->formRenderViewControllers().back()->formRenderer();
    EXPECT_EQ(title->titleElements().front()->view()->findChildren<QAbstractButton*>().size(), 1);
    container->pop();
    EXPECT_EQ(window->size(), size);
    EXPECT_EQ(QApplication::focusWidget(), form->text->view());
    container->pop();
    EXPECT_EQ(closes, 2);
    EXPECT_EQ(depth(), 1U);
}

TEST_F(FormPresentationTest, AltLeftAndTheBackButtonOfTheMouseGoBackButNotFromTheRoot)
{
    show();
    const std::function<void(QWidget&)> ways[] = {
        [](QWidget& view) { QTest::keyClick(&view, Qt::Key_Left, Qt::AltModifier); },
        [](QWidget& view) { QTest::mouseClick(&view, Qt::BackButton); },
    };
    for (const auto& goBack : ways) {
        form->showForm(second);
        goBack(second->field());
        EXPECT_EQ(depth(), 1U);
        goBack(form->field());
        EXPECT_EQ(std::pair(closes, depth()), std::pair(0, std::size_t(1)));
    }
}

TEST_F(FormPresentationTest, ASlideKeepsTheSizeAndEndsAtTheNextPush)
{
    show();
    appearance.setDesktopAnimates(true);
    const QSize size = window->size();
    sizes = 0;
    form->showForm(second);
    auto& arriving = container->formRenderViewControllers().back()->view();
    EXPECT_EQ(arriving.x(), size.width());
    EXPECT_TRUE(root().view().isVisible());
    EXPECT_EQ(container->view().childAt(form->field().mapTo(&container->view(), QPoint(2, 2))), nullptr);
    second->addElement(makeElement<test::Input<QLineEdit>>());
    container->updateSize();
    EXPECT_EQ(std::pair(sizes, window->size()), std::pair(0, size));
    second->showForm(std::make_shared<OtherForm>(u"Third"_s));
    EXPECT_EQ(sizes, 1);
    EXPECT_FALSE(root().view().isVisible());
    container->pop();
    EXPECT_EQ(sizes, 2);
    ASSERT_TRUE(waitFor([&] { return sizes >= 3; }));
    EXPECT_EQ(arriving.pos(), QPoint(0, 0));
    EXPECT_EQ(window->size(), arriving.size());
}

TEST_F(FormPresentationTest, FormsSlideInTheDirectionOfTheScript)
{
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        form = std::make_shared<TestForm>(u"Root"_s);
        second = std::make_shared<TestForm>(u"Second"_s);
        appearance.setDesktopAnimates(false);
        show();
        window->setLayoutDirection(direction);
        appearance.setDesktopAnimates(true);
        const int sign = direction == Qt::LeftToRight ? 1 : -1;
        form->showForm(second);
        auto& arriving = container->formRenderViewControllers().back()->view();
        EXPECT_EQ(arriving.x(), sign * window->width());
        ASSERT_TRUE(waitFor([&] { return arriving.x() == 0; }));
        container->pop();
        EXPECT_EQ(root().view().x(), -sign * window->width());
        ASSERT_TRUE(waitFor([&] { return root().view().x() == 0; }));
    }
}

TEST_F(FormPresentationTest, FormsGetTheBackgroundOfASidebarAtTheNextRender)
{
    show();
    const auto hasEffect = [&] { return root().view().findChild<toolkit::FlippedEffectView*>() != nullptr; };
    for (const bool needed : {true, false}) {
        container->setNeedsEffectView(needed);
        ASSERT_TRUE(rendered(*form));
        EXPECT_EQ(hasEffect(), needed);
        EXPECT_TRUE(form->field().isVisible());
    }
}

TEST_F(FormPresentationTest, HeadersBecomeStickyAtTheNextRender)
{
    show();
    form->showForm(second);
    container->setHasStickyHeaders(true);
    ASSERT_TRUE(rendered(*second) && rendered(*form));
    for (const auto& controller : container->formRenderViewControllers())
        EXPECT_EQ(controller->formRenderer()->mode(), FormViewRenderer::RenderMode::stickyHeaders);
    EXPECT_TRUE(second->field().isVisible());
}

TEST_F(FormPresentationTest, EveryPartCanEndWithinAHandlerOrWhileSomethingIsUnderWay)
{
    const auto endAll = [&] {
        window.reset();
        container.reset();
        form.reset();
    };
    const std::function<void()> cases[] = {
        [&] { // within a click
            form->clicked = [&] { endAll(); };
            QTest::mouseClick(form->button->button(), Qt::LeftButton);
        },
        [&] { // within Return
            form->setDefaultButton(form->button);
            form->setNeedsRender(true);
            ASSERT_TRUE(rendered(*form));
            form->clicked = [&] { endAll(); };
            QTest::keyClick(&form->field(), Qt::Key_Return);
        },
        [&] { // during a deferred render
            form->addElement(makeElement<test::Input<QLineEdit>>());
            container.reset();
            window.reset();
        },
        [&] { // within a render that takes the focus from a button
            form->button->button()->setFocus();
            form->button->setHidden(false);
            form->removeElement(*form->button);
            QObject::connect(
                qApp, &QApplication::focusChanged, window.get(), [&] { endAll(); }, Qt::SingleShotConnection);
            EXPECT_TRUE(waitFor([&] { return !form; }));
        },
        [&] { // within the end of the focus of a button that is hidden
            form->button->button()->setFocus();
            const auto button = form->button;
            QObject::connect(
                qApp, &QApplication::focusChanged, window.get(), [&] { endAll(); }, Qt::SingleShotConnection);
            button->setHidden(true);
        },
        [&] { // within a click that moves the focus
            form->button->button()->setFocus();
            QObject::connect(
                qApp, &QApplication::focusChanged, window.get(), [&] { window.reset(); },
                Qt::SingleShotConnection);
            QTest::mouseClick(&form->field(), Qt::LeftButton);
        },
        [&] { // a view that a stack still needs
            for (const bool isWhole : {true, false}) {
                form->showForm(std::make_shared<OtherForm>(u"Third"_s));
                endWithWindow(
                    isWhole ? container->view() : container->formRenderViewControllers().back()->view());
                container->pop();
                EXPECT_EQ(depth(), 1U);
                endWithWindow(*root().viewIfLoaded());
                form->showForm(second);
                endWithWindow(*root().viewIfLoaded());
                container->pop();
                EXPECT_TRUE(root().viewIfLoaded());
            }
        },
        [&] { // during a slide, with a popover
            form->presentForm(second);
            form->showForm(std::make_shared<OtherForm>(u"Third"_s));
            endAll();
        },
        [&] { // the form in a popover ends the one that presented it
            form->presentForm(second);
            second->clicked = [&] { endAll(); };
            QTest::mouseClick(second->button->button(), Qt::LeftButton);
        },
        [&] { // a popover that is closed while it asks for that
            form->presentForm(second);
            second->trigger(FormEvent::close);
            EXPECT_EQ(popover(), nullptr);
        },
    };
    appearance.setDesktopAnimates(true);
    int number = 0;
    for (const auto& act : cases) {
        SCOPED_TRACE(number++);
        form = std::make_shared<TestForm>(u"Root"_s);
        second = std::make_shared<TestForm>(u"Second"_s);
        show();
        act();
        const auto marker = std::make_shared<TestForm>(u"Marker"_s);
        FormRenderViewController later(marker, false, services);
        // What was deferred before comes earlier than this render.
        QObject target;
        bool isRendered = false;
        later.add(
            target, [&](auto&, auto&, const std::any&) { isRendered = true; }, FormRenderEvent::sizeChanged);
        marker->setNeedsRender(true);
        ASSERT_TRUE(waitFor([&] { return isRendered; }));
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        // The elements of a form outlive the controllers that showed them.
        EXPECT_TRUE(!form || form->elements().front()->view());
    }
}

TEST_F(FormPresentationTest, AFormIsShownAgainAfterItsWindowHasEnded)
{
    show();
    for (const bool byParent : {false, true}) {
        auto* outer = new QWidget;
        if (byParent)
            container->view().setParent(outer);
        window.reset();
        delete outer;
        container.reset();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        show();
        EXPECT_TRUE(form->field().isVisible());
    }
}

} // namespace
