// SPDX-License-Identifier: MIT
#include "ToolKit/Drawing/TextDrawing.h"
#include "Platform/Text/AttributedString.h"
#include "ToolKit/Canvas.h"
#include "ToolKit/Drawing/IconAttachment.h"
#include "ToolKit/Drawing/SystemFont.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <vector>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;
using quor::platform::AttributedString;
using quor::test::Canvas;

namespace {

const QString words = u"The quick brown fox jumps over the lazy dog"_s;

QFont plainFont()
{
    return systemFont(13, QFont::Normal);
}

QRectF inkOf(const QString& text, Qt::AlignmentFlag alignment, TextVerticalAlignment vertical)
{
    Canvas canvas({600, 300});
    canvas.draw([&](QPainter& painter) {
        drawText(painter, text, Qt::black, plainFont(), alignment, vertical, false, std::nullopt, 300, 150);
    });
    return canvas.ink();
}

TEST(TextSize, CoversTheTextItsLinesAndItsWrapping)
{
    const std::vector<std::pair<double, double>> lengths
        = {{0, 0.5}, {3, 3.5}, {3.2, 3.5}, {3.5, 4}, {3.6, 4}, {HUGE_VAL, 0}};
    for (const auto& [length, expected] : lengths)
        EXPECT_EQ(roundedTextLength(length), expected) << length;

    const QFont font = plainFont();
    const QFontMetricsF metrics(font);
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

TEST(TextSize, CutsTheMiddleToTheWidth)
{
    const QFont font = plainFont();
    for (const double width : {250.0, 150.0, 60.0}) {
        const QSizeF size = textSize(words, font, false, width);
        EXPECT_LE(size.width(), width + 1);
        EXPECT_GT(size.width(), width - 25) << "as much as fits";
    }
    const auto image = [&](const QString& text, double width) {
        return Canvas()
            .draw([&](QPainter& painter) {
                drawText(painter, text, Qt::black, font, Qt::AlignLeft, TextVerticalAlignment::top, false,
                    std::nullopt, 5, 5, width);
            })
            .image();
    };
    EXPECT_EQ(image(u"abcdefghijklmnop"_s, QFontMetricsF(font).horizontalAdvance(u"abc…nop"_s) + 0.5),
        image(u"abc…nop"_s, unlimitedWidth));
    EXPECT_EQ(image(words, 0), image(u"…"_s, unlimitedWidth));
    const QString accented = u"e\u0301"_s;
    const double room = QFontMetricsF(font).horizontalAdvance(accented + u'…') + 0.5;
    EXPECT_EQ(image(accented.repeated(9), room), image(accented + u'…', unlimitedWidth))
        << "an accent goes with its letter";
}

TEST(TextSize, SurvivesAnyWidthAndText)
{
    const QFont font = plainFont();
    const QString broken = QString(QChar(0xD800)) + u"\0\uFFFC\u2028\u202E\t"_s + QString(QChar(0xDC00));
    for (const bool wraps : {false, true}) {
        for (const double width : {std::nan(""), -5.0, 0.0, 1e-300, HUGE_VAL, -HUGE_VAL}) {
            for (const auto& text : {words, broken, u"\n\n"_s, u"\u0645\u0631\u062D\u0628\u0627"_s}) {
                const QSizeF size = textSize(text, font, wraps, width);
                EXPECT_TRUE(size.isValid() && std::isfinite(size.width()) && std::isfinite(size.height()));
            }
        }
    }
    EXPECT_LT(textSize(QString(2'000'000, u'm'), font, false, 100).width(), 101);
}

TEST(DrawText, StandsWhereItsAlignmentSays)
{
    const QSizeF size = textSize(u"Hxg"_s, plainFont(), false);
    struct Case {
        Qt::AlignmentFlag alignment;
        TextVerticalAlignment vertical;
        double moved; // towards left and top, as part of the size
    };
    for (const Case& c : {Case{Qt::AlignLeft, TextVerticalAlignment::top, 0},
             Case{Qt::AlignHCenter, TextVerticalAlignment::center, 0.5},
             Case{Qt::AlignRight, TextVerticalAlignment::bottom, 1}}) {
        const QRectF box(QPointF(300, 150) - QPointF(size.width(), size.height()) * c.moved, size);
        const QRectF ink = inkOf(u"Hxg"_s, c.alignment, c.vertical);
        EXPECT_TRUE(box.adjusted(-1, -1, 1, 1).contains(ink)) << c.moved;
        EXPECT_NEAR(ink.center().x(), box.center().x(), 1.5);
        EXPECT_GT(ink.height(), box.height() * 0.6);
    }
}

TEST(DrawText, AlignsItsLinesAmongEachOther)
{
    const double line = textSize(u"H"_s, plainFont(), false).height();
    for (const auto alignment : {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight}) {
        Canvas canvas({600, 300});
        canvas.draw([&](QPainter& painter) {
            drawText(painter, u"HHHHHHHHHH\nH"_s, Qt::black, plainFont(), alignment,
                TextVerticalAlignment::top, true, std::nullopt, 300, 150);
            painter.setCompositionMode(QPainter::CompositionMode_Clear);
            painter.fillRect(QRectF(0, 0, 600, 150 + line), Qt::black);
        });
        const QRectF alone = inkOf(u"H"_s, alignment, TextVerticalAlignment::top);
        EXPECT_NEAR(canvas.ink().center().x(), alone.center().x(), 1) << alignment;
    }
}

TEST(DrawText, TheShadowLiesAllAroundAndBelow)
{
    for (const double scale : {1.0, 2.0}) {
        const auto draw = [&](std::optional<QColor> shadow) {
            return Canvas({200, 100}, scale).draw([&](QPainter& painter) {
                drawText(painter, u"HH"_s, Qt::white, plainFont(), Qt::AlignLeft, TextVerticalAlignment::top,
                    false, shadow, 50, 40);
            });
        };
        const Canvas plain = draw(std::nullopt);
        const Canvas shadowed = draw(QColor(Qt::red));
        const QRectF letters = plain.ink();
        const QRectF all = shadowed.ink(8);
        EXPECT_TRUE(all.contains(letters.adjusted(-1, -1, 1, 1))) << scale;
        EXPECT_TRUE(letters.adjusted(-4, -4, 4, 4).contains(all)) << scale;
        EXPECT_NEAR(all.center().y(), letters.center().y(), 0.6) << "no offset";
        const QColor beside = shadowed.at(letters.left() - 0.75, letters.center().y());
        EXPECT_GT(beside.alpha(), 20);
        EXPECT_EQ(beside.green(), 0) << "the shadow has its own colour";
    }
}

TEST(DrawAttributedText, AttachmentsTakeTheirRoomAndPlace)
{
    const QFont font = plainFont();
    QImage square(8, 8, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::black);
    const auto icon = iconAttachment(square, Qt::green, font);
    AttributedString text(u"H "_s);
    text.append(AttributedString(icon));
    const double before = QFontMetricsF(font).horizontalAdvance(u"H "_s);
    EXPECT_NEAR(textSize(text, font, false).width(), before + icon.bounds.width(), 1);

    const auto drawn = [&](const AttributedString& label, double width) {
        return Canvas().draw([&](QPainter& painter) {
            painter.setFont(font);
            drawAttributedText(painter, label, Qt::AlignLeft, TextVerticalAlignment::top, false, std::nullopt,
                10, 10, width);
        });
    };
    const Canvas canvas = drawn(text, unlimitedWidth);
    const double middle = 10 + QFontMetricsF(font).ascent() - icon.bounds.center().y();
    EXPECT_EQ(canvas.at(10 + before + icon.bounds.width() / 2, middle), QColor(Qt::green));
    EXPECT_FALSE(drawn(AttributedString(icon), 1).ink().isNull()) << "an ellipsis in its stead is seen";

    auto high = icon;
    high.bounds = {0, -10, 20, 50};
    EXPECT_EQ(textSize(AttributedString(high), font, false).height(), 50.5) << "it makes its line higher";
    EXPECT_EQ(drawn(AttributedString(high), unlimitedWidth).ink(), QRectF(10, 10, 20, 50));
}

TEST(MonospacedDigitFont, AllDigitsAreEquallyWide)
{
    const auto isEven = [](const QFont& font) {
        std::set<double> widths;
        for (const QChar digit : u"0123456789"_s)
            widths.insert(QFontMetricsF(font).horizontalAdvance(QString(10, digit)));
        return *widths.rbegin() - *widths.begin() < 0.05;
    };
    const QFont own = QGuiApplication::font();
    // A font of symbols makes the fallback necessary; where there is none, the user's is checked.
    for (const auto& family : QFontDatabase::families()) {
        if (!isEven(QFont(family)))
            QGuiApplication::setFont(QFont(family));
    }
    const QFont font = monospacedDigitFont(11, QFont::Medium);
    QGuiApplication::setFont(own);
    EXPECT_TRUE(isEven(font)) << qPrintable(font.family());
    EXPECT_EQ(font.pixelSize(), 11);
    EXPECT_EQ(font.weight(), QFont::Medium);
    EXPECT_EQ(monospacedDigitFont(std::nan(""), QFont::Normal).pixelSize(), 1);
}

} // namespace
