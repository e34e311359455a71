// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Raw/MarkupKind.h"
#include "Markdown/Raw/SourceRange.h"

#include <QString>

#include <optional>
#include <vector>

namespace quor::markdown {

enum class Checkbox : quint8 { checked, unchecked };

/// How the cells of a table's column are set; a column may have none of these.
enum class ColumnAlignment : quint8 { left, center, right };

using ColumnAlignments = std::vector<std::optional<ColumnAlignment>>;

/// What one node of a raw tree is: its kind, and what belongs to that kind alone. A plain value, made by the
/// functions below to build a tree with, and given by `RawMarkup::data` to look at one.
struct RawMarkupData {
    MarkupKind kind = MarkupKind::document;
    /// Of code, HTML and text what is written; of an image its source, of a link or a symbol link its
    /// destination; of a directive or a parameter its name; of inline attributes these.
    std::optional<QString> text;
    /// Of a code block its language, of an image or a link its title, of a directive its arguments.
    std::optional<QString> detail;
    quint32 number = 0; ///< a heading's level, an ordered list's first number, a cell's column span
    quint32 rowspan = 0;
    std::optional<Checkbox> checkbox;
    ColumnAlignments columnAlignments;
    SourceLocation nameLocation; ///< of a directive

    /// For the kinds that hold nothing else.
    static RawMarkupData plain(MarkupKind kind);
    /// For the kinds that hold a text alone: `htmlBlock`, `inlineCode`, `customInline`, `inlineHTML`, `text`,
    /// `symbolLink`, `inlineAttributes` and `doxygenParam`.
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
