// SPDX-License-Identifier: MIT
#include "Markdown/Elements/BlockElements.h"

namespace quor::markdown {

std::optional<Checkbox> ListItem::checkbox() const
{
    const quint8 stored = raw().node().checkbox;
    return stored == 0 ? std::nullopt : std::optional(static_cast<Checkbox>(stored - 1));
}

SourceLocation BlockDirective::nameLocation() const
{
    return raw().data().nameLocation;
}

QString BlockDirective::arguments() const
{
    return optionalDetail().value_or(QString());
}

} // namespace quor::markdown
