// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/Bundle.h"
#include "Platform/Text/AttributedString.h"

#include <QColor>
#include <QFont>
#include <QString>

namespace quor::toolkit {

/// Renders one interface text (a title, hint or tool tip) with a few Markdown marks as attributed text: links
/// `[text](destination)`, bold `**text**` and `__text__`, icons `![](name)`. Everything else is kept as it
/// is; no text is an error.
///
/// Takes time linear in the length of the text. Main thread only, because it uses fonts and images.
class MarkdownParser {
public:
    /// `font` also determines the size of bold text and icons, `color` also tints icons. Both win over
    /// `defaultAttributes`. Icons and the colour "AccentColor" come from `resources`; icons that are missing
    /// there come from the desktop's icon theme, and the colour from the palette's accent colour, in a shade
    /// that is readable on a window.
    MarkdownParser(QString originalString, const QFont& font, const QColor& color,
        QTextCharFormat defaultAttributes = {}, platform::Bundle resources = platform::Bundle::main());
    virtual ~MarkdownParser() = default;
    MarkdownParser(const MarkdownParser&) = delete;
    MarkdownParser& operator=(const MarkdownParser&) = delete;
    MarkdownParser(MarkdownParser&&) = delete;
    MarkdownParser& operator=(MarkdownParser&&) = delete;

    /// Returns the rendered text. A link has the accent colour and no underline, and its percent-encoded
    /// destination as `anchorHref` if that has at least two characters. A link whose destination is not a
    /// valid URL becomes plain text. An icon that is found nowhere is left out. Each call starts from the
    /// original text.
    [[nodiscard]] virtual platform::AttributedString parse();

    /// Whether `parse` has found a link, with a valid destination or not.
    [[nodiscard]] bool linkMatchesFound() const { return linkMatchesFound_; }

private:
    [[nodiscard]] platform::AttributedString withLinks(const platform::AttributedString& text);
    [[nodiscard]] platform::AttributedString withBold(const platform::AttributedString& text) const;
    [[nodiscard]] platform::AttributedString withIcons(const platform::AttributedString& text) const;
    [[nodiscard]] QColor linkColor() const;
    [[nodiscard]] QImage image(const QString& name) const;

    QString originalString_;
    QFont font_;
    QColor color_;
    QTextCharFormat defaultAttributes_;
    platform::Bundle resources_;
    bool linkMatchesFound_ = false;
};

} // namespace quor::toolkit
