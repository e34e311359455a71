// SPDX-License-Identifier: MIT
#include "Platform/Linux/Applications/DesktopEntry.h"

#include <QFile>
#include <QHash>
#include <QStandardPaths>

#include <algorithm>

namespace quor::platform {

namespace {

using Keys = QHash<QByteArray, QByteArray>;

constexpr QByteArrayView reserved = " \t\n\"'\\><~|&;$*?#()`"; // have to be quoted in a command
constexpr QByteArrayView escapedInQuotes = "\"`$\\";

/// The keys of the group "Desktop Entry", which has to come first.
std::optional<Keys> mainGroup(const QByteArray& content)
{
    if (content.contains('\0'))
        return std::nullopt;
    std::optional<Keys> keys;
    for (const auto& untrimmed : content.split('\n')) {
        const QByteArray line = untrimmed.trimmed();
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        if (line.startsWith('[')) {
            if (keys)
                break;
            if (line != "[Desktop Entry]")
                return std::nullopt;
            keys.emplace();
            continue;
        }
        const auto equals = line.indexOf('=');
        if (!keys || equals <= 0)
            return std::nullopt;
        const QByteArray key = line.left(equals).trimmed();
        if (!keys->contains(key))
            keys->insert(key, line.mid(equals + 1).trimmed());
    }
    return keys;
}

QByteArray unescaped(const QByteArray& value)
{
    QByteArray result;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value[i] != '\\' || i + 1 == value.size()) {
            result += value[i];
            continue;
        }
        switch (const char code = value[++i]) {
        case 's':
            result += ' ';
            break;
        case 'n':
            result += '\n';
            break;
        case 't':
            result += '\t';
            break;
        case 'r':
            result += '\r';
            break;
        case '\\':
            result += '\\';
            break;
        default:
            (result += '\\') += code;
        }
    }
    return result;
}

QString localized(const Keys& keys, const QByteArray& key, const QByteArrayList& locales)
{
    for (const auto& locale : locales) {
        const auto found = keys.constFind(key + '[' + locale + ']');
        if (found != keys.cend())
            return QString::fromUtf8(unescaped(*found));
    }
    return QString::fromUtf8(unescaped(keys.value(key)));
}

struct Argument {
    QByteArray text;
    bool isQuoted = false;
};

/// Takes the argument in quotes that begins at `at`, and moves `at` behind it.
std::optional<Argument> takeQuoted(const QByteArray& command, qsizetype& at)
{
    Argument argument{{}, true};
    for (++at; at < command.size() && command[at] != '"'; ++at) {
        if (command[at] == '\\' && at + 1 < command.size() && escapedInQuotes.contains(command[at + 1]))
            ++at;
        argument.text += command[at];
    }
    if (at >= command.size())
        return std::nullopt; // the quote does not end
    ++at;
    if (at < command.size() && command[at] != ' ')
        return std::nullopt; // an argument is quoted as a whole, or not at all
    return argument;
}

std::optional<Argument> takeUnquoted(const QByteArray& command, qsizetype& at)
{
    const auto end = command.indexOf(' ', at);
    Argument argument{command.mid(at, end < 0 ? -1 : end - at)};
    at += argument.text.size();
    const bool isAllowed = std::none_of(
        argument.text.begin(), argument.text.end(), [](char letter) { return reserved.contains(letter); });
    return isAllowed ? std::optional(argument) : std::nullopt;
}

std::optional<std::vector<Argument>> split(const QByteArray& command)
{
    std::vector<Argument> arguments;
    for (qsizetype at = 0; at < command.size();) {
        if (command[at] == ' ') {
            ++at;
            continue;
        }
        auto argument = command[at] == '"' ? takeQuoted(command, at) : takeUnquoted(command, at);
        if (!argument)
            return std::nullopt;
        arguments.push_back(*std::move(argument));
    }
    return arguments;
}

/// Replaces the field codes in the arguments of a command. There are never files to be opened.
class FieldCodes {
public:
    FieldCodes(QByteArray name, QByteArray icon, QByteArray path)
        : name_(std::move(name))
        , icon_(std::move(icon))
        , path_(std::move(path))
    {
    }

