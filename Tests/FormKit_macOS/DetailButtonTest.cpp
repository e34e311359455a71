// SPDX-License-Identifier: MIT
#include "ElementFixture.h"
#include "FormKit_macOS/Elements/FormDetailActionButton.h"
#include "FormKit_macOS/Elements/FormDetailInfoButton.h"
#include "Support/WaitFor.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>

using namespace quor::formkit;
using namespace Qt::StringLiterals;
using quor::test::waitFor;

namespace {

TEST(PanelPlacement, StandsBesideTheControlOnTheScreen)
{
    const QRect screen(100, 0, 1000, 600);
    struct Case {
        QRect anchor;
        QSize size;
        Qt::LayoutDirection direction;
        QRect panel;
    };
    const Case cases[] = {
        {{800, 300, 20, 20}, {300, 100}, Qt::LeftToRight, {490, 260, 300, 100}},
        {{800, 300, 20, 20}, {300, 100}, Qt::RightToLeft, {490, 260, 300, 100}}, // no room after it
        {{500, 300, 20, 20}, {300, 100}, Qt::RightToLeft, {530, 260, 300, 100}},
        {{300, 300, 20, 20}, {300, 100}, Qt::LeftToRight, {330, 260, 300, 100}}, // no room before it
        {{800, 10, 20, 20}, {300, 100}, Qt::LeftToRight, {490, 0, 300, 100}},
        {{800, 590, 20, 20}, {300, 100}, Qt::LeftToRight, {490, 500, 300, 100}},
        {{600, 300, 20, 20}, {700, 900}, Qt::LeftToRight, {100, 0, 700, 600}}, // room on neither side
        {{600, 300, 20, 20}, {2000, 100}, Qt::LeftToRight, {100, 260, 1000, 100}},
    };
    for (const auto& [anchor, size, direction, panel] : cases)
        EXPECT_EQ(placePanelBeside(anchor, size, screen, 10, direction), panel) << anchor.x();
}

class DetailButtons : public quor::test::FormElements {
protected:
    void SetUp() override
    {
        for (FormDetailElement* const detail :
            {static_cast<FormDetailElement*>(action_.get()), static_cast<FormDetailElement*>(info_.get())}) {
            detail->setValueChanged([this](FormDetailElement&) { ++changes_; });
            detail->view()->setParent(&window_);
        }
        action_->view()->setGeometry(250, 100, 30, 30);
        info_->view()->setGeometry(250, 200, 30, 30);
        action_->setToolTip(u"Pin <b>"_s);
        action_->setIsOnToolTip(u"Unpin"_s);
        info_->setInfoText(u"An explanation"_s);
        window_.move(400, 100);
        show();
    }
    QAbstractButton& actionButton() { return *qobject_cast<QAbstractButton*>(action_->view()); }
    QAbstractButton& infoButton() { return *qobject_cast<QAbstractButton*>(info_->view()); }
    InfoView* openInfo()
    {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        click(&infoButton());
        return info_->infoView();
    }

    std::shared_ptr<FormDetailActionButton> action_ = std::make_shared<FormDetailActionButton>();
    std::shared_ptr<FormDetailInfoButton> info_ = std::make_shared<FormDetailInfoButton>();
    int changes_ = 0;
};

TEST_F(DetailButtons, TurnOnAndOff)
{
    action_->setOn(true);
    action_->setOn(false);
    EXPECT_FALSE(action_->hasChanges());
    EXPECT_TRUE(actionButton().toolTip().contains(u"Pin &lt;b&gt;"_s));
    click(&actionButton());
    EXPECT_TRUE(action_->isOn() && actionButton().isChecked() && action_->hasChanges());
    EXPECT_TRUE(actionButton().toolTip().contains(u"Unpin"_s));
    actionButton().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&actionButton(), Qt::Key_Space);
    EXPECT_FALSE(action_->isOn());
    QTest::keyClick(&actionButton(), Qt::Key_Return);
    holdReturn(&actionButton());
    EXPECT_TRUE(action_->isOn());
    EXPECT_EQ(role(&actionButton()), QAccessible::CheckBox);
    EXPECT_EQ(actionButton().accessibleName(), u"Pin <b>"_s);
    toggleByScreenReader(&actionButton());
    EXPECT_FALSE(action_->isOn());
    EXPECT_EQ(changes_, 4);
    const int side = actionButton().sizeHint().width();
    action_->setTitle(u"Pin & more"_s);
    EXPECT_GT(actionButton().sizeHint().width(), side);
    EXPECT_EQ(actionButton().accessibleName(), u"Pin & more"_s);
    action_->setEnabled(false);
    click(&actionButton());
    EXPECT_EQ(changes_, 4);
    action_->setEnabled(true);
    action_->setValueChanged([this](FormDetailElement&) { action_.reset(); });
    click(&actionButton());
    EXPECT_FALSE(action_);
    EXPECT_TRUE(window_.findChildren<quor::toolkit::PlatformToolTip*>().isEmpty());
}

