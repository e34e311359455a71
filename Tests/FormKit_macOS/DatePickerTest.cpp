// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/CalendarPopup.h"
#include "FormKit_macOS/Elements/FormDatePicker.h"
#include "FormKit_macOS/Elements/FormFromToDatePicker.h"
#include "FormKit_macOS/FormViewFactory.h"
#include "Support/WaitFor.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <gtest/gtest.h>

using namespace quor::formkit;
using namespace Qt::StringLiterals;
using namespace std::string_literals;
using quor::platform::Date;
using quor::test::waitFor;

namespace {

/// The texts that the fields of an element show.
QString shown(const FormElement& element)
{
    QStringList texts;
    for (QWidget* const picker : element.focusableViews())
        texts += qobject_cast<CustomDatePicker*>(picker)->text();
    return texts.join(u" | "_s);
}

/// A window with elements in Berlin, in the format of a region that each test can choose.
class DatePickers : public testing::Test {
protected:
    DatePickers() { inRegion("de_DE", "Europe/Berlin"); }
    ~DatePickers() override
    {
        QLocale::setDefault(before_);
        qunsetenv("TZ");
    }
    static void inRegion(const char* locale, const char* zone)
    {
        QLocale::setDefault(QLocale(QLatin1StringView(locale)));
        qputenv("TZ", zone);
    }
    /// "2024-02-29T09:30:00+01:00"
    static Date date(const char* iso)
    {
        return *quor::platform::dateFromQDateTime(QDateTime::fromString(QLatin1StringView(iso), Qt::ISODate));
    }
    static std::string utc(std::optional<Date> value)
    {
        return value ? quor::platform::qDateTimeFromDate(*value, QTimeZone::utc())
                           .toString(u"yyyy-MM-dd HH:mm:ss"_s)
                           .toStdString()
                     : "none";
    }
    template <class T>
    void show(const std::shared_ptr<T>& element)
    {
        delete window_.layout();
        window_.setLayout(new QVBoxLayout);
        window_.layout()->addWidget(element->view());
        element->setValueChanged([this](FormElement&) { ++changes_; });
        window_.show();
        window_.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    }
    std::shared_ptr<FormDatePicker> showPicker(const char* value, DatePickerMode mode)
    {
        auto picker = makeElement<FormDatePicker>();
        picker->setMode(mode);
        picker->setValue(date(value));
        show(picker);
        picker->focusableViews().front()->setFocus(Qt::TabFocusReason);
        return picker;
    }
    /// Types letters; '<' is Left, '>' Right, '^' Up, 'v' Down, '!' Return, '$' End.
    static void type(const char* keys)
    {
        const QMap<char, Qt::Key> special{{'<', Qt::Key_Left}, {'>', Qt::Key_Right}, {'^', Qt::Key_Up},
            {'v', Qt::Key_Down}, {'!', Qt::Key_Return}, {'$', Qt::Key_End}};
        for (; *keys; ++keys) {
            if (special.contains(*keys))
                QTest::keyClick(QApplication::focusWidget(), special[*keys]);
            else
                QTest::keyClick(QApplication::focusWidget(), *keys);
        }
    }

