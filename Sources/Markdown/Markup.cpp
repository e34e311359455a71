// SPDX-License-Identifier: MIT
#include "Markdown/Markup.h"

#include "Markdown/MarkupChildren.h"

namespace quor::markdown {

std::optional<Markup> Markup::parent() const
{
    const quint32 distance = raw_.node().toParent;
    return distance == 0 ? std::nullopt : std::optional<Markup>(raw_.at(raw_.index() - distance));
}

MarkupChildren Markup::children() const
{
    return MarkupChildren(*this);
}

std::optional<QString> Markup::optionalText() const
{
    return raw_.node().hasText ? std::optional(text()) : std::nullopt;
}

std::optional<QString> Markup::optionalDetail() const
{
    return raw_.node().hasDetail ? std::optional(QString::fromUtf8(raw_.utf8Detail())) : std::nullopt;
}

} // namespace quor::markdown
