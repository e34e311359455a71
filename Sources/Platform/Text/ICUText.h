// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>
#include <QString>

#include <unicode/locid.h>
#include <unicode/unistr.h>

namespace quor::platform {

/// `text` for ICU, without a copy: `text` must outlive the result.
[[nodiscard]] inline icu::UnicodeString icuText(QStringView text)
{
    return {false, text.utf16(), static_cast<int32_t>(text.size())};
}

[[nodiscard]] inline QString qtText(const icu::UnicodeString& text)
{
    return QStringView(text.getBuffer(), text.length()).toString();
}

[[nodiscard]] inline icu::Locale icuLocale(const QLocale& locale)
{
    UErrorCode status = U_ZERO_ERROR;
    return icu::Locale::forLanguageTag(locale.bcp47Name().toStdString(), status);
}

/// The text that a function of ICU's C interface produces. `write(buffer, capacity, status)` calls it and
/// returns its result, the length of the text; it is called again if the text is longer than the buffer.
/// Returns an empty text if the function fails.
template <class Write>
[[nodiscard]] QString textFromICU(const Write& write)
{
    constexpr qsizetype usualLength = 64;
    QString text(usualLength, Qt::Uninitialized);
    UErrorCode status = U_ZERO_ERROR;
    const auto fill = [&] {
        status = U_ZERO_ERROR;
        return write(reinterpret_cast<UChar*>(text.data()), static_cast<int32_t>(text.size()), &status);
    };
    text.resize(fill());
    if (status == U_BUFFER_OVERFLOW_ERROR)
        fill();
    return U_SUCCESS(status) ? text : QString();
}

} // namespace quor::platform
