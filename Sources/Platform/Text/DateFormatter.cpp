// SPDX-License-Identifier: MIT
#include "Platform/Text/DateFormatter.h"

#include <QDateTime>

#include <unicode/ucal.h>
#include <unicode/udat.h>

#include <array>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace quor::platform {

namespace {

using Style = DateFormatter::Style;

constexpr double furthest = 8e12; // seconds; 250,000 years to both sides

struct CloseFormat {
    void operator()(UDateFormat* format) const { udat_close(format); }
};

UDateFormatStyle icuStyle(Style style)
{
    switch (style) {
    case Style::none:
        return UDAT_NONE;
    case Style::short_:
        return UDAT_SHORT;
    case Style::medium:
        return UDAT_MEDIUM;
    case Style::long_:
        return UDAT_LONG;
    case Style::full:
        return UDAT_FULL;
    }
    return UDAT_NONE;
}

const UChar* characters(const QString& text)
{
    return reinterpret_cast<const UChar*>(text.utf16());
}

/// A desktop lets its user have the times of one region in the language of another.
QByteArray userLanguage()
{
    const QLocale user;
    if (user == QLocale::system()) {
        for (const char* const variable : {"LC_ALL", "LC_TIME", "LANG"}) {
            if (const QString name = qEnvironmentVariable(variable); !name.isEmpty())
                return QLocale(name).bcp47Name().toLatin1();
        }
    }
    return user.bcp47Name().toLatin1();
}

bool isKnownZone(const QString& name)
{
    UErrorCode status = U_ZERO_ERROR;
    std::array<UChar, 128> canonical{};
    UBool isSystemName = false;
    ucal_getCanonicalTimeZoneID(characters(name), int32_t(name.size()), canonical.data(),
        int32_t(canonical.size()), &isSystemName, &status);
    return U_SUCCESS(status);
}

QString zoneAtOffset(int seconds)
{
    const int minutes = std::abs(seconds) / 60;
    return QStringLiteral("GMT%1%2:%3")
        .arg(QChar(seconds < 0 ? u'-' : u'+'))
        .arg(minutes / 60, 2, 10, QLatin1Char('0'))
        .arg(minutes % 60, 2, 10, QLatin1Char('0'));
}

/// For ICU. A zone that has rules but no name, as the variable TZ can give one, stands for what it is
/// at that moment.
QString zoneName(const std::optional<QTimeZone>& zone, double seconds)
{
    const auto moment = qint64(seconds);
    if (zone) {
        const QString name = QString::fromLatin1(zone->id());
        const QDateTime utc = QDateTime::fromSecsSinceEpoch(moment, Qt::UTC);
        return isKnownZone(name) ? name : zoneAtOffset(zone->offsetFromUtc(utc));
    }
    const QString name = QString::fromLatin1(QTimeZone::systemTimeZoneId());
    // A system that cannot name its zone says UTC.
    const bool isNamed = isKnownZone(name) && name != "UTC"_L1;
    return isNamed ? name : zoneAtOffset(QDateTime::fromSecsSinceEpoch(moment).offsetFromUtc());
}

} // namespace

class DateFormatter::Format {
public:
    Format(Style date, Style time)
        : dateStyle(date)
        , timeStyle(time)
    {
    }
    Format(const Format& other)
        : dateStyle(other.dateStyle)
        , timeStyle(other.timeStyle)
        , locale(other.locale)
        , timeZone(other.timeZone)
    {
    }

    void forget() { format_.reset(); }

    QString string(double seconds)
    {
        const UDateFormat* const format = get(seconds);
        QString text(64, Qt::Uninitialized);
        UErrorCode status = U_ZERO_ERROR;
        const auto write = [&] {
            status = U_ZERO_ERROR;
            return format ? udat_format(format, seconds * 1000, reinterpret_cast<UChar*>(text.data()),
                       int32_t(text.size()), nullptr, &status)
                          : 0;
        };
        text.resize(write());
        if (status == U_BUFFER_OVERFLOW_ERROR)
            write();
        return U_SUCCESS(status) ? text : QString();
    }

    Style dateStyle;
    Style timeStyle;
    std::optional<QLocale> locale;
    std::optional<QTimeZone> timeZone;

private:
    /// Null if ICU has no data.
    const UDateFormat* get(double seconds)
    {
        QByteArray language = locale ? locale->bcp47Name().toLatin1() : userLanguage();
        QString zone = zoneName(timeZone, seconds);
        if (format_ && language == language_ && zone == zone_)
            return format_.get();
        UErrorCode status = U_ZERO_ERROR;
        format_.reset(udat_open(icuStyle(timeStyle), icuStyle(dateStyle), language.constData(),
            characters(zone), int32_t(zone.size()), nullptr, 0, &status));
        language_ = std::move(language);
        zone_ = std::move(zone);
        return format_.get();
    }

    std::unique_ptr<UDateFormat, CloseFormat> format_;
    QByteArray language_; ///< what `format_` is for
    QString zone_;
};

DateFormatter::DateFormatter(Style dateStyle, Style timeStyle)
    : format_(std::make_unique<Format>(dateStyle, timeStyle))
{
}

DateFormatter::~DateFormatter() = default;

DateFormatter::DateFormatter(const DateFormatter& other)
    : format_(std::make_unique<Format>(*other.format_))
{
}

DateFormatter& DateFormatter::operator=(const DateFormatter& other)
{
    if (this != &other)
        format_ = std::make_unique<Format>(*other.format_);
    return *this;
}

DateFormatter::Style DateFormatter::dateStyle() const
{
    return format_->dateStyle;
}

DateFormatter::Style DateFormatter::timeStyle() const
{
    return format_->timeStyle;
}

void DateFormatter::setDateStyle(Style style)
{
    format_->dateStyle = style;
    format_->forget();
}

void DateFormatter::setTimeStyle(Style style)
{
    format_->timeStyle = style;
    format_->forget();
}

void DateFormatter::setLocale(const std::optional<QLocale>& locale)
{
    format_->locale = locale;
}

void DateFormatter::setTimeZone(const std::optional<QTimeZone>& timeZone)
{
    format_->timeZone = timeZone;
}

QString DateFormatter::string(Date date) const
{
    const double seconds = secondsSince1970(date);
    const bool isUnstyled = dateStyle() == Style::none && timeStyle() == Style::none;
    if (isUnstyled || !(std::fabs(seconds) <= furthest))
        return {};
    return format_->string(seconds);
}

} // namespace quor::platform
