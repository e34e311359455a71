// SPDX-License-Identifier: MIT
#include "Platform/Calendar/CalendarEngine.h"

#include <unicode/dtptngen.h>

#include <algorithm>
#include <utility>

namespace quor::platform {

Calendar::Engine::Loan::Loan(Engine& engine, std::unique_ptr<icu::Calendar> calendar, int generation)
    : engine_(engine)
    , calendar_(std::move(calendar))
    , generation_(generation)
{
}

Calendar::Engine::Loan::~Loan()
{
    engine_.giveBack(std::move(calendar_), generation_);
}

Calendar::Engine::Engine(Settings settings)
    : settings_(std::move(settings))
    , locale_(settings_.locale ? *settings_.locale : userDateLocale())
    , zone_(settings_.timeZone ? icuZoneName(*settings_.timeZone) : machineZone_.icuName())
{
    makePrototype();
}

Calendar::Engine::Loan Calendar::Engine::borrow()
{
    const std::lock_guard lock(mutex_);
    followUser();
    if (idle_.empty())
        return {
            *this, std::unique_ptr<icu::Calendar>(prototype_ ? prototype_->clone() : nullptr), generation_};
    auto calendar = std::move(idle_.back());
    idle_.pop_back();
    return {*this, std::move(calendar), generation_};
}

QLocale Calendar::Engine::locale()
{
    const std::lock_guard lock(mutex_);
    followUser();
    return locale_;
}

icu::Locale Calendar::Engine::icuLocale()
{
    const std::lock_guard lock(mutex_);
    followUser();
    return localeWithCalendar();
}

QString Calendar::Engine::dateFormat(const QString& skeleton)
{
    const std::lock_guard lock(mutex_);
    followUser();
    const auto known = formats_.constFind(skeleton);
    if (known != formats_.constEnd())
        return *known;
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(localeWithCalendar(), status));
    QString format;
    if (U_SUCCESS(status)) {
        const icu::UnicodeString wanted(
            reinterpret_cast<const char16_t*>(skeleton.utf16()), static_cast<int32_t>(skeleton.size()));
        const icu::UnicodeString pattern = generator->getBestPattern(wanted, status);
        if (U_SUCCESS(status))
            format = QString(reinterpret_cast<const QChar*>(pattern.getBuffer()), pattern.length());
    }
    return *formats_.insert(skeleton, format);
}

void Calendar::Engine::giveBack(std::unique_ptr<icu::Calendar> calendar, int generation)
{
    const std::lock_guard lock(mutex_);
    if (calendar && generation == generation_)
        idle_.push_back(std::move(calendar));
}

void Calendar::Engine::followUser()
{
    bool hasChanged = false;
    if (const QLocale user; !settings_.locale && default_ != user) {
        default_ = user;
        locale_ = userDateLocale();
        hasChanged = true;
    }
    if (!settings_.timeZone) {
        const QByteArray& zone = machineZone_.icuName();
        hasChanged = hasChanged || zone != zone_;
        zone_ = zone;
    }
    if (hasChanged)
        makePrototype();
}

void Calendar::Engine::makePrototype()
{
    ++generation_;
    idle_.clear();
    formats_.clear();
    UErrorCode status = U_ZERO_ERROR;
    prototype_.reset(icu::Calendar::createInstance(
        icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(zone_.constData())), localeWithCalendar(),
        status));
    if (U_FAILURE(status))
        prototype_.reset();
    if (!prototype_)
        return;
    if (settings_.firstWeekday)
        prototype_->setFirstDayOfWeek(
            static_cast<UCalendarDaysOfWeek>(std::clamp(*settings_.firstWeekday, 1, 7)));
    if (settings_.minimumDaysInFirstWeek)
        prototype_->setMinimalDaysInFirstWeek(
            static_cast<uint8_t>(std::clamp(*settings_.minimumDaysInFirstWeek, 1, 7)));
}

icu::Locale Calendar::Engine::localeWithCalendar() const
{
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale locale = icu::Locale::forLanguageTag(locale_.bcp47Name().toStdString(), status);
    if (settings_.identifier)
        locale.setKeywordValue("calendar", settings_.identifier->constData(), status);
    return locale;
}

} // namespace quor::platform
