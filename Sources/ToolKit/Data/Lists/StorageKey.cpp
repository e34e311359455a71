// SPDX-License-Identifier: MIT
#include "ToolKit/Data/Lists/StorageKey.h"

#include "Platform/Text/GraphemeClusters.h"

#include <QList>
#include <QString>

#include <unicode/ucasemap.h>
#include <unicode/ustring.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

constexpr qsizetype longestFileName = 255; // bytes

QString upperCased(QStringView text)
{
    // No character grows more than threefold.
    QString upper(text.size() * 3, Qt::Uninitialized);
    UErrorCode status = U_ZERO_ERROR;
    const auto length
        = u_strToUpper(reinterpret_cast<UChar*>(upper.data()), static_cast<int32_t>(upper.size()),
            reinterpret_cast<const UChar*>(text.utf16()), static_cast<int32_t>(text.size()), "", &status);
    upper.resize(length);
    return upper;
}

bool needsEscape(char32_t character, bool isFirst)
{
    const bool isControl = character < 0x20 || (character >= 0x7F && character < 0xA0);
    return isControl || character == U'/' || character == U'%'
        || (isFirst && (character == U'.' || character == U'\uFEFF'));
}

// Half of a surrogate pair becomes U+FFFD, as in all text that leaves the process.
QByteArray utf8(char32_t character)
{
    return QStringView(QChar::fromUcs4(character)).toUtf8();
}

QString fileName(QStringView text)
{
    QByteArray name;
    for (const char32_t character : text.toUcs4()) {
        const QByteArray bytes = utf8(character);
        const QByteArray added
            = needsEscape(character, name.isEmpty()) ? bytes.toPercentEncoding({}, bytes) : bytes;
        if (name.size() + added.size() > longestFileName)
            break;
        name += added;
    }
    return QString::fromUtf8(name);
}

} // namespace

QString storageKey(QStringView elementKey)
{
    const QStringView end = platform::GraphemeClusters::last(elementKey, 2);
    QString plain(end.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < end.size(); ++i) {
        const char16_t unit = end[i].unicode();
        const bool isLower = unit >= u'a' && unit <= u'z';
        if (!isLower && !(unit >= u'A' && unit <= u'Z') && !(unit >= u'0' && unit <= u'9'))
            return fileName(upperCased(end.first(std::min(end.size(), 2 * longestFileName))));
        plain[i] = QChar(isLower ? unit - u'a' + u'A' : unit);
    }
    return plain;
}

} // namespace quor::toolkit
