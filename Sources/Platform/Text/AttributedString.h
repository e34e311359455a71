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

/// How the lines of an attributed text lie and what becomes of one that is too long.
struct ParagraphStyle {
    TextAlignment alignment = TextAlignment::left;
    LineBreakMode lineBreakMode = LineBreakMode::byWordWrapping;

    friend bool operator==(const ParagraphStyle&, const ParagraphStyle&) = default;
};

/// An image that stands in a text like a character.
struct TextAttachment {
    QImage image;
    QRectF bounds; ///< points; the origin is the lower left corner, seen from the baseline, y upwards

    friend bool operator==(const TextAttachment&, const TextAttachment&) = default;
};

/// A text whose stretches carry attributes: font, colour and whatever else a `QTextCharFormat` holds.
///
/// The attributes are kept as runs, ready for `QTextLayout::setFormats`: in order, without gaps or
/// overlaps within the text, neighbours with equal attributes joined. Ranges count UTF-16 units and
/// are clipped to the text. An attachment is one U+FFFC in the text, with the attachment among that
/// character's attributes. A value; copies are cheap.
class AttributedString final {
public:
    using Run = QTextLayout::FormatRange;

    /// Where a `TextAttachment` is kept among the attributes of its character.
    static constexpr int attachmentProperty = QTextFormat::UserProperty + 1;

    AttributedString() = default;
    explicit AttributedString(const QString& string, const QTextCharFormat& attributes = {});
    explicit AttributedString(const TextAttachment& attachment);

    [[nodiscard]] const QString& string() const { return string_; }
    [[nodiscard]] qsizetype length() const { return string_.size(); }
    [[nodiscard]] bool isEmpty() const { return string_.isEmpty(); }
    [[nodiscard]] const QList<Run>& runs() const { return runs_; }

    /// Puts `other` behind this text, with its attributes. The paragraph style stays this text's.
    void append(const AttributedString& other);
    /// `string` must not be a view of this text.
    void append(QStringView string, const QTextCharFormat& attributes);

    /// Lays `attributes` over those that the range has already; the others of the range stay.
    void addAttributes(const QTextCharFormat& attributes, TextRange range);
    /// The same with one property of `QTextFormat::Property`; an invalid value takes it away.
    void addAttribute(int property, const QVariant& value, TextRange range);

    /// The attributes of the character at `index`; none outside the text.
    [[nodiscard]] QTextCharFormat attributes(qsizetype index) const;
    [[nodiscard]] std::optional<TextAttachment> attachment(qsizetype index) const;

    /// One style for the whole text.
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
