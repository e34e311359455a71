// SPDX-License-Identifier: MIT
#include "Platform/Resources/Bundle.h"
#include "ToolKit/Drawing/Text/SystemFont.h"
#include "View/MenuBarCustomMenu/Controls/MenuSearchView.h"
#include "View/MenuBarCustomMenu/Drawing/MenuFont.h"
#include "View/MenuBarCustomMenu/Rows/EmphasizedRowView.h"
#include "View/MenuBarCustomMenu/Rows/MenuAdjustTimerView.h"
#include "View/MenuBarCustomMenu/Rows/MenuCellView.h"
#include "View/MenuBarCustomMenu/Rows/MenuStopPastTimerView.h"

#include "Support/TestClock.h"
#include "Support/WaitFor.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScrollArea>
#include <QTest>

#include <gmock/gmock.h>

#include <algorithm>
#include <random>
#include <utility>

using namespace Qt::StringLiterals;
using namespace quor;
using namespace quor::helper;

namespace {

using Entry = MenuEntry::Entry;
using testing::ElementsAre;

Entry entry(const QString& label, const std::optional<QString>& iconName = {}, const QString& hotkey = {})
{
    Entry entry;
    entry.label = label;
    entry.iconName = iconName;
    entry.hotkey = hotkey;
    return entry;
}

void show(MenuCellView& cell, const Entry& entry)
{
    cell.data = entry;
    cell.rebuild();
}

/// Returns the smallest rectangle with all pixels of exactly this colour; empty if there are none.
QRect extent(const QImage& image, const QColor& color)
{
    QRect found;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) == color)
                found |= QRect(x, y, 1, 1);
    return found;
}

/// Sets language, time zone and font of the application, and restores them.
class MenuRowsTest : public testing::Test {
protected:
    void SetUp() override
    {
        QLocale::setDefault(QLocale(u"en_US"_s));
        qputenv("TZ", "UTC");
        QFont font(u"DejaVu Sans"_s);
        font.setPixelSize(13);
        QApplication::setFont(font);
    }
    void TearDown() override
    {
        QLocale::setDefault(locale_);
        zone_.isNull() ? qunsetenv("TZ") : qputenv("TZ", zone_);
        QApplication::setFont(font_);
    }

    test::TestClock clock; // 22:13:20 in UTC

private:
    QLocale locale_;
    QByteArray zone_ = qgetenv("TZ");
    QFont font_ = QApplication::font();
};

using MenuTimerRows = MenuRowsTest;
using MenuCell = MenuRowsTest;
using MenuSearch = MenuRowsTest;

