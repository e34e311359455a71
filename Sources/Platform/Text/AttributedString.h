// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Text/TextRange.h"

#include <QImage>
#include <QList>
#include <QRectF>
#include <QString>
#include <QTextLayout>
#include <QVariant>

#include <optional>

namespace quor::platform {

enum class TextAlignment { left, center, right };

enum class LineBreakMode {
    byWordWrapping,
    byCharWrapping,
    byClipping,
    byTruncatingHead,
    byTruncatingTail,
    byTruncatingMiddle
};

/// How the lines of an attributed text are aligned, and what happens to a line that is too long.
struct ParagraphStyle {
    TextAlignment alignment = TextAlignment::left;
    LineBreakMode lineBreakMode = LineBreakMode::byWordWrapping;

    friend bool operator==(const ParagraphStyle&, const ParagraphStyle&) = default;
};

/// An image that stands in a text like a character.
struct TextAttachment {
    QImage image;
    /// Device-independent pixels. The origin is the lower left corner, relative to the place in the text on
    /// the baseline; y points up.
    QRectF bounds;

    friend bool operator==(const TextAttachment&, const TextAttachment&) = default;
};

/// A text with attributes: font, colour and everything else that a `QTextCharFormat` holds. A value; copies
/// are cheap. Use one object on one thread.
///
/// The attributes are kept as runs, ready for `QTextLayout::setFormats`. Runs are in order, cover the whole
/// text and do not overlap; two runs in a row differ. Ranges are in UTF-16 units and are clipped to the
/// text. An attachment is one character U+FFFC of the text with the attachment among its attributes.
class AttributedString final {
public:
    using Run = QTextLayout::FormatRange;

    /// The property of the format that holds a `TextAttachment`.
    static constexpr int attachmentProperty = QTextFormat::UserProperty + 1;

    /// Creates an empty text.
    AttributedString() = default;
    /// Creates a text with the same attributes for all characters.
    explicit AttributedString(const QString& string, const QTextCharFormat& attributes = {});
    /// Creates a text of one character, the attachment.
    explicit AttributedString(const TextAttachment& attachment);

    [[nodiscard]] const QString& string() const { return string_; }
    [[nodiscard]] qsizetype length() const { return string_.size(); }
    [[nodiscard]] bool isEmpty() const { return string_.isEmpty(); }
    [[nodiscard]] const QList<Run>& runs() const { return runs_; }

    /// Appends `other` with its attributes, but without its paragraph style.
    void append(const AttributedString& other);
    /// Appends a text with the same attributes for all its characters. `string` must not be a view of this
    /// text.
    void append(QStringView string, const QTextCharFormat& attributes);

    /// Sets the properties of `attributes` in the range. Other properties of the range stay.
    void addAttributes(const QTextCharFormat& attributes, TextRange range);
    /// The same with one property, of `QTextFormat::Property`. An invalid value removes the property.
    void addAttribute(int property, const QVariant& value, TextRange range);

    /// Returns the attributes of the UTF-16 unit at `index`; an empty format outside the text.
    [[nodiscard]] QTextCharFormat attributes(qsizetype index) const;
    /// Returns the attachment at `index`, or `nullopt` if the character there is not an attachment.
    [[nodiscard]] std::optional<TextAttachment> attachment(qsizetype index) const;

    /// The style of the whole text.
    [[nodiscard]] const ParagraphStyle& paragraphStyle() const { return paragraphStyle_; }
    void setParagraphStyle(const ParagraphStyle& style) { paragraphStyle_ = style; }

    friend bool operator==(const AttributedString&, const AttributedString&) = default;

private:
    void appendRun(qsizetype length, const QTextCharFormat& attributes);
    template <typename Change>
    void changeAttributes(TextRange range, Change change);

    QString string_;
    QList<Run> runs_;
    ParagraphStyle paragraphStyle_;
};

} // namespace quor::platform

Q_DECLARE_METATYPE(quor::platform::TextAttachment)