TEST_F(DetailButtons, ShowTheNewStateForAMoment)
{
    struct Case {
        QPoint button;
        Qt::LayoutDirection direction;
        bool isAbove;
    };
    for (const auto& [place, direction, isAbove] : {Case{{250, 100}, Qt::LeftToRight, true},
             Case{{20, 100}, Qt::RightToLeft, true}, Case{{250, 5}, Qt::LeftToRight, false}}) {
        window_.setLayoutDirection(direction);
        actionButton().move(place);
        click(&actionButton());
        const auto* const tip = action_->platformToolTip();
        ASSERT_TRUE(tip && tip->isVisible());
        EXPECT_EQ(tip->label(), action_->isOn() ? u"Unpin"_s : u"Pin <b>"_s);
        const QRect button = actionButton().geometry(), shown = tip->geometry();
        if (direction == Qt::LeftToRight)
            EXPECT_EQ(shown.right(), button.right());
        else
            EXPECT_EQ(shown.left(), button.left());
        EXPECT_EQ(isAbove ? button.top() - shown.bottom() : shown.top() - button.bottom(), 11);
    }
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(window_.findChildren<quor::toolkit::PlatformToolTip*>().size(), 1);
    EXPECT_TRUE(waitFor([&] { return !action_->platformToolTip(); }));
    EXPECT_GE(time.elapsed(), 700);
    action_->setToolTip({});
    action_->setIsOnToolTip({});
    click(&actionButton());
    EXPECT_FALSE(action_->platformToolTip());
}

TEST_F(DetailButtons, ExplainBesideTheButton)
{
    const InfoView* const view = openInfo();
    ASSERT_TRUE(view && view->isVisible());
    EXPECT_EQ(view->geometry().right() + 1, infoButton().mapToGlobal(QPoint()).x() - 10);
    EXPECT_LT(view->height(), 2 * infoButton().height()) << "the text has one line";
    EXPECT_TRUE(view->isAncestorOf(QApplication::focusWidget()));
    EXPECT_EQ(QApplication::focusWidget()->accessibleName(), u"An explanation"_s);
    EXPECT_EQ(infoButton().accessibleName(), u"Explanation"_s);
    for (const int key : {Qt::Key_Escape, Qt::Key_Space, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Backtab}) {
        ASSERT_TRUE(openInfo());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(key));
        EXPECT_FALSE(info_->infoView()->isVisible()) << key;
        QPointer<QLabel> movingAway = window_.findChild<QLabel*>();
        ASSERT_TRUE(movingAway);
        EXPECT_TRUE(waitFor([&] { return !movingAway; }));
    }
    ASSERT_TRUE(openInfo());
    infoButton().click();
    EXPECT_EQ(window_.findChildren<InfoView*>().size(), 1);
    const QPoint elsewhere = info_->infoView()->mapFromGlobal(window_.mapToGlobal(QPoint(10, 490)));
    click(info_->infoView(), elsewhere);
    EXPECT_FALSE(info_->infoView()->isVisible());

    // Texts that fit in the width of the panel, but would not beside a scroll bar.
    for (int letters = 35; letters < 60; ++letters) {
        info_->setInfoText(QString(letters, u'i') + u'\n' + QString(letters, u'm'));
        ASSERT_TRUE(openInfo());
        QCoreApplication::processEvents();
        EXPECT_FALSE(info_->infoView()->findChild<QScrollArea*>()->verticalScrollBar()->isVisible())
            << letters;
        info_->infoView()->close();
    }
    const QString long_ = u"A sentence of the explanation.\n"_s.repeated(200);
    info_->setInfoText(long_);
    ASSERT_TRUE(openInfo());
    auto* const area = info_->infoView()->findChild<QScrollArea*>();
    EXPECT_TRUE(window_.screen()->availableGeometry().contains(info_->infoView()->geometry()));
    EXPECT_GT(area->verticalScrollBar()->maximum(), 0);
    QTest::keyClick(area, Qt::Key_Down);
    EXPECT_GT(area->verticalScrollBar()->value(), 0);
    info_->infoView()->close();
    info_->setInfoText({});
    EXPECT_FALSE(openInfo());
    EXPECT_FALSE(info_->hasChanges());
    EXPECT_EQ(changes_, 0);
}

TEST_F(DetailButtons, EndTheExplanationWithWhatItIsIn)
{
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"disabled", [&] { info_->setEnabled(false); }},
        {"form disabled", [&] { window_.setEnabled(false); }},
        {"hidden", [&] { infoButton().hide(); }},
        {"window hidden", [&] { window_.hide(); }},
        {"button deleted", [&] { delete info_->view(); }},
        {"element ended", [&] { info_.reset(); }},
    };
    for (const auto& [name, end] : ends) {
        SCOPED_TRACE(name);
        info_ = std::make_shared<FormDetailInfoButton>();
        info_->setInfoText(u"An explanation"_s);
        info_->view()->setParent(&window_);
        info_->view()->show();
        window_.setEnabled(true);
        window_.show();
        const QPointer<InfoView> view = openInfo();
        ASSERT_TRUE(view && view->isVisible());
        end();
        EXPECT_TRUE(waitFor([&] { return !view; }));
    }
    delete action_->view();
    action_->setOn(true); // without its view
    action_->setToolTip(u"Pin"_s);
    action_->setEnabled(false);
    EXPECT_TRUE(action_->isOn());
}

} // namespace