    [[nodiscard]] std::optional<std::vector<QByteArray>> replacedIn(
        const std::vector<Argument>& arguments) const
    {
        std::vector<QByteArray> result;
        for (const auto& argument : arguments) {
            if (!argument.isQuoted && (argument.text == "%F" || argument.text == "%U"))
                continue;
            if (!argument.isQuoted && argument.text == "%i") {
                if (!icon_.isEmpty())
                    result.insert(result.end(), {"--icon", icon_});
                continue;
            }
            const auto text = replacedIn(argument);
            if (!text)
                return std::nullopt;
            if (argument.isQuoted || !text->isEmpty())
                result.push_back(*text);
        }
        return result;
    }

private:
    [[nodiscard]] std::optional<QByteArray> replacedIn(const Argument& argument) const
    {
        QByteArray result;
        for (qsizetype i = 0; i < argument.text.size(); ++i) {
            if (argument.text[i] != '%') {
                result += argument.text[i];
                continue;
            }
            const char code = ++i < argument.text.size() ? argument.text[i] : '\0';
            const auto text = code == '%' ? "%" : argument.isQuoted ? std::nullopt : textFor(code);
            if (!text)
                return std::nullopt;
            result += *text;
        }
        return result;
    }

    [[nodiscard]] std::optional<QByteArray> textFor(char code) const
    {
        switch (code) {
        case 'c':
            return name_;
        case 'k':
            return path_;
        case 'f': // a file, of which there is none
        case 'u':
        case 'd': // this one and the rest are not used any more
        case 'D':
        case 'n':
        case 'N':
        case 'v':
        case 'm':
            return "";
        default:
            return std::nullopt;
        }
    }

    QByteArray name_;
    QByteArray icon_;
    QByteArray path_;
};

bool isProgramName(const Argument& argument)
{
    const QByteArray& text = argument.text;
    const bool hasCode = QByteArray(text).replace("%%", "").contains('%');
    return !text.isEmpty() && !hasCode && !text.contains('=')
        && (text.startsWith('/') || !text.contains('/'));
}

bool isInstalled(const QByteArray& program)
{
    return !QStandardPaths::findExecutable(QFile::decodeName(program)).isEmpty();
}

bool isShown(const Keys& keys)
{
    const auto isTrue = [&](const char* key) { return keys.value(key) == "true"; };
    if (keys.value("Type") != "Application" || isTrue("Hidden") || isTrue("NoDisplay") || isTrue("Terminal"))
        return false;
    const QByteArray tried = unescaped(keys.value("TryExec"));
    return tried.isEmpty() || isInstalled(tried);
}

} // namespace

std::optional<DesktopEntry> DesktopEntry::read(
    const QByteArray& content, const QByteArray& path, const QByteArrayList& locales)
{
    const auto keys = mainGroup(content);
    if (!keys || !isShown(*keys))
        return std::nullopt;
    DesktopEntry entry{localized(*keys, "Name", locales), localized(*keys, "Comment", locales), {},
        unescaped(keys->value("Path"))};
    const auto command = split(unescaped(keys->value("Exec")));
    if (entry.name.isEmpty() || !command || command->empty() || !isProgramName(command->front()))
        return std::nullopt;
    const FieldCodes codes(entry.name.toUtf8(), localized(*keys, "Icon", locales).toUtf8(), path);
    auto arguments = codes.replacedIn(*command);
    if (!arguments)
        return std::nullopt;
    entry.arguments = *std::move(arguments);
    return entry;
}

QByteArrayList messageLocales()
{
    QByteArray locale;
    for (const char* const variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        locale = qgetenv(variable);
        if (!locale.isEmpty())
            break;
    }
    const auto at = locale.indexOf('@');
    const QByteArray modifier = at < 0 ? QByteArray() : locale.mid(at);
    locale = locale.first(at < 0 ? locale.size() : at).split('.').front();
    const QByteArray language = locale.split('_').front();
    QByteArrayList names{locale + modifier, locale, language + modifier, language};
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

} // namespace quor::platform
