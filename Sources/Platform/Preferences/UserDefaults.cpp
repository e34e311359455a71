// SPDX-License-Identifier: MIT
#include "Platform/Preferences/UserDefaults.h"

#include "Platform/Preferences/DataHome.h"
#include "Platform/Preferences/PreferenceFolder.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringBuilder>
#include <QStringDecoder>

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace quor::platform {

namespace {

// The first line of a file: the type of its value.
constexpr QByteArrayView dataType = "data\n";
constexpr QByteArrayView stringType = "string\n";
constexpr QByteArrayView boolType = "bool\n";
constexpr QByteArrayView realType = "real\n";

/// Returns an empty path if no suite can have that name, or there is no data home.
QByteArray folderOf(const QString& suite)
{
    const auto home = dataHome();
    if (!home || suite.isEmpty() || suite == u"." || suite == u".." || suite.contains(u'/')
        || suite.contains(QChar::Null))
        return {};
    return *home % '/' % QFile::encodeName(suite) % "/Preferences";
}

QByteArray standardFolder()
{
    return folderOf(QCoreApplication::applicationName());
}

/// Returns what follows the type line, if the content is of that type.
std::optional<QByteArray> valueOfType(QByteArray content, QByteArrayView type)
{
    if (!content.startsWith(type))
        return std::nullopt;
    content.remove(0, type.size());
    return content;
}

/// The same, without the line feed at the end that shells like to write.
std::optional<QByteArray> lineOfType(const QByteArray& content, QByteArrayView type)
{
    auto text = valueOfType(content, type);
    if (text && text->endsWith('\n'))
        text->chop(1);
    return text;
}

std::optional<double> number(const std::optional<QByteArray>& text)
{
    double number = 0;
    if (!text)
        return std::nullopt;
    const auto [end, error] = std::from_chars(text->cbegin(), text->cend(), number);
    if (error != std::errc() || end != text->cend() || !std::isfinite(number))
        return std::nullopt;
    return number;
}

} // namespace

UserDefaults::UserDefaults(QByteArray folder)
    : folder_(std::move(folder))
{
}

std::optional<UserDefaults> UserDefaults::suite(const QString& name)
{
    const QByteArray folder = folderOf(name);
    if (!PreferenceFolder(folder).open())
        return std::nullopt;
    return UserDefaults(folder);
}

UserDefaults UserDefaults::standard()
{
    return UserDefaults(standardFolder());
}

UserDefaults UserDefaults::suiteOrStandard(const QString& name)
{
    UserDefaults defaults(folderOf(name));
    defaults.fallsBackToStandard_ = true;
    return defaults;
}

// Only an access that fails can be due to a suite that cannot be opened, so only then the folder is opened.
template <typename Access>
auto UserDefaults::access(Access access) const
{
    const PreferenceFolder own(folder_);
    auto result = access(own);
    if (result || !fallsBackToStandard_ || own.open())
        return result;
    return access(PreferenceFolder(standardFolder()));
}

std::optional<QByteArray> UserDefaults::content(const QString& key) const
{
    return access([&](const PreferenceFolder& folder) { return folder.read(key); });
}

bool UserDefaults::replace(const QString& key, QByteArrayView type, QByteArrayView value) const
{
    QByteArray content = type.toByteArray();
    content += value;
    return access([&](const PreferenceFolder& folder) { return folder.replace(key, content); });
}

std::optional<QByteArray> UserDefaults::dataForKey(const QString& key) const
{
    auto stored = content(key);
    return stored ? valueOfType(*std::move(stored), dataType) : std::nullopt;
}

std::optional<QString> UserDefaults::stringForKey(const QString& key) const
{
    auto stored = content(key);
    const auto bytes = stored ? valueOfType(*std::move(stored), stringType) : std::nullopt;
    if (!bytes)
        return std::nullopt;
    using Flag = QStringDecoder::Flag;
    QStringDecoder decoder(QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
    const QString string = decoder(*bytes);
    return decoder.hasError() ? std::nullopt : std::optional(string);
}

bool UserDefaults::boolForKey(const QString& key) const
{
    const auto stored = content(key).value_or(QByteArray());
    if (const auto text = lineOfType(stored, boolType))
        return *text == "true";
    if (const auto text = lineOfType(stored, stringType))
        return *text == "true" || *text == "yes" || *text == "1";
    return number(lineOfType(stored, realType)).value_or(0) != 0;
}

double UserDefaults::doubleForKey(const QString& key) const
{
    const auto stored = content(key).value_or(QByteArray());
    if (const auto real = number(lineOfType(stored, realType)))
        return *real;
    return number(lineOfType(stored, stringType)).value_or(0);
}

bool UserDefaults::setObject(const QByteArray& data, const QString& key) const
{
    return replace(key, dataType, data);
}

bool UserDefaults::setObject(const QString& string, const QString& key) const
{
    return replace(key, stringType, string.toUtf8());
}

bool UserDefaults::setObject(bool value, const QString& key) const
{
    return replace(key, boolType, value ? "true" : "false");
}

bool UserDefaults::setObject(double value, const QString& key) const
{
    if (!std::isfinite(value))
        return false;
    std::array<char, 32> digits{}; // more than the 24 of the longest number
    const auto end
        = std::to_chars(digits.begin(), digits.end(), value).ptr; // the shortest text that reads back exactly
    return replace(key, realType, QByteArrayView(digits.begin(), end));
}

bool UserDefaults::removeObject(const QString& key) const
{
    return access([&](const PreferenceFolder& folder) { return folder.remove(key); });
}

} // namespace quor::platform
