// SPDX-License-Identifier: MIT
#include "Platform/Preferences/UserDefaults.h"

#include "Platform/Preferences/DataHome.h"
#include "Platform/Preferences/PreferenceFolder.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringDecoder>

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace quor::platform {

namespace {

// The type lines.
constexpr QByteArrayView dataType = "data\n";
constexpr QByteArrayView stringType = "string\n";
constexpr QByteArrayView boolType = "bool\n";
constexpr QByteArrayView realType = "real\n";

/// Empty if no folder can have that name.
QByteArray folderOf(const QString& suite)
{
    const auto home = dataHome();
    if (!home || suite.isEmpty() || suite == u"." || suite == u".." || suite.contains(u'/')
        || suite.contains(QChar::Null))
        return {};
    return *home + '/' + QFile::encodeName(suite) + "/Preferences";
}

QByteArray standardFolder()
{
    return folderOf(QCoreApplication::applicationName());
}

/// The value behind the type line, if it is that type's.
std::optional<QByteArray> value(QByteArray content, QByteArrayView type)
{
    if (!content.startsWith(type))
        return std::nullopt;
    content.remove(0, type.size());
    return content;
}

std::optional<QByteArray> line(const QByteArray& content, QByteArrayView type)
{
    auto text = value(content, type);
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
    defaults.standsInStandard_ = true;
    return defaults;
}

// What succeeds needs no look at the folder; only what does not can be due to a suite that cannot be
// opened.
template <typename Access>
auto UserDefaults::access(Access access) const
{
    const PreferenceFolder own(folder_);
    auto result = access(own);
    if (result || !standsInStandard_ || own.open())
        return result;
    return access(PreferenceFolder(standardFolder()));
}

std::optional<QByteArray> UserDefaults::content(const QString& key) const
{
    return access([&](const PreferenceFolder& folder) { return folder.read(key); });
}

bool UserDefaults::replace(const QString& key, QByteArrayView type, QByteArrayView value) const
{
    return access([&](const PreferenceFolder& folder) { return folder.replace(key, type, value); });
}

std::optional<QByteArray> UserDefaults::dataForKey(const QString& key) const
{
    auto stored = content(key);
    return stored ? value(*std::move(stored), dataType) : std::nullopt;
}

std::optional<QString> UserDefaults::stringForKey(const QString& key) const
{
    auto stored = content(key);
    const auto bytes = stored ? value(*std::move(stored), stringType) : std::nullopt;
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
    if (const auto text = line(stored, boolType))
        return *text == "true";
    if (const auto text = line(stored, stringType))
        return *text == "true" || *text == "yes" || *text == "1";
    return number(line(stored, realType)).value_or(0) != 0;
}

double UserDefaults::doubleForKey(const QString& key) const
{
    const auto stored = content(key).value_or(QByteArray());
    if (const auto real = number(line(stored, realType)))
        return *real;
    return number(line(stored, stringType)).value_or(0);
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
    std::array<char, 32> digits{}; // the longest double takes 24
    const auto end = std::to_chars(digits.begin(), digits.end(), value).ptr; // as short as reads back exactly
    return replace(key, realType, QByteArrayView(digits.begin(), end));
}

bool UserDefaults::removeObject(const QString& key) const
{
    return access([&](const PreferenceFolder& folder) { return folder.remove(key); });
}

} // namespace quor::platform
