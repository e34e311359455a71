// SPDX-License-Identifier: MIT
#include "Platform/Services/Appearance.h"

#include "Platform/Lifetime/Callback.h"

#include <utility>

namespace quor::platform {

Appearance::Appearance(QObject* parent)
    : QObject(parent)
{
}

ColorScheme Appearance::effectiveAppearance() const
{
    return own_.value_or(desktop_);
}

void Appearance::setAppearance(std::optional<ColorScheme> scheme)
{
    apply(scheme, desktop_);
}

void Appearance::setDesktopScheme(ColorScheme scheme)
{
    apply(own_, scheme);
}

void Appearance::apply(std::optional<ColorScheme> own, ColorScheme desktop)
{
    const auto before = effectiveAppearance();
    own_ = own;
    desktop_ = desktop;
    if (effectiveAppearance() != before)
        Q_EMIT effectiveAppearanceChanged();
}

Subscription Appearance::observe(std::function<void()> changed)
{
    const auto connection = connect(this, &Appearance::effectiveAppearanceChanged, this,
        [changed = Callback<void()>(std::move(changed))] { changed(); });
    return Subscription([connection] { disconnect(connection); });
}

} // namespace quor::platform
