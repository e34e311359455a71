// SPDX-License-Identifier: MIT
#include "ToolKit/Markdown/MarkdownParser.h"

#include "Platform/Views/PaletteApplier.h"
#include "ToolKit/Drawing/IconAttachment.h"
#include "ToolKit/Drawing/SystemFont.h"
#include "ToolKit/Markdown/AttributedTextRewriter.h"
#include "ToolKit/Markdown/MarkdownMarks.h"

#include <QFontInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QPalette>
#include <QUrl>

#include <utility>

using namespace Qt::StringLiterals;
using quor::platform::AttributedString;
using quor::platform::TextRange;

namespace quor::toolkit {

namespace {

QString stretch(const AttributedString& text, TextRange range)
{
    return text.string().mid(range.location, range.length);
}

/// The font alone: a line that it does not draw may come from elsewhere.
QTextCharFormat formatOf(const QFont& font)
{
    QTextCharFormat format;
    format.setFont(font);
    if (!font.underline())
        format.clearProperty(QTextFormat::TextUnderlineStyle);
    if (!font.overline())
        format.clearProperty(QTextFormat::FontOverline);
    if (!font.strikeOut())
        format.clearProperty(QTextFormat::FontStrikeOut);
    return format;
}

/// The URL as text, ready for use; empty if `destination` makes none.
QString addressOf(const QString& destination)
{
    const QUrl url(destination, QUrl::StrictMode);
    return url.isValid() ? url.toString(QUrl::FullyEncoded) : QString();
}

QTextCharFormat linkFormat(const QString& address, const QColor& color)
{
    QTextCharFormat format;
    if (address.size() >= 2) {
        format.setAnchor(true);
        format.setAnchorHref(address);
    }
    format.setForeground(color);
    format.setUnderlineStyle(QTextCharFormat::NoUnderline);
    format.setUnderlineColor(Qt::transparent);
    return format;
}

} // namespace

MarkdownParser::MarkdownParser(QString originalString, const QFont& font, const QColor& color,
    QTextCharFormat defaultAttributes, platform::Bundle resources)
    : originalString_(std::move(originalString))
    , font_(font)
    , color_(color)
    , defaultAttributes_(std::move(defaultAttributes))
    , resources_(std::move(resources))
{
}

AttributedString MarkdownParser::parse()
{
    QTextCharFormat format = defaultAttributes_;
    format.merge(formatOf(font_));
    format.setForeground(color_);
    return withIcons(withBold(withLinks(AttributedString(originalString_, format))));
}

AttributedString MarkdownParser::withLinks(const AttributedString& text)
{
    const auto marks = linkMarks(text.string());
    if (marks.empty())
        return text;
    linkMatchesFound_ = true;
    const QColor color = linkColor();
    AttributedTextRewriter rewriter(text);
    for (const auto& mark : marks) {
        const QString address = addressOf(stretch(text, mark.argument));
        rewriter.keepUntil(mark.opening.location);
        rewriter.dropUntil(mark.opening.end());
        rewriter.keepUntil(
            mark.content.end(), address.isEmpty() ? QTextCharFormat() : linkFormat(address, color));
        rewriter.dropUntil(mark.closing.end());
    }
    return rewriter.finish();
}

AttributedString MarkdownParser::withBold(const AttributedString& text) const
{
    const auto marks = boldMarks(text.string());
    if (marks.empty())
        return text;
    const auto bold = formatOf(monospacedDigitFont(QFontInfo(font_).pixelSize(), QFont::Bold));
    AttributedTextRewriter rewriter(text);
    for (const auto& mark : marks) {
        rewriter.keepUntil(mark.opening.location);
        rewriter.dropUntil(mark.opening.end());
        rewriter.keepUntil(mark.content.end(), bold);
        rewriter.dropUntil(mark.closing.end());
    }
    return rewriter.finish();
}

AttributedString MarkdownParser::withIcons(const AttributedString& text) const
{
    AttributedTextRewriter rewriter(text);
    for (const auto& mark : imageMarks(text.string())) {
        rewriter.keepUntil(mark.opening.location);
        rewriter.dropUntil(mark.opening.end());
        const QImage icon = image(stretch(text, mark.argument));
        if (!icon.isNull())
            rewriter.insert(AttributedString(iconAttachment(icon, color_, font_)));
    }
    return rewriter.finish();
}

QColor MarkdownParser::linkColor() const
{
    const QPalette palette = QGuiApplication::palette();
    const auto named = resources_.color(u"AccentColor"_s);
    return named ? named->resolved(platform::colorSchemeOf(palette)) : palette.color(QPalette::Highlight);
}

QImage MarkdownParser::image(const QString& name) const
{
    constexpr qsizetype longestFileName = 255;
    if (name.size() > longestFileName)
        return {};
    const double scale = qGuiApp->devicePixelRatio();
    const double height = iconHeight(font_);
    const QSizeF room(10'000, height); // only the height binds
    QImage image = resources_.image(name, room, scale);
    // A name may say what kind of file it is.
    if (image.isNull() && (name.endsWith(".png"_L1) || name.endsWith(".svg"_L1)))
        image = resources_.image(name.chopped(4), room, scale);
    if (image.isNull())
        image = QIcon::fromTheme(name).pixmap(QSizeF(height, height).toSize(), scale).toImage();
    return image;
}

} // namespace quor::toolkit
