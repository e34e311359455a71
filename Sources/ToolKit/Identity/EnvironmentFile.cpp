// SPDX-License-Identifier: MIT
#include "ToolKit/Identity/EnvironmentFile.h"

#include "Platform/Files/FileContents.h"

#include <QFile>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

constexpr qint64 largestFile = 65536;

// The characters that a backslash escapes inside double quotes.
bool isEscapable(QChar character)
{
    return u"\"$\\`"_s.contains(character);
}

/// Returns the value in the text after the "=". Returns `nullopt` if a quote is not closed, or not by the
/// last character.
std::optional<QString> unquoted(const QString& value)
{
    const QChar quote = value.isEmpty() ? QChar() : value.front();
    if (quote != u'"' && quote != u'\'')
        return value;
    QString text;
    for (qsizetype at = 1; at < value.size(); ++at) {
        if (value[at] == quote)
            return at + 1 == value.size() ? std::optional(text) : std::nullopt;
        const bool isEscape
            = quote == u'"' && value[at] == u'\\' && at + 1 < value.size() && isEscapable(value[at + 1]);
        text += value[isEscape ? ++at : at];
    }
    return std::nullopt;
}

} // namespace

std::optional<QString> valueInEnvironmentFile(const QString& path, const QString& key)
{
    const auto content = platform::readFile(QFile::encodeName(path), largestFile);
    if (!content)
        return std::nullopt;
    const QString start = key + u'=';
    std::optional<QString> found;
    for (const QString& line : QString::fromUtf8(*content).split(u'\n')) {
        const QString trimmed = line.trimmed();
        if (!trimmed.startsWith(start))
            continue;
        if (auto value = unquoted(trimmed.sliced(start.size())))
            found = std::move(value);
    }
    return found && !found->isEmpty() ? found : std::nullopt;
}

} // namespace quor::toolkit
