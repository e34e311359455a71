// SPDX-License-Identifier: MIT
#include "ToolKit/Identity/ApplicationVersion.h"

#include <QCoreApplication>

#include <algorithm>
#include <limits>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

// Qt's own conversion accepts blanks too, and QChar::isDigit the digits of other scripts.
std::optional<qint64> integer(QStringView piece)
{
    const bool hasSign = piece.startsWith(u'+') || piece.startsWith(u'-');
    const QStringView digits = piece.sliced(hasSign ? 1 : 0);
    const auto isDigit = [](QChar character) { return character >= u'0' && character <= u'9'; };
    if (digits.isEmpty() || !std::all_of(digits.begin(), digits.end(), isDigit))
        return std::nullopt;
    bool fits = false;
    const qint64 value = piece.toLongLong(&fits);
    return fits ? std::optional(value) : std::nullopt;
}

qint64 plusMultiple(qint64 sum, qint64 number, qint64 factor)
{
    using Limits = std::numeric_limits<qint64>;
    qint64 result = 0;
    if (__builtin_mul_overflow(number, factor, &result) || __builtin_add_overflow(sum, result, &result))
        return number < 0 ? Limits::min() : Limits::max();
    return result;
}

} // namespace

QString shortVersion()
{
    const QString version = QCoreApplication::applicationVersion().section(u" ("_s, 0, 0).trimmed();
    return version.isEmpty() ? u"0.0.0"_s : version;
}

QString versionDescription()
{
    const QString build = QCoreApplication::applicationVersion().section(u" ("_s, 1);
    return build.isEmpty() ? shortVersion() : shortVersion() + u" ("_s + build;
}

qint64 numericVersion(QStringView version)
{
    std::vector<qint64> numbers;
    for (const QStringView piece : version.tokenize(u'.')) {
        if (const auto number = integer(piece))
            numbers.push_back(*number);
    }
    if (numbers.size() < 2)
        return 0;
    const qint64 patch = numbers.size() > 2 ? numbers[2] : 0;
    return plusMultiple(plusMultiple(patch, numbers[1], 100), numbers[0], 10000);
}

QString localized(const QString& key, const platform::Bundle& bundle)
{
    return bundle.localizedString(key);
}

} // namespace quor::toolkit