TEST_F(MenuCell, StaysALineWhateverItsLabel)
{
    MenuCellView cell;
    show(cell, entry(u"Report"_s));
    const QSize plain = cell.sizeHint();
    EXPECT_EQ(plain.height(), 16);
    const QString endless(10'000, u'w');
    const QString labels[] = {QString(), u"Two\r\nlines\u2028and\ttab"_s, endless,
        u"שלום עולם"_s.repeated(2000), u"👩‍👩‍👧‍👦"_s.repeated(3000),
        QString(600, QChar(0x301)), QString(1000, QChar(0xD83D))};
    QImage canvas(300, plain.height(), QImage::Format_ARGB32_Premultiplied);
    cell.resize(canvas.size());
    for (const QString& label : labels) {
        for (const bool isTitle : {false, true}) {
            Entry row = entry(label, u"stop"_s, u"Ctrl+R"_s);
            row.isTitle = isTitle;
            show(cell, row);
            EXPECT_EQ(cell.sizeHint().height(), plain.height());
            cell.render(&canvas);
            EXPECT_FALSE(std::as_const(cell).parts().label.text().contains(u'\n'));
        }
    }
    show(cell, entry(endless));
    EXPECT_GE(cell.sizeHint().width(), 500);

    QFont large = QApplication::font();
    large.setPixelSize(39);
    QApplication::setFont(large);
    QApplication::processEvents();
    EXPECT_EQ(cell.sizeHint().height(), 46);
}

TEST_F(MenuCell, TakesItsSizesFromTheExactSizeOfTheUsersFont)
{
    const std::tuple<double, int, int> cases[] = {{10, 13, 12}, {11, 15, 13}, {11.5, 15, 14}};
    for (const auto& [points, row, title] : cases) {
        QFont font = QApplication::font();
        font.setPointSizeF(points);
        QApplication::setFont(font);
        EXPECT_EQ(menuFont().pixelSize(), row);
        EXPECT_EQ(smallMenuFont().pixelSize(), title);
        EXPECT_NEAR(toolkit::pixelSize(smallButtonFont()), row * 11.0 / 13, 0.01);
    }
}

TEST_F(MenuCell, MakesRoomForWhatItShows)
{
    const MenuCellMetrics metrics;
    const auto width = [&](const Entry& row) { return metrics.fittingSize(metrics.parts(row, 1)).width(); };
    const int label = width(entry(u"Report"_s));
    EXPECT_EQ(width(entry(u"Report"_s, u"stop"_s)) - label, 22);
    EXPECT_EQ(width(entry(u"Report"_s, {}, u"R"_s)) - label, 22);
    for (const QString& unknown :
        {u"nowhere"_s, QString(), u"../Images/stop"_s, u"/etc/passwd"_s, u"a\0b"_s, QString(5000, u'x')})
        EXPECT_EQ(width(entry(u"Report"_s, unknown)), label) << unknown.toStdString();
    std::mt19937 random(7);
    for (const QString& alphabet : {u"iljr.AVTo"_s, u"wäöß fi ffl"_s, u"日本語 ab"_s, u"שלום ab"_s,
             u"مراجعة لا"_s, u"Ä–„“ Ґї"_s, u"👩‍💻e\u0301\u0301🇩🇪"_s}) {
        for (int row = 0; row < 100; ++row) {
            QString text;
            for (std::size_t left = random() % (row == 0 ? 9000 : 28); left > 0; --left)
                text += alphabet.at(qsizetype(random() % std::size_t(alphabet.size())));
            const std::optional<QString> icons[] = {{}, u"play"_s, u"no"_s};
            Entry shown = entry(text, icons[random() % 3], u"Ctrl+Ä"_s);
            shown.isTitle = row % 4 == 0;
            EXPECT_TRUE(metrics.mayBeWiderThan(shown, width(shown) - 1)) << text.toStdString();
        }
    }
    EXPECT_FALSE(metrics.mayBeWiderThan(entry(u"Report"_s, u"play"_s), 2 * label + 40));
}

TEST_F(MenuCell, TakesTheColourOfItsGround)
{
    QPalette palette;
    palette.setColor(QPalette::WindowText, QColor(0, 0, 200));
    palette.setColor(QPalette::HighlightedText, QColor(0, 200, 0));
    palette.setColor(QPalette::Highlight, QColor(40, 40, 40));
    Entry stop = entry(QString(), u"stop"_s);
    stop.action.value = Entry::Action::Stop{};
    Entry colored = stop;
    colored.color = 0xC80000;
    Entry start = colored;
    start.action.value = Entry::Action::Start{};
    const struct {
        Entry row;
        bool isSelected;
        QColor tint;
    } cases[] = {
        {stop, false, QColor(0, 0, 200)},
        {stop, true, QColor(0, 200, 0)},
        {colored, false, QColor(200, 0, 0)},
        {colored, true, QColor(200, 0, 0)},
        {start, true, QColor(0, 200, 0)},
    };
    EmphasizedRowView row;
    row.setPalette(palette);
    auto* const cell = new MenuCellView;
    row.setView(cell);
    row.resize(200, cell->metrics().height());
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        row.setLayoutDirection(direction);
        for (const auto& c : cases) {
            show(*cell, c.row);
            row.setSelected(c.isSelected);
            row.setSelectionHighlightStyle(platform::TableViewSelectionStyle::regular); // ignored
            row.setEmphasized(false); // so is this
            const QImage picture = row.grab().toImage();
            const QRect icon = extent(picture, c.tint);
            ASSERT_FALSE(icon.isEmpty()) << c.tint.name().toStdString();
            EXPECT_EQ(icon.center().x() < 100, direction == Qt::LeftToRight);
            EXPECT_EQ(!extent(picture, QColor(40, 40, 40)).isEmpty(), c.isSelected);
        }
    }
}

