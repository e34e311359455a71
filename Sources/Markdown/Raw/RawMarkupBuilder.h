// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Raw/RawMarkup.h"

/// Builds a raw tree in walking order: `begin` a node, its children between, `end` it. The tree takes a copy
/// of every text. One thread at a time.
///
///     RawMarkupBuilder builder;
///     builder.begin(RawMarkupData::plain(MarkupKind::document));
///     builder.leaf(RawMarkupData::literal(MarkupKind::text, u"Hello"_s));
///     builder.end();
///     const Document document(Markup(builder.finish()));
namespace quor::markdown {

class RawMarkupBuilder {
public:
    /// A node whose texts are UTF-8 already. Null views stand for no text.
    struct Content {
        MarkupKind kind = MarkupKind::document;
        QByteArrayView text = {};
        QByteArrayView detail = {};
        quint32 number = 0; ///< for the kinds without texts, as in `RawMarkupData`
        quint32 rowspan = 0;
        quint8 checkbox = 0; ///< as in `RawMarkupNode`
    };

    void reserve(qsizetype nodes, qsizetype textBytes);

    void begin(const Content& content, const SourceRange& range = {});
    void begin(const RawMarkupData& data, const std::optional<SourceRange>& range = {});
    /// Of a table. A column without an alignment is 0, the others are one more than the `ColumnAlignment`.
    void beginTable(QByteArrayView alignments, const SourceRange& range);
    void end();

    /// A node without children.
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

    /// Moves the end of the node that has begun and not ended.
    void extendRange(const SourceLocation& end);

    /// The root, which gets a fresh identity. Everything must have ended, and the builder is spent.
    RawMarkup finish(const std::optional<QUrl>& source = {});

private:
    [[nodiscard]] quint32 addText(QByteArrayView text);

    std::shared_ptr<RawMarkupTree> tree_ = std::make_shared<RawMarkupTree>();
    quint32 open_ = 0; // the node that has begun last and not ended; meaningless while depth_ is 0
    quint32 depth_ = 0;
};

} // namespace quor::markdown
