// SPDX-License-Identifier: MIT
#include "ToolKit/Colors/AppearanceMode.h"

#include "Platform/Concurrency/MainQueue.h"

#include <optional>

namespace quor::toolkit {

namespace {

std::optional<platform::ColorScheme> schemeOf(AppearanceMode::Appearance appearance)
{
    switch (appearance) {
    case AppearanceMode::Appearance::dark:
        return platform::ColorScheme::dark;
    case AppearanceMode::Appearance::light:
        return platform::ColorScheme::light;
    case AppearanceMode::Appearance::automatic:
        break;
    }
    return std::nullopt;
}

} // namespace

AppearanceMode::AppearanceMode(platform::Appearance& application)
    : application_(application)
    , appearanceObserver_(application.observe([this] { trigger(Event::changed); }))
{
}

void AppearanceMode::setPreferredAppearance(Appearance appearance)
{
    preferredAppearance_ = appearance;
    // An observer of the application may delete this object.
    const auto alive = life();
    application_.setAppearance(schemeOf(appearance));
    if (!alive.expired())
        trigger(Event::changed);
}

bool AppearanceMode::isDark() const
{
    if (const auto chosen = schemeOf(preferredAppearance_))
        return *chosen == platform::ColorScheme::dark;
    bool dark = false;
    platform::MainQueue::sync(
        [&] { dark = application_.effectiveAppearance() == platform::ColorScheme::dark; });
    return dark;
}

void AppearanceMode::interfaceThemeChanged()
{
    trigger(Event::changed);
}

} // namespace quor::toolkit