TEST_F(MenuCell, IsOneTargetForClicks)
{
    MenuCellView cell;
    QStringList clicked;
    cell.clicked = [&](const Entry& entry) {
        clicked += entry.label;
        cell.data.reset();
    };
    QWidget later(&cell); // is above the click area at first
    cell.show();
    Entry row = entry(u"Report"_s);
    row.isTitle = true;
    for (const int width : {200, 320}) {
        cell.resize(width, 20);
        show(cell, row);
        EXPECT_EQ(cell.childAt(width - 1, 19), &cell.clickArea());
        QTest::mouseClick(&cell.clickArea(), Qt::LeftButton);
    }
    EXPECT_THAT(clicked, ElementsAre(u"Report", u"Report"));
    EXPECT_EQ(cell.clickArea().accessibleName(), u"Report");

    // The cell shows another entry while the mouse button is down.
    QTest::mousePress(&cell.clickArea(), Qt::LeftButton);
    row.label = u"Reports"_s;
    show(cell, row);
    row.action.value = Entry::Action::Quit{};
    show(cell, row);
    QTest::mouseMove(&cell.clickArea(), {3, 3});
    QTest::mouseRelease(&cell.clickArea(), Qt::LeftButton);
    EXPECT_EQ(clicked.size(), 2);
    QTest::mousePress(&cell.clickArea(), Qt::LeftButton);
    row.label = u"Report"_s;
    show(cell, row);
    QTest::mouseRelease(&cell.clickArea(), Qt::LeftButton);
    EXPECT_THAT(clicked, ElementsAre(u"Report", u"Report", u"Report")) << "only the label has changed";
}

TEST_F(MenuTimerRows, SpeakTheUsersLanguage)
{
    const struct {
        const char* locale;
        QString start, lastEntry, stop, stopNow, past, stopPast, ahead, spoken;
    } cases[] = {
        {"en_US", u"Started at 10:13\u202FPM"_s, u"End of last entry"_s, u"Stop timer at 10:13\u202FPM"_s,
            u"Stop now"_s, u"Stop timer at 8:13\u202FPM"_s, u"Stop 2 hr. ago"_s, u"Stop in 5 min."_s,
            u"30 minutes earlier"_s},
        {"de_DE", u"Gestartet um 22:13"_s, u"Ende des letzten Eintrags"_s, u"Timer um 22:13 stoppen"_s,
            u"Jetzt stoppen"_s, u"Timer um 20:13 stoppen"_s, u"Stopp vor 2 Std."_s, u"Stopp in 5 Min."_s,
            u"30 Minuten früher"_s},
    };
    for (const auto& c : cases) {
        QLocale::setDefault(QLocale(QLatin1StringView(c.locale)));
        MenuAdjustTimerView adjust;
        adjust.startTime = 1'700'000'000;
        adjust.update();
        EXPECT_EQ(adjust.labelField().text(), c.start);
        EXPECT_EQ(adjust.buttons().back()->title(), c.lastEntry);
        EXPECT_EQ(adjust.buttons().front()->accessibleName(), c.spoken);

        MenuStopPastTimerView stop(clock);
        EXPECT_EQ(stop.labelField().text(), c.stop);
        EXPECT_EQ(stop.stopButton().title(), c.stopNow);
        for (int i = 0; i < 4; ++i)
            stop.buttons()[0]->click();
        EXPECT_EQ(stop.labelField().text(), c.past);
        EXPECT_EQ(stop.stopButton().title(), c.stopPast);
        for (int i = 0; i < 25; ++i)
            stop.buttons()[4]->click();
        EXPECT_EQ(stop.stopButton().title(), c.ahead);
    }
}

