// SPDX-License-Identifier: MIT
#include "ToolKit/Drawing/Text/TextDrawing.h"
#include "Platform/Text/AttributedString.h"
#include "ToolKit/Canvas.h"
#include "ToolKit/Drawing/Text/IconAttachment.h"
#include "ToolKit/Drawing/Text/SystemFont.h"

#include <QFontMetricsF>

#include <gtest/gtest.h>

#include <cmath>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;
using quor::platform::AttributedString;
using quor::test::Canvas;

namespace {

const QString words = u"The quick brown fox jumps over the lazy dog"_s;

class TextDrawingTest : public testing::Test {
protected:
    const QFont font = systemFont(13, QFont::Normal);
    const QFontMetricsF metrics{font};

    struct Place {
        Qt::AlignmentFlag alignment = Qt::AlignLeft;
        TextVerticalAlignment vertical = TextVerticalAlignment::top;
        double maxWidth = unlimitedWidth;
        std::optional<QColor> shadow = std::nullopt;
    };
    [[nodiscard]] Canvas drawn(const QString& text, const Place& place, double scale = 1) const
    {
        return Canvas({300, 100}, scale).draw([&](QPainter& painter) {
            drawText(painter, text, Qt::white, font, place.alignment, place.vertical, false, place.shadow,
                150, 50, place.maxWidth);
        });
    }
};

TEST_F(TextDrawingTest, SizesCoverTheTextItsLinesAndItsWrapping)
{
    EXPECT_EQ(roundedTextLength(3.5), 4);
    const QSizeF one = textSize(words, font, false);
    EXPECT_EQ(one.width(), roundedTextLength(metrics.horizontalAdvance(words)));
    EXPECT_EQ(one.height(), roundedTextLength(metrics.ascent() + metrics.descent()));
    EXPECT_EQ(textSize(QString(), font, false), QSizeF(0.5, one.height())) << "no text still has a line";
    EXPECT_NEAR(textSize(u"a\r\nb\rc\nd"_s, font, false).height(), 4 * one.height(), 2);
    const QSizeF wrapped = textSize(words, font, true, 100);
    EXPECT_LE(wrapped.width(), 101);
    EXPECT_GT(wrapped.height(), 2.5 * one.height());
    EXPECT_LE(textSize(QString(100, u'x'), font, true, 100).width(), 101) << "a word alone is broken";
}

TEST_F(TextDrawingTest, TheMiddleIsCutToTheWidth)
{
    const QString accented = u"e\u0301"_s; // the accent goes with its letter
    for (const auto& [text, cut] :
        {std::pair(u"abcdefghijklmnop"_s, u"abc…nop"_s), std::pair(accented.repeated(9), accented + u'…')}) {
        const double room = metrics.horizontalAdvance(cut) + 0.5;
        EXPECT_EQ(drawn(text, {.maxWidth = room}).image(), drawn(cut, {}).image());
    }
    EXPECT_EQ(drawn(words, {.maxWidth = 0}).image(), drawn(u"…"_s, {}).image());
    EXPECT_NEAR(textSize(QString(2'000'000, u'm'), font, false, 100).width(), 88, 13) << "as much as fits";
}

TEST_F(TextDrawingTest, SurvivesAnyWidthAndText)
{
    const QString broken = QString(QChar(0xD800)) + u"\0\uFFFC\u2028\u202E\t"_s + QString(QChar(0xDC00));
    for (const double width : {std::nan(""), -5.0, 1e-300, HUGE_VAL, -HUGE_VAL}) {
        for (const auto& text : {words, broken, u"\n\n"_s, u"\u0645\u0631\u062D\u0628\u0627"_s}) {
            const QSizeF size = textSize(text, font, false, width) + textSize(text, font, true, width);
            EXPECT_TRUE(size.isValid() && std::isfinite(size.width()) && std::isfinite(size.height()));
        }
    }
}

TEST_F(TextDrawingTest, TextRunsAsItsFirstLetterDoes)
{
    EXPECT_EQ(drawn(u"\u05D0 - m"_s, {}).image(), drawn(u"\u202B\u05D0 - m\u202C"_s, {}).image());
    EXPECT_NE(drawn(u"\u05D0 - m"_s, {}).image(), drawn(u"\u202A\u05D0 - m\u202C"_s, {}).image());
}

TEST_F(TextDrawingTest, TextStandsWhereItsAlignmentSays)
{
    const QSizeF size = textSize(u"HHHHH\nH"_s, font, false);
    double moved = 0; // towards left and top, as part of the size
    for (const Place& place : {Place{Qt::AlignLeft, TextVerticalAlignment::top},
             Place{Qt::AlignHCenter, TextVerticalAlignment::center},
             Place{Qt::AlignRight, TextVerticalAlignment::bottom}}) {
        const QRectF box(QPointF(150, 50) - QPointF(size.width(), size.height()) * moved, size);
        Canvas canvas = drawn(u"HHHHH\nH"_s, place);
        EXPECT_TRUE(box.adjusted(-1, -1, 1, 1).contains(canvas.ink())) << moved;
        canvas.draw([&](QPainter& painter) {
            painter.setCompositionMode(QPainter::CompositionMode_Clear);
            painter.fillRect(QRectF(0, 0, 300, box.center().y()), Qt::black);
        });
        const double width = metrics.horizontalAdvance(u'H');
        EXPECT_NEAR(canvas.ink().center().x(), box.left() + width / 2 + (size.width() - width) * moved, 1)
            << "lines are aligned among each other";
        moved += 0.5;
    }
}

TEST_F(TextDrawingTest, TheShadowLiesAllAroundAndBelow)
{
    for (const double scale : {1.0, 2.0}) {
        const Canvas shadowed = drawn(u"HH"_s, {.shadow = QColor(Qt::red)}, scale);
        const QRectF letters = drawn(u"HH"_s, {}, scale).ink();
        const QRectF all = shadowed.ink(8);
        EXPECT_TRUE(all.contains(letters.adjusted(-1, -1, 1, 1))) << scale;
        EXPECT_TRUE(letters.adjusted(-4, -4, 4, 4).contains(all)) << scale;
        EXPECT_NEAR(all.center().y(), letters.center().y(), 0.6) << "no offset";
        EXPECT_EQ(shadowed.at(letters.left() - 0.75, letters.center().y()).hue(), 0) << "its own colour";
    }
}

TEST_F(TextDrawingTest, AttachmentsTakeTheirRoomAndPlace)
{
    QImage square(8, 8, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::black);
    auto icon = iconAttachment(square, Qt::green, font);
    AttributedString text(u"H "_s);
    text.append(AttributedString(icon));
    const double before = metrics.horizontalAdvance(u"H "_s);
    EXPECT_NEAR(textSize(text, font, false).width(), before + icon.bounds.width(), 1);

    const auto drawnLabel = [&](const AttributedString& label, double width) {
        return Canvas().draw([&](QPainter& painter) {
            painter.setFont(font);
            drawAttributedText(painter, label, Qt::AlignLeft, TextVerticalAlignment::top, false, std::nullopt,
                10, 10, width);
        });
    };
    const double middle = 10 + metrics.ascent() - icon.bounds.center().y();
    EXPECT_EQ(drawnLabel(text, unlimitedWidth).at(10 + before + icon.bounds.width() / 2, middle),
        QColor(Qt::green));
    EXPECT_FALSE(drawnLabel(AttributedString(icon), 1).ink().isNull()) << "an ellipsis in its stead is seen";
    icon.bounds = {0, -10, 20, 50};
    EXPECT_EQ(drawnLabel(AttributedString(icon), unlimitedWidth).ink(), QRectF(10, 10, 20, 50));
    AttributedString lines(icon);
    lines.append(u"\n\n"_s, {});
    lines.append(AttributedString(icon));
    const double height = textSize(lines, font, false, 100).height();
    EXPECT_NEAR(height, 100 + metrics.height(), 1) << "each in its own line";
}

TEST(MonospacedDigitFont, AllDigitsAreEquallyWide)
{
    const QFontMetricsF metrics(monospacedDigitFont(11, QFont::Medium));
    for (const QChar digit : u"123456789"_s)
        EXPECT_NEAR(metrics.horizontalAdvance(digit), metrics.horizontalAdvance(u'0'), 0.05);
}

} // namespace
