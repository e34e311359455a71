// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/Bundle.h"
#include "Platform/Text/AttributedString.h"

#include <QColor>
#include <QFont>
#include <QString>

namespace quor::toolkit {

/// Turns the little Markdown of interface texts (titles, hints, tool tips) into attributed text:
/// links `[text](destination)`, bold `**text**` and `__text__`, icons `![](name)`. All else stands as
/// it is, and any text is fine.
///
/// A parser is made for one text. It takes time linear in the text. Main thread only, for it touches
/// fonts and images.
class MarkdownParser {
public:
    /// `font` also gives the size of bold text and of icons, `color` also tints icons. Both win over
    /// `defaultAttributes`. Icons and the colour "AccentColor" are taken from `resources`; an icon
    /// that it does not have comes from the desktop's icon theme.
    MarkdownParser(QString originalString, const QFont& font, const QColor& color,
        QTextCharFormat defaultAttributes = {}, platform::Bundle resources = platform::Bundle::main());
    virtual ~MarkdownParser() = default;
    MarkdownParser(const MarkdownParser&) = delete;
    MarkdownParser& operator=(const MarkdownParser&) = delete;
    MarkdownParser(MarkdownParser&&) = delete;
    MarkdownParser& operator=(MarkdownParser&&) = delete;

    /// A link takes the accent colour and no underline. Its destination, percent-encoded, is the
    /// format's `anchorHref`, if it has two characters or more; one that makes no URL leaves plain
    /// text. An icon that is found nowhere leaves nothing. Each call starts from the original text.
    [[nodiscard]] virtual platform::AttributedString parse();

    /// Whether `parse` has found a link, with a good destination or not.
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
