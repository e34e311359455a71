// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Presentation/FormWindow.h"
#include "FormKit_macOS/Rendering/FormViewRenderer.h"
#include "FormPresentationFixture.h"

#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QWindow>

using namespace Qt::StringLiterals;
using namespace quor;
using namespace quor::formkit;
using quor::test::FormPresentationTest;
using quor::test::TestForm;
using quor::test::waitFor;

namespace {

TEST_F(FormPresentationTest, ABurstOfChangesIsRenderedOnceAndTheWindowFollowsTheSize)
{
    show();
    const QSize before = window->size();
    EXPECT_EQ(before.width(), 300);
    sizes = 0;
    for (int burst = 1; burst <= 2; ++burst) {
        for (int i = 0; i < 4; ++i)
            form->addElement(makeElement<test::Input<QLineEdit>>());
        ASSERT_TRUE(waitFor([&] { return sizes >= burst; }));
        EXPECT_EQ(sizes, burst);
    }
    const int rowHeight = form->field().height() + 8;
    EXPECT_EQ(window->size(), before + QSize(0, 8 * rowHeight));
    EXPECT_EQ(container->view().size(), window->size());
}

TEST_F(FormPresentationTest, AFormHigherThanTheScreenIsScrolled)
{
    form = std::make_shared<TestForm>(u"High"_s, 100);
    show();
    EXPECT_LE(window->height(), window->screen()->availableGeometry().height());
    auto& last = *form->button->button();
    EXPECT_TRUE(last.visibleRegion().isEmpty());
    last.setFocus();
    QTest::keyClick(&last, Qt::Key_Backtab);
    EXPECT_FALSE(form->text->view()->visibleRegion().isEmpty());
    EXPECT_EQ(form->field().width(), 180); // the scroll bar has its own room
    auto& view = static_cast<QScrollArea&>(root().view());
    for (const int width : {300, 299, 300}) {
        window->resize(width, 200);
        QCoreApplication::processEvents();
        EXPECT_EQ(view.horizontalScrollBar()->isVisible(), width < 300);
        EXPECT_EQ(view.horizontalScrollBar()->maximum() > 0, width < 300);
        EXPECT_EQ(form->field().width(), 180);
    }
}

TEST_F(FormPresentationTest, AHeadingStaysInSightOfAFormHigherThanTheScreen)
{
    form = std::make_shared<TestForm>(u"High"_s, 100);
    form->setDefaultButton(form->button);
    container = std::make_shared<FormContainerViewController>(form, services);
    container->setHasStickyHeaders(true);
    FormWindow sticky(container);
    sticky.show();
    EXPECT_LE(sticky.height(), sticky.screen()->availableGeometry().height());
    auto* const rows = container->rootViewController()->formRenderer()->scrollView();
    rows->verticalScrollBar()->setValue(rows->verticalScrollBar()->maximum());
    EXPECT_GT(rows->verticalScrollBar()->maximum(), 1000);
    EXPECT_FALSE(form->button->button()->visibleRegion().isEmpty());
}

TEST_F(FormPresentationTest, ASizeThatTheUserHasChosenStays)
{
    struct {
        QSize user; // all sizes are relative to that of the form
        QSize withoutAField;
        QSize withTenMore;
    } const cases[] = {
        {{0, 0}, {0, -1}, {0, 10}}, // the window follows
        {{200, 0}, {200, -1}, {200, 10}}, // in the height alone
        {{200, 3}, {200, 3}, {200, 10}}, // as far as the rows need it
        {{0, -2}, {0, -2}, {0, -2}}, // the form is scrolled
        {{-40, 20}, {-40, 20}, {-40, 20}},
    };
    form = std::make_shared<TestForm>(u"Root"_s, 3);
    show();
    const QSize formSize = window->size();
    const int rowHeight = form->field().height() + 8;
    const auto settled = [&] {
        const int before = sizes;
        form->setNeedsRender(true);
        EXPECT_TRUE(waitFor([&] { return sizes > before; }));
        const QSize more = window->size() - formSize;
        return QSize(more.width(), more.height() / rowHeight);
    };
    for (const auto& [user, withoutAField, withTenMore] : cases) {
        const QSize chosen = formSize + QSize(user.width(), user.height() * rowHeight);
        window->windowHandle()->resize(chosen);
        QCoreApplication::processEvents();
        EXPECT_EQ(settled(), user);
        form->elements()[1]->setHidden(true);
        EXPECT_EQ(settled(), withoutAField);
        form->elements()[1]->setHidden(false);
        const auto elements = form->elements();
        for (int i = 0; i < 10; ++i)
            form->addElement(makeElement<test::Input<QLineEdit>>());
        EXPECT_EQ(settled(), withTenMore);
        form->setElements(elements);
        EXPECT_EQ(settled(), user);
    }
}

TEST_F(FormPresentationTest, ASizeFromAnEarlierSessionStays)
{
    FormWindow restored(std::make_shared<FormContainerViewController>(form, services));
    restored.resize(500, 600);
    form->addElement(makeElement<test::Input<QLineEdit>>());
    ASSERT_TRUE(rendered(*form));
    restored.show();
    EXPECT_EQ(restored.size(), QSize(500, 600));
}

TEST_F(FormPresentationTest, AFormInTwoWindowsIsSeenInOneOfThem)
{
    show();
    auto& field = static_cast<QLineEdit&>(form->field());
    field.setText(u"kept"_s);
    auto other = std::make_unique<FormWindow>(std::make_shared<FormContainerViewController>(form, services));
    for (const bool isOther : {true, false}) {
        other->show();
        ASSERT_TRUE(rendered(*form));
        EXPECT_EQ(other->isAncestorOf(&field), isOther);
        EXPECT_EQ(window->isAncestorOf(form->text->view()), !isOther);
        EXPECT_TRUE(field.isVisible());
        other->grab();
        window->grab();
        form->addElement(makeElement<test::Input<QLineEdit>>());
        ASSERT_TRUE(rendered(*form));
    }
    other.reset();
    EXPECT_TRUE(field.isVisible());
    EXPECT_EQ(field.text(), u"kept"_s);
}

} // namespace
