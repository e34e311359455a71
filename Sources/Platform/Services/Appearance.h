// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Subscription.h"

#include <QObject>

#include <functional>
#include <optional>

namespace quor::platform {

enum class ColorScheme { light, dark };

/// Whether this application is light or dark: what the desktop says, unless the application has
/// chosen for itself.
///
/// The desktop's part is fed in through `setDesktopScheme` by whoever listens to the desktop. One
/// object an application, made before the windows. Main thread only, `effectiveAppearance` too.
class Appearance final : public QObject {
    Q_OBJECT

public:
    explicit Appearance(QObject* parent = nullptr);

    /// The application's own choice, else the desktop's.
    [[nodiscard]] ColorScheme effectiveAppearance() const;

    /// The application's own choice; none leaves it to the desktop.
    [[nodiscard]] std::optional<ColorScheme> appearance() const { return own_; }
    void setAppearance(std::optional<ColorScheme> scheme);

    void setDesktopScheme(ColorScheme scheme);

    /// Calls `changed` after each change of the effective appearance, for as long as the result
    /// lives. The result may outlive this object.
    Subscription observe(std::function<void()> changed);

Q_SIGNALS:
    void effectiveAppearanceChanged();

private:
    void apply(std::optional<ColorScheme> own, ColorScheme desktop);

    std::optional<ColorScheme> own_;
    ColorScheme desktop_ = ColorScheme::light;
};

} // namespace quor::platform
