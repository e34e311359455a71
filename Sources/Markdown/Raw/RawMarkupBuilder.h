// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Raw/RawMarkup.h"

/// Builds a raw tree in walking order: `begin` a node, add its children, `end` it. The tree copies every
/// text. One thread at a time.
///
///     RawMarkupBuilder builder;
///     builder.begin(RawMarkupData::plain(MarkupKind::document));
///     builder.leaf(RawMarkupData::literal(MarkupKind::text, u"Hello"_s));
///     builder.end();
///     const Document document(Markup(builder.finish()));
namespace quor::markdown {

class RawMarkupBuilder {
public:
    /// A node whose texts are already in UTF-8. A null view means that there is no text.
    struct Content {
        MarkupKind kind = MarkupKind::document;
        QByteArrayView text = {};
        QByteArrayView detail = {};
        quint32 number = 0; ///< for the kinds without texts, as in `RawMarkupData`
        quint32 rowspan = 0;
        std::optional<Checkbox> checkbox = {};
    };

    /// Reserves memory for so many nodes and bytes of text.
    void reserve(qsizetype nodes, qsizetype textBytes);

    void begin(const Content& content, const SourceRange& range = {});
    void begin(const RawMarkupData& data, const std::optional<SourceRange>& range = {});
    void beginTable(const ColumnAlignments& alignments, const SourceRange& range);
    void end();

    /// Adds a node without children.
    template <class Node>
    void leaf(const Node& node)
    {
        begin(node);
        end();
    }
    void leaf(const Content& content, const SourceRange& range)
    {
        begin(content, range);
        end();
    }

    /// Sets the end of the range of the node that began last and has not ended.
    void extendRange(const SourceLocation& end);

    /// Returns the root, with a new `rootId`. Every node must have ended. The builder must not be used
    /// afterwards.
    RawMarkup finish(const std::optional<QUrl>& source = {});

private:
    [[nodiscard]] quint32 addText(QByteArrayView text);

    std::shared_ptr<RawMarkupTree> tree_ = std::make_shared<RawMarkupTree>();
    quint32 open_ = 0; // the node that began last and has not ended; undefined while depth_ is 0
    quint32 depth_ = 0;
};

} // namespace quor::markdown
