// SPDX-License-Identifier: MIT
#include "ToolKit/Markdown/MarkdownParser.h"

#include "Platform/Views/PaletteApplier.h"
#include "ToolKit/Colors/ColorOperations.h"
#include "ToolKit/Drawing/Text/IconAttachment.h"
#include "ToolKit/Drawing/Text/SystemFont.h"
#include "ToolKit/Markdown/AttributedTextRewriter.h"
#include "ToolKit/Markdown/MarkdownMarks.h"

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

QString textIn(const AttributedString& text, TextRange range)
{
    return text.string().mid(range.location, range.length);
}

/// The font alone. Lines that the font does not draw are left unset, so that other attributes can add them.
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

/// The percent-encoded URL; empty if `destination` is not a valid URL.
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

/// Copies the text up to the end of the mark, without the mark itself. Its content gets `attributes`.
void keepContent(
    AttributedTextRewriter& rewriter, const MarkdownMark& mark, const QTextCharFormat& attributes = {})
{
    rewriter.keepUntil(mark.opening.location);
    rewriter.dropUntil(mark.opening.end());
    rewriter.keepUntil(mark.content.end(), attributes);
    rewriter.dropUntil(mark.closing.end());
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
        const QString address = addressOf(textIn(text, mark.argument));
        keepContent(rewriter, mark, address.isEmpty() ? QTextCharFormat() : linkFormat(address, color));
    }
    return rewriter.finish();
}

AttributedString MarkdownParser::withBold(const AttributedString& text) const
{
    const auto marks = boldMarks(text.string());
    if (marks.empty())
        return text;
    const auto bold = formatOf(monospacedDigitFont(pixelSize(font_), QFont::Bold));
    AttributedTextRewriter rewriter(text);
    for (const auto& mark : marks)
        keepContent(rewriter, mark, bold);
    return rewriter.finish();
}

AttributedString MarkdownParser::withIcons(const AttributedString& text) const
{
    AttributedTextRewriter rewriter(text);
    for (const auto& mark : imageMarks(text.string())) {
        keepContent(rewriter, mark);
        const QImage icon = image(textIn(text, mark.argument));
        if (!icon.isNull())
            rewriter.insert(AttributedString(iconAttachment(icon, color_, font_)));
    }
    return rewriter.finish();
}

QColor MarkdownParser::linkColor() const
{
    const QPalette palette = QGuiApplication::palette();
    const auto named = resources_.color(u"AccentColor"_s);
    if (named)
        return named->resolved(platform::colorSchemeOf(palette));
    // Desktops choose their accent colour as a background.
    return readableColor(
        palette.color(QPalette::Active, QPalette::Highlight), palette.color(QPalette::Window));
}

QImage MarkdownParser::image(const QString& name) const
{
    constexpr qsizetype longestFileName = 255;
    if (name.size() > longestFileName)
        return {};
    const double scale = qGuiApp->devicePixelRatio();
    const double height = iconHeight(font_);
    const QSizeF room(10'000, height); // the width is not limited
    QImage image = resources_.image(name, room, scale);
    // The bundle looks images up without a file extension, but the name in the text can have one.
    if (image.isNull() && (name.endsWith(".png"_L1) || name.endsWith(".svg"_L1)))
        image = resources_.image(name.chopped(4), room, scale);
    if (image.isNull())
        image = QIcon::fromTheme(name).pixmap(QSizeF(height, height).toSize(), scale).toImage();
    return image;
}

} // namespace quor::toolkit
