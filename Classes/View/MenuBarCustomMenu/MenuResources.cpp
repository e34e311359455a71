// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/MenuResources.h"

#include "Platform/Text/DateFormatter.h"

using namespace Qt::StringLiterals;

namespace quor::helper {

const platform::Bundle& menuResources()
{
    static const platform::Bundle resources = platform::Bundle::named(u"Quor"_s);
    return resources;
}

QString filledText(const QString& key, const QString& value)
{
    return menuResources().localizedString(key).replace("%@"_L1, value);
}

QString timeText(double seconds)
{
    using platform::DateFormatter;
    // Shared, since creating one loads the rules of a language, which takes longer than showing a row.
    static const DateFormatter formatter(DateFormatter::Style::none, DateFormatter::Style::short_);
    return formatter.string(platform::dateFromSeconds(seconds));
}

} // namespace quor::helper