    QLocale before_;
    QWidget window_;
    int changes_ = 0;
};

TEST_F(DatePickers, WriteDatesAsTheRegionDoes)
{
    const std::tuple<const char*, const char*, QString> cases[] = {
        {"de_DE", "2024-02-29T09:05:00+01:00", u"29.02.2024 | 09:05"_s},
        {"en_US", "2024-02-29T21:05:00+01:00", u"02/29/2024 | 9:05 PM"_s},
        {"en_GB", "2024-02-29T00:05:00+01:00", u"29/02/2024 | 00:05"_s},
        {"sv_SE", "9999-12-31T23:59:00+01:00", u"9999-12-31 | 23:59"_s},
        {"de_DE", "0001-01-03T12:00:00+01:00", u"05.01.0001 | 11:53"_s}, // the Julian calendar, local time
        {"ar_EG", "2024-02-29T09:05:00+01:00", u"٢٩\u200F/٠٢\u200F/٢٠٢٤ | ٩:٠٥ ص"_s},
    };
    for (const auto& [locale, value, text] : cases) {
        inRegion(locale, "Europe/Berlin");
        const auto picker = makeElement<FormDatePicker>();
        picker->setMode(DatePickerMode::dateTime);
        picker->setValue(date(value));
        EXPECT_EQ(shown(*picker).toStdString(), text.toStdString()) << locale;
        EXPECT_EQ(picker->value(), date(value)) << locale;
        EXPECT_FALSE(picker->hasChanges());
    }
}

TEST_F(DatePickers, TakeWhatIsTyped)
{
    struct Case {
        const char* locale;
        const char* keys;
        const char* value;
        DatePickerMode mode;
        int changes;
    };
    const auto [time, day] = std::pair(DatePickerMode::time, DatePickerMode::date);
    const Case cases[] = {
        {"de_DE", "31122025", "2025-12-31 08:30:00", day, 1},
        {"de_DE", "3.4.25!", "2025-04-03 07:30:00", day, 1},
        {"de_DE", "3111", "2024-02-29 08:30:00", day, 0}, // not finished
        {"de_DE", "312!", "2024-02-29 08:30:00", day, 0}, // has no 31st: the last day, which it was
        {"de_DE", "$2023!", "2023-02-28 08:30:00", day, 1},
        {"de_DE", "$0!", "2000-02-29 08:30:00", day, 1},
        {"en_US", "1v", "2023-12-29 08:30:00", day, 1},
        {"de_DE", "<<>^", "2024-03-29 08:30:00", day, 1},
        {"de_DE", "1745", "2024-02-29 16:45:00", time, 1},
        {"de_DE", "7:5!", "2024-02-29 06:05:00", time, 1},
        {"de_DE", "v", "2024-02-29 07:30:00", time, 1},
        {"en_US", "445p", "2024-02-29 15:45:00", time, 1},
        {"en_US", "1200a", "2024-02-28 23:00:00", time, 1},
        {"de_DE", "!", "2024-02-29 08:30:00", time, 0},
    };
    for (const Case& given : cases) {
        inRegion(given.locale, "Europe/Berlin");
        changes_ = 0;
        const auto picker = showPicker("2024-02-29T09:30:00+01:00", given.mode);
        type(given.keys);
        EXPECT_EQ(utc(picker->value()), given.value) << given.locale << ' ' << given.keys;
        EXPECT_EQ(changes_, given.changes) << given.locale << ' ' << given.keys;
        EXPECT_EQ(picker->hasChanges(), given.changes > 0);
    }
}

TEST_F(DatePickers, MindClocksThatAreChanged)
{
    struct Case {
        const char* value;
        const char* keys;
        const char* result;
    };
    const Case cases[] = {
        {"2024-03-31T01:30:00+01:00", "0230", "2024-03-31 01:00:00"}, // skipped: 03:00
        {"2024-03-31T03:00:00+02:00", ">v", "2024-03-31 00:59:00"}, // stepped back over the gap
        {"2024-10-27T02:30:00+02:00", ">^", "2024-10-27 00:31:00"}, // the first 02:31
        {"2024-10-27T02:30:00+01:00", ">^", "2024-10-27 01:31:00"}, // the second
        {"2024-10-27T03:30:00+01:00", "v", "2024-10-27 01:30:00"},
    };
    for (const Case& given : cases) {
        const auto picker = showPicker(given.value, DatePickerMode::time);
        type(given.keys);
        EXPECT_EQ(utc(picker->value()), given.result) << given.value;
    }
    const auto picker = showPicker("2024-02-29T09:30:00+01:00", DatePickerMode::dateTime);
    qputenv("TZ", "America/New_York"); // what is edited is what is seen
    type("^");
    EXPECT_EQ(utc(picker->value()), "2024-03-01 08:30:00");
    EXPECT_EQ(shown(*picker), u"01.03.2024 | 03:30"_s);
}

TEST_F(DatePickers, WheelNeedsTheKeyboard)
{
    const auto picker = showPicker("2024-02-29T09:30:00+01:00", DatePickerMode::dateTime);
    for (QWidget* const view : picker->focusableViews()) {
        QWheelEvent wheel(
            {5, 5}, view->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(view, &wheel);
        EXPECT_EQ(wheel.isAccepted(), view->hasFocus());
    }
    EXPECT_EQ(utc(picker->value()), "2024-03-01 08:30:00");
}

TEST_F(DatePickers, CalendarChoosesADayAndEndsWithItsField)
{
    auto picker = showPicker("2024-02-29T09:30:00+01:00", DatePickerMode::date);
    const auto popup = [&] { return window_.findChild<CalendarPopup*>(); };
    auto* const button = picker->view()->findChild<QToolButton*>();
    QTest::mouseClick(button, Qt::LeftButton);
    ASSERT_TRUE(popup() && popup()->isVisible());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(utc(picker->value()), "2024-03-01 08:30:00");
    EXPECT_EQ(changes_, 1);
    const std::function<void()> closings[]
        = {[&] { picker->setEnabled(false); }, [&] { picker->setMode(DatePickerMode::dateTime); },
            [&] { picker->setHidden(true); }, [&] { picker.reset(); }};
    for (const auto& closing : closings) {
        picker->setEnabled(true);
        picker->setHidden(false);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QTest::keyClick(picker->focusableViews().front(), Qt::Key_F4);
        const QPointer<CalendarPopup> open = popup();
        ASSERT_TRUE(open && open->isVisible());
        closing();
        EXPECT_TRUE(waitFor([&] { return !open; }));
    }
}

TEST_F(DatePickers, MayEndInAHandlerWhileTheCalendarIsOpen)
{
    std::shared_ptr<FormDatePicker> picker;
    auto window = std::make_unique<QWidget>();
    const std::pair<const char*, std::function<void()>> endings[]
        = {{"element", [&] { picker.reset(); }}, {"view", [&] { delete picker->view(); }},
            {"parent of the view", [&] { delete picker->view()->parentWidget(); }},
            {"window", [&] { window.reset(); }}};
    for (const auto& [name, end] : endings) {
        SCOPED_TRACE(name);
        picker = showPicker("2024-02-29T09:30:00+01:00", DatePickerMode::date);
        auto* const parent = new QWidget(window.get());
        parent->setLayout(new QVBoxLayout);
        parent->layout()->addWidget(picker->view());
        window->show();
        QTest::keyClick(picker->focusableViews().front(), Qt::Key_F4);
        const QPointer<CalendarPopup> popup = window->findChild<CalendarPopup*>();
        ASSERT_TRUE(popup && popup->isVisible());
        if (name == "window"s) {
            end(); // which also ends the calendar, so not in its own handler
        } else {
            QObject::connect(popup->findChild<MonthCalendar*>(), &QCalendarWidget::currentPageChanged, end);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown);
        }
        EXPECT_TRUE(waitFor([&] { return !popup; }));
    }
    // A day is chosen, and the handler ends the element.
    picker = showPicker("2024-02-29T09:30:00+01:00", DatePickerMode::date);
    picker->setValueChanged([&](FormElement&) { picker.reset(); });
    QTest::keyClick(picker->focusableViews().front(), Qt::Key_F4);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(picker);
    EXPECT_TRUE(waitFor([&] { return !window_.findChild<CalendarPopup*>(); }));
}

TEST_F(DatePickers, CanHaveNoDate)
{
    const auto picker = showPicker("2024-02-29T09:30:00+01:00", DatePickerMode::date);
    auto* const box = picker->view()->findChild<QCheckBox*>();
    EXPECT_TRUE(box->isHidden());
    picker->setShowsClearButton(true);
    picker->setPromptValue(date("2025-01-01T10:00:00+01:00"));
    for (const auto& [value, text] :
        {std::pair("none", u"01.01.2025"_s), std::pair("2025-01-01 09:00:00", u"01.01.2025"_s)}) {
        box->click();
        EXPECT_EQ(utc(picker->value()), value);
        EXPECT_EQ(shown(*picker), text);
        EXPECT_EQ(picker->focusableViews().front()->isEnabled(), picker->value().has_value());
    }
    EXPECT_EQ(changes_, 2);
}

TEST_F(DatePickers, PairIsEmptyOrOrdered)
{
    const auto pair = makeElement<FormFromToDatePicker>(FormViewFactory());
    pair->setMode(DatePickerMode::time);
    pair->setFromValue(date("2024-02-29T09:00:00+01:00"));
    pair->setToValue(date("2024-02-29T10:00:00+01:00"));
    pair->setShowsClearButton(true);
    show(pair);
    const auto values = [&] { return utc(pair->fromValue()) + " to " + utc(pair->toValue()); };
    const auto fields = pair->focusableViews();
    fields[0]->setFocus(Qt::TabFocusReason);
    type("1130");
    EXPECT_EQ(values(), "2024-02-29 10:30:00 to 2024-02-29 10:30:00");
    fields[1]->setFocus(Qt::TabFocusReason);
    type("0915");
    EXPECT_EQ(values(), "2024-02-29 08:15:00 to 2024-02-29 08:15:00");
    EXPECT_TRUE(pair->hasChanges());
    pair->setToPromptValue(date("2024-02-29T08:00:00+01:00"));
    pair->setFromPromptValue(date("2024-02-29T12:00:00+01:00"));
    const auto boxes = pair->view()->findChildren<QCheckBox*>();
    boxes[0]->click();
    EXPECT_EQ(values(), "none to none");
    boxes[0]->click();
    EXPECT_EQ(values(), "2024-02-29 11:00:00 to 2024-02-29 11:00:00");
    boxes[1]->click();
    EXPECT_EQ(values(), "none to none");
    pair->setEnabled(false);
    EXPECT_FALSE(boxes[0]->isEnabled() || boxes[1]->isEnabled());
    EXPECT_EQ(changes_, 5);
}

} // namespace
