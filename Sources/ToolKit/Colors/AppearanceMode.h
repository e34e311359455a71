// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Subscription.h"
#include "Platform/Services/Appearance.h"
#include "ToolKit/Deferred/EventProtocol.h"

#include <atomic>

namespace quor::toolkit {

enum class AppearanceModeEvent { changed };

/// The user's choice of a dark, a light or the desktop's appearance.
///
/// The choice is applied to the whole application. The event `changed` is triggered by each choice, and
/// whenever the application's effective appearance changes for any reason; so one choice can trigger it
/// twice. If there are several objects, the last choice made on any of them applies to the application.
///
/// Call `isDark` and `interfaceThemeChanged` on any thread, everything else on the main thread.
class AppearanceMode final : public EventProtocol<AppearanceMode, AppearanceModeEvent> {
public:
    enum class Appearance { dark = 0, light = 1, automatic = 2 };

    /// Starts as `automatic`, and leaves the application as it is until the first choice. `application`
    /// must outlive this object.
    explicit AppearanceMode(platform::Appearance& application);

    [[nodiscard]] Appearance preferredAppearance() const { return preferredAppearance_; }
    /// Applies the choice to the application and triggers `changed`, even if the choice is the same.
    void setPreferredAppearance(Appearance appearance);

    /// Returns whether the choice is dark or, while it is `automatic`, whether the application's effective
    /// appearance is. In the latter case a call on another thread waits for the main thread, so the main
    /// thread must not be waiting for the caller.
    [[nodiscard]] bool isDark() const;

    /// Triggers `changed`.
    void interfaceThemeChanged();

private:
    platform::Appearance& application_;
    std::atomic<Appearance> preferredAppearance_ = Appearance::automatic;
    platform::Subscription appearanceObserver_;
};

} // namespace quor::toolkit
