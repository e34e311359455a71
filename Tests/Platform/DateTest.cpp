// SPDX-License-Identifier: MIT
#include "Platform/Calendar/Date.h"

#include <QDateTime>
#include <QTimeZone>

#include <gtest/gtest.h>

#include <cmath>

using namespace quor::platform;
using namespace Qt::StringLiterals;

namespace {

TEST(Date, IsTheSameMomentAsAQDateTime)
{
    const QTimeZone berlin("Europe/Berlin");
    const struct {
        QString text; // UTC
        double seconds;
        QString inBerlin;
    } cases[] = {
        {u"1970-01-01T00:00:00.000Z"_s, 0, u"1970-01-01T01:00:00.000+01:00"_s},
        {u"1969-12-31T23:59:59.999Z"_s, -0.001, u"1970-01-01T00:59:59.999+01:00"_s},
        {u"2024-10-27T00:30:00.001Z"_s, 1'729'989'000.001, u"2024-10-27T02:30:00.001+02:00"_s},
        {u"2024-10-27T01:30:00.999Z"_s, 1'729'992'600.999, u"2024-10-27T02:30:00.999+01:00"_s},
        {u"0044-03-15T11:00:00.000Z"_s, -60'772'251'600, u"0044-03-15T11:53:28.000+00:53"_s},
    };
    for (const auto& each : cases) {
        const QDateTime dateTime = QDateTime::fromString(each.text, Qt::ISODateWithMs);
        const auto date = dateFromQDateTime(dateTime);
        ASSERT_TRUE(date) << qPrintable(each.text);
        EXPECT_EQ(secondsSince1970(*date), each.seconds) << qPrintable(each.text);
        EXPECT_EQ(qDateTimeFromDate(*date, berlin).toString(Qt::ISODateWithMs), each.inBerlin);
        EXPECT_EQ(dateFromQDateTime(qDateTimeFromDate(*date, berlin)), date) << qPrintable(each.text);
        EXPECT_EQ(qDateTimeFromDate(*date), dateTime);
        EXPECT_EQ(qDateTimeFromDate(*date).timeSpec(), Qt::LocalTime);
    }
}

TEST(Date, KeepsEveryMillisecondOfItsRange)
{
    for (const qint64 start :
        {qint64(-8e15), qint64(-62'000'000'000'000), qint64(1'729'989'000'000), qint64(8e15) - 1000}) {
        for (qint64 millisecond = start; millisecond <= start + 1000; ++millisecond) {
            const auto date = dateFromQDateTime(QDateTime::fromMSecsSinceEpoch(millisecond, Qt::UTC));
            ASSERT_TRUE(date);
            ASSERT_EQ(qDateTimeFromDate(*date, QTimeZone::utc()).toMSecsSinceEpoch(), millisecond);
        }
    }
    const Date fine = dateFromSeconds(1'729'989'000.0014);
    EXPECT_EQ(qDateTimeFromDate(fine, QTimeZone::utc()).toMSecsSinceEpoch(), 1'729'989'000'001) << "rounded";
}

TEST(Date, HasNoQDateTimeOutOfRange)
{
    for (const double seconds : {8.1e12, -8.1e12, 1e300, double(INFINITY), double(NAN)}) {
        EXPECT_FALSE(qDateTimeFromDate(dateFromSeconds(seconds)).isValid()) << seconds;
        EXPECT_FALSE(qDateTimeFromDate(dateFromSeconds(seconds), QTimeZone::utc()).isValid()) << seconds;
    }
    EXPECT_FALSE(qDateTimeFromDate(Date(), QTimeZone()).isValid());
    EXPECT_EQ(dateFromQDateTime(QDateTime()), std::nullopt);
    EXPECT_EQ(dateFromQDateTime(QDateTime(QDate(2024, 2, 30), QTime(0, 0))), std::nullopt);
    EXPECT_EQ(dateFromQDateTime(QDateTime::fromMSecsSinceEpoch(qint64(8.1e15), Qt::UTC)), std::nullopt);
}

} // namespace
