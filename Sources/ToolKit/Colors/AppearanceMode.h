// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Appearance.h"
#include "Platform/Lifetime/Subscription.h"
#include "ToolKit/Deferred/EventProtocol.h"

#include <atomic>

namespace quor::toolkit {

enum class AppearanceModeEvent { changed };

/// The user's choice of a dark, a light or the desktop's appearance.
///
/// The choice is applied to the whole application. Its event `changed` comes at each choice, and
/// whenever the application's effective appearance changes, for whatever reason; one choice may so
/// bring two. Several objects may stand beside each other; the last choice counts for all.
///
/// `isDark` may be asked on any thread, the rest is for the main thread.
class AppearanceMode final : public EventProtocol<AppearanceMode, AppearanceModeEvent> {
public:
    enum class Appearance { dark = 0, light = 1, automatic = 2 };

    /// Starts as `automatic`, without touching what is applied. `application` must outlive this
    /// object.
    explicit AppearanceMode(platform::Appearance& application);

    [[nodiscard]] Appearance preferredAppearance() const { return preferredAppearance_; }
    void setPreferredAppearance(Appearance appearance);

    /// The choice, else the application's effective appearance. From another thread it waits for the
    /// main thread then, so the main thread must not be waiting for the caller.
    [[nodiscard]] bool isDark() const;

    /// Tells observers that the appearance has changed. Any thread.
    void interfaceThemeChanged();

private:
    platform::Appearance& application_;
    std::atomic<Appearance> preferredAppearance_ = Appearance::automatic;
    platform::Subscription appearanceObserver_;
};

} // namespace quor::toolkit
