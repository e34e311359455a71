// SPDX-License-Identifier: MIT
#include "Platform/Calendar/CalendarEngine.h"

#include "Platform/Calendar/ICUTimeZone.h"
#include "Platform/Calendar/TimeZones.h"
#include "Platform/Calendar/UserDateLocale.h"
#include "Platform/Text/ICUText.h"

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
    , zone_(settings_.timeZone ? *settings_.timeZone : userTimeZone())
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
    if (U_SUCCESS(status))
        format = qtText(generator->getBestPattern(icuText(skeleton), status));
    if (U_FAILURE(status))
        format.clear();
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
        const QTimeZone zone = userTimeZone();
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
    prototype_.reset(
        icu::Calendar::createInstance(icuTimeZone(zone_).release(), localeWithCalendar(), status));
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
    icu::Locale locale = icuLocale(locale_);
    UErrorCode status = U_ZERO_ERROR;
    if (settings_.identifier)
        locale.setKeywordValue("calendar", settings_.identifier->constData(), status);
    return locale;
}

} // namespace quor::platform
