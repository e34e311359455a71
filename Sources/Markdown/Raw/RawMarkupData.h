// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Raw/MarkupKind.h"
#include "Markdown/Raw/SourceRange.h"

#include <QString>

#include <optional>
#include <vector>

namespace quor::markdown {

enum class Checkbox : quint8 { checked, unchecked };

/// How the cells of a table column are aligned. A column can also have no alignment.
enum class ColumnAlignment : quint8 { left, center, right };

using ColumnAlignments = std::vector<std::optional<ColumnAlignment>>;

/// The contents of one node of a raw tree, without its children: the kind, and the fields that this kind
/// uses. A plain value. The functions below make one for `RawMarkupBuilder`; `RawMarkup::data` returns one.
struct RawMarkupData {
    MarkupKind kind = MarkupKind::document;
    /// The content of code, HTML and text, the source of an image, the destination of a link or symbol link,
    /// the name of a directive or parameter, the attributes of inline attributes.
    std::optional<QString> text;
    /// The language of a code block, the title of an image or link, the arguments of a directive.
    std::optional<QString> detail;
    quint32 number = 0; ///< level of a heading, first number of an ordered list, column span of a cell
    quint32 rowspan = 0; ///< of a cell
    std::optional<Checkbox> checkbox; ///< of a list item that is a task
    ColumnAlignments columnAlignments; ///< of a table
    SourceLocation nameLocation; ///< of a directive

    /// For the kinds without other fields.
    static RawMarkupData plain(MarkupKind kind);
    /// For the kinds whose only field is `text`: `htmlBlock`, `inlineCode`, `customInline`, `inlineHTML`,
    /// `text`, `symbolLink`, `inlineAttributes` and `doxygenParam`.
    static RawMarkupData literal(MarkupKind kind, const QString& text);
    static RawMarkupData codeBlock(const QString& code, const std::optional<QString>& language = {});
    static RawMarkupData heading(quint32 level);
    static RawMarkupData listItem(std::optional<Checkbox> checkbox = {});
    static RawMarkupData orderedList(quint32 startIndex = 1);
    static RawMarkupData blockDirective(
        const QString& name, SourceLocation nameLocation, const QString& arguments);
    static RawMarkupData image(
        const std::optional<QString>& source, const std::optional<QString>& title = {});
    static RawMarkupData link(
        const std::optional<QString>& destination, const std::optional<QString>& title = {});
    static RawMarkupData table(const ColumnAlignments& columnAlignments);
    static RawMarkupData tableCell(quint32 colspan = 1, quint32 rowspan = 1);

    friend bool operator==(const RawMarkupData&, const RawMarkupData&) = default;
};

} // namespace quor::markdown