TEST_F(MenuTimerRows, ReportMinutes)
{
    QList<int> reported;
    MenuAdjustTimerView adjust;
    for (auto* button : adjust.buttons())
        button->click(); // without a handler
    adjust.adjustHandler = [&](int minutes) { reported += minutes; };
    for (auto* button : adjust.buttons())
        button->click();
    EXPECT_THAT(reported, ElementsAre(-30, -10, -5, -1, 5, 0));

    reported.clear();
    auto stop = std::make_unique<MenuStopPastTimerView>(clock);
    stop->buttons()[2]->click();
    EXPECT_EQ(stop->adjustedStopTime(), -5) << "also without a handler";
    stop->stopHandler = [&](int minutes) { reported += minutes; };
    stop->stopButton().click();
    stop->buttons()[4]->click();
    EXPECT_EQ(stop->stopButton().title(), u"Stop now");
    stop->stopButton().click();
    stop->buttons()[4]->click();
    // The menu closes, and the row with it.
    stop->stopHandler = [&](int minutes) {
        reported += minutes;
        stop.reset();
    };
    stop->stopButton().click();
    EXPECT_THAT(reported, ElementsAre(-5, 0, 5));
}

TEST_F(MenuTimerRows, AreWorkedByKeysAndLeaveTheCaretToTheSearchField)
{
    QWidget window;
    QScrollArea list(&window); // gets the keyboard only by Tab, like the menu's list
    list.setFocusPolicy(Qt::TabFocus);
    auto* const content = new QWidget;
    list.setWidget(content);
    auto* const search = new MenuSearchView(content);
    auto* const adjust = new MenuAdjustTimerView(content);
    QList<int> reported;
    adjust->adjustHandler = [&](int minutes) { reported += minutes; };
    adjust->setGeometry(0, 40, adjust->sizeHint().width(), adjust->sizeHint().height());
    content->resize(500, 100);
    list.resize(520, 120);
    window.resize(520, 120);
    window.show();
    ASSERT_TRUE(test::waitFor([&] { return window.isActiveWindow(); }));
    search->setFocus();
    QTest::mouseClick(adjust->buttons()[1], Qt::LeftButton);
    EXPECT_TRUE(search->hasFocus());

    QTest::keyClick(search, Qt::Key_Tab);
    ASSERT_TRUE(adjust->buttons()[0]->hasFocus());
    for (const auto key :
        {Qt::Key_Left, Qt::Key_Right, Qt::Key_Right, Qt::Key_Space, Qt::Key_Left, Qt::Key_Return})
        QTest::keyClick(QApplication::focusWidget(), key);
    EXPECT_THAT(reported, ElementsAre(-10, -5, -10));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_TRUE(list.hasFocus());
}

TEST_F(MenuSearch, PutsTheCaretAfterTheTextAndOffersItsHandlerTheKeys)
{
    QWidget window;
    MenuSearchView search(&window);
    QLineEdit other(&window);
    window.show();
    ASSERT_TRUE(test::waitFor([&] { return window.isActiveWindow(); }));
    search.setText(u"repo"_s);
    search.setCursorPosition(1);
    for (const auto reason : {Qt::TabFocusReason, Qt::OtherFocusReason, Qt::ShortcutFocusReason}) {
        other.setFocus();
        search.setFocus(reason);
        EXPECT_FALSE(search.hasSelectedText());
        EXPECT_EQ(search.cursorPosition(), 4);
        search.home(true);
    }
    QStringList texts;
    QObject::connect(&search, &QLineEdit::textChanged, [&](const QString& text) { texts += text; });
    search.keyHandler = [](const QKeyEvent& event) { return event.key() == Qt::Key_X; };
    search.end(false);
    QTest::keyClicks(&search, u"xrt"_s);
    EXPECT_THAT(texts, ElementsAre(u"repor", u"report"));
    EXPECT_EQ(search.accessibleName(), u"Search");
}

} // namespace
