// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/ScriptValue.h"

#include "ToolKit/Data/JSON/JSONWriter.h"

#include <QLocale>

#include <cmath>

namespace quor::toolkit {

using namespace Qt::StringLiterals;

namespace {

bool isWritten(const ScriptValue& value)
{
    return !value.as<std::monostate>() && !value.as<ScriptValue::Function>();
}

enum class NotFinite { fails, isNull };

void write(const ScriptValue& value, JSONWriter& writer, NotFinite notFinite)
{
    if (const auto* boolean = value.as<bool>()) {
        writer.boolean(*boolean);
    } else if (const auto* number = value.as<double>()) {
        if (notFinite == NotFinite::isNull && !std::isfinite(*number))
            writer.null();
        else
            writer.number(*number);
    } else if (const auto* text = value.as<QString>()) {
        writer.text(*text);
    } else if (const auto* list = value.as<ScriptValue::List>()) {
        if (!writer.beginArray())
            return;
        for (const ScriptValue& element : *list)
            write(element, writer, notFinite);
        writer.endArray();
    } else if (const auto* map = value.as<ScriptValue::Map>()) {
        if (!writer.beginObject())
            return;
        for (const auto& [name, member] : *map) {
            if (!isWritten(member))
                continue;
            writer.key(QStringView(name));
            write(member, writer, notFinite);
        }
        writer.endObject();
    } else {
        writer.null();
    }
}

std::optional<QByteArray> json(const ScriptValue& value, NotFinite notFinite)
{
    JSONWriter writer;
    write(value, writer, notFinite);
    EncodingError error;
    return writer.take(error);
}

QString numberText(double number)
{
    if (std::isnan(number))
        return u"NaN"_s;
    if (std::isinf(number))
        return number < 0 ? u"-Infinity"_s : u"Infinity"_s;
    constexpr double exactIntegers = 1e15;
    if (std::trunc(number) == number && std::abs(number) < exactIntegers)
        return QString::number(static_cast<qint64>(number));
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

} // namespace

QString plainText(const ScriptValue& value)
{
    if (const auto* text = value.as<QString>())
        return *text;
    if (const auto* number = value.as<double>())
        return numberText(*number);
    if (value.as<std::monostate>())
        return u"undefined"_s;
    if (value.as<ScriptValue::Function>())
        return u"function"_s;
    const auto text = json(value, NotFinite::isNull);
    // JSON cannot represent the value: show at least its kind.
    return text ? QString::fromUtf8(*text) : value.as<ScriptValue::List>() ? u"[…]"_s : u"{…}"_s;
}

std::optional<QByteArray> jsonText(const ScriptValue& value)
{
    return json(value, NotFinite::fails);
}

} // namespace quor::toolkit
