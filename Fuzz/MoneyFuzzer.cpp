// SPDX-License-Identifier: MIT
#include "ToolKit/Formatting/MoneyFormatter.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

// The first byte selects a language and a currency, the rest is a text that a user may type into a field for
// money. The result is absent or finite, and its formatted text reads as an amount with the same text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using quor::toolkit::MoneyFormatter;
    static std::array<MoneyFormatter, 6> formatters{MoneyFormatter(QStringLiteral("de_DE")),
        MoneyFormatter(QStringLiteral("en_US")), MoneyFormatter(QStringLiteral("ar_EG")),
        MoneyFormatter(QStringLiteral("fr_CH")), MoneyFormatter(QStringLiteral("ml_IN")),
        MoneyFormatter(QStringLiteral("pt_CV"))};
    static const std::array<QString, 4> currencies{
        QStringLiteral("EUR"), QStringLiteral("JPY"), QStringLiteral("TND"), QString()};
    if (size == 0)
        return 0;
    MoneyFormatter& formatter = formatters[bytes[0] % formatters.size()];
    formatter.setCurrencyCode(currencies[bytes[0] / formatters.size() % currencies.size()]);
    const auto* text = reinterpret_cast<const char*>(bytes) + 1;
    const auto amount = formatter.amount(QString::fromUtf8(text, static_cast<qsizetype>(size - 1)));
    if (!amount)
        return 0;
    if (!std::isfinite(*amount))
        std::abort();
    const QString written = formatter.string(*amount);
    const auto read = formatter.amount(written);
    if (!read || formatter.string(*read) != written)
        std::abort();
    return 0;
}
