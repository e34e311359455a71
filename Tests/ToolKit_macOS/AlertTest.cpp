// SPDX-License-Identifier: MIT
#include "Support/WaitFor.h"
#include "ToolKit_macOS/AlertUI.h"
#include "ToolKit_macOS/ProgressAlert.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <thread>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;
using quor::test::waitFor;

namespace {

class AlertTest : public testing::Test {
protected:
    // The program searches for its own bundle once.
    static void SetUpTestSuite()
    {
        static const QTemporaryDir data;
        const QString images = data.filePath(u"quor/ToolKitDesktopTests.bundle/Images"_s);
        QImage mark(64, 64, QImage::Format_RGB32);
        mark.fill(Qt::red);
        ASSERT_TRUE(QDir().mkpath(images) && mark.save(images + u"/mark.png"_s));
        qputenv("XDG_DATA_DIRS", data.path().toUtf8() + ':' + qgetenv("XDG_DATA_DIRS"));
    }
    AlertTest()
    {
        window.resize(300, 200);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        content.message = u"Delete <b>everything</b>?"_s;
        content.buttonTitle = u"Delete"_s;
        content.window = &window;
    }

    QWidget window;
    AlertContent content;
    std::vector<std::pair<bool, int>> ended;
    const WarningAlert::Handler record = [this](bool first, int tag) { ended.emplace_back(first, tag); };
};

TEST_F(AlertTest, EachButtonEndsItWithItsTagAfterThePause)
{
    content.cancelTitle = u"Cancel"_s;
    content.otherTitles = {u"Archive"_s, u"Move"_s};
    QObject target;
    int archived = 0;
    content.targets = {&target};
    content.actions = {[&] { ++archived; }, [] { FAIL() << "it has no target"; }};
    for (const int tag : {0, 1, 2, Alert::cancelTag}) {
        WarningAlert alert;
        ended.clear();
        alert.show(content, record);
        ASSERT_NE(alert.alert()->button(tag), nullptr);
        QElapsedTimer time;
        time.start();
        alert.alert()->button(tag)->click();
        EXPECT_FALSE(alert.alert()->isVisible());
        EXPECT_TRUE(waitFor([&] { return !ended.empty(); }));
        EXPECT_GE(time.elapsed(), 300);
        EXPECT_EQ(ended, (std::vector{std::pair(tag == 0, tag)}));
    }
    EXPECT_EQ(archived, 1);

    content.modal = true;
    WarningAlert blocking;
    QTimer::singleShot(0, &blocking, [&] { blocking.alert()->button(0)->click(); });
    blocking.show(content, {});
    EXPECT_FALSE(blocking.alert()->isVisible());
}

TEST_F(AlertTest, ItsIconComesFromTheApplicationsBundle)
{
    content.iconName = u"mark"_s;
    WarningAlert alert;
    alert.show(content, {});
    const QList<QLabel*> labels = alert.alert()->findChildren<QLabel*>();
    EXPECT_TRUE(std::any_of(labels.begin(), labels.end(),
        [](const QLabel* label) { return label->pixmap().toImage().pixelColor(9, 9) == QColor(Qt::red); }));
}

TEST_F(AlertTest, KeysChooseWhatTheUserExpects)
{
    const std::tuple<Qt::Key, bool, bool, std::optional<int>> cases[]
        = {{Qt::Key_Return, true, true, 0}, {Qt::Key_Escape, true, true, Alert::cancelTag},
            {Qt::Key_Escape, false, false, 0}, {Qt::Key_Escape, false, true, std::nullopt}};
    for (const auto& [key, hasCancel, hasOther, tag] : cases) {
        content.cancelTitle = hasCancel ? std::optional(u"Cancel"_s) : std::nullopt;
        content.otherTitles.assign(hasOther ? 1 : 0, u"Other"_s);
        WarningAlert alert;
        ended.clear();
        alert.show(content, record);
        ASSERT_TRUE(QTest::qWaitForWindowActive(alert.alert()));
        QTest::keyClick(alert.alert(), key);
        EXPECT_EQ(alert.alert()->isVisible(), !tag.has_value());
        if (tag) {
            EXPECT_TRUE(waitFor([&] { return !ended.empty(); }));
            EXPECT_EQ(ended.front().second, *tag);
        }
    }
}

TEST_F(AlertTest, EndsWithoutAnAnswerLetGoWhatTheHandlerHolds)
{
    const auto held = std::make_shared<int>(1);
    auto alert = std::make_unique<WarningAlert>();
    const std::function<void()> ends[]{[&] { alert->close(); }, [&] { alert->show(content, {}); },
        [&] { delete alert->alert(); }, [&] { alert.reset(); }};
    for (const auto& end : ends) {
        alert->show(content, [held](bool, int) { FAIL() << "no button was chosen"; });
        EXPECT_EQ(held.use_count(), 2);
        end();
        EXPECT_EQ(held.use_count(), 1);
    }
    WarningAlert answered;
    answered.show(content, record);
    answered.alert()->button(0)->click();
    answered.close();
    EXPECT_TRUE(waitFor([&] { return !ended.empty(); })) << "a button was chosen before";
}

TEST_F(AlertTest, AnyThreadMayShowOneAndKeepNothing)
{
    auto held = std::make_shared<int>(1);
    std::thread([&] {
        AlertUI::show(u"Message"_s, u"no such icon"_s, u"Text"_s, u"OK"_s, u"Cancel"_s,
            [held, this](bool first, int tag) { record(first, tag); });
    }).join();
    Alert* shown = nullptr;
    EXPECT_TRUE(waitFor([&] { return (shown = window.findChild<Alert*>()) != nullptr; }));
    const QPointer<Alert> watched(shown);
    shown->button(Alert::cancelTag)->click();
    EXPECT_TRUE(waitFor([&] { return !watched; }));
    EXPECT_EQ(ended, (std::vector{std::pair(false, Alert::cancelTag)}));
    EXPECT_EQ(held.use_count(), 1);
}

TEST_F(AlertTest, ProgressMovesStandsAndStaysWithinItsScale)
{
    ProgressAlert alert;
    alert.show(u"Copying"_s, {}, u"Starting"_s, u"Stop"_s, record);
    const std::tuple<double, bool, double> cases[]
        = {{-1, true, 0}, {0.5, false, 0.5}, {7, false, 1}, {std::nan(""), false, 0}, {-0.001, true, 0}};
    for (const auto& [progress, moves, value] : cases) {
        alert.update(QString::number(progress), progress);
        EXPECT_EQ(alert.alert()->accessibleDescription(), QString::number(progress));
        EXPECT_EQ(alert.isIndeterminate(), moves) << progress;
        EXPECT_DOUBLE_EQ(alert.value(), value) << progress;
    }
    alert.close();
    alert.show(u"Again"_s, {}, u"Text"_s, u"Stop"_s, record);
    EXPECT_TRUE(waitFor([&] { return alert.progressBar().isVisible(); })) << "the bar outlives its alert";
}

} // namespace
