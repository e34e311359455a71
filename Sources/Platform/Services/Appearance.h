// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Subscription.h"

#include <QObject>

#include <functional>
#include <optional>

namespace quor::platform {

enum class ColorScheme { light, dark };

/// The colour scheme of this application: the desktop's scheme, unless the application has set its own. Also
/// whether the desktop wants animations.
///
/// The object that listens to the desktop reports its settings through `setDesktopScheme` and
/// `setDesktopAnimates`. An application creates one `Appearance`, before its windows. Main thread only.
class Appearance final : public QObject {
    Q_OBJECT

public:
    explicit Appearance(QObject* parent = nullptr);

    /// Returns the application's own scheme if it has set one, otherwise the desktop's.
    [[nodiscard]] ColorScheme effectiveAppearance() const;

    /// The application's own scheme; `nullopt` (the initial value) to follow the desktop.
    [[nodiscard]] std::optional<ColorScheme> appearance() const { return own_; }
    void setAppearance(std::optional<ColorScheme> scheme);

    /// Sets the desktop's scheme, which is light at first.
    void setDesktopScheme(ColorScheme scheme);

    /// Whether the user lets the desktop animate. Ask at the start of each animation; see also
    /// `animationDuration`.
    [[nodiscard]] bool animates() const { return animates_; }
    /// True at first.
    void setDesktopAnimates(bool animates) { animates_ = animates; }

    /// Calls `changed` after each change of `effectiveAppearance`, until the returned subscription ends. The
    /// call takes place before `setAppearance` or `setDesktopScheme` returns. The subscription may outlive
    /// this object.
    Subscription observe(std::function<void()> changed);

Q_SIGNALS:
    void effectiveAppearanceChanged(); ///< used by `observe`

private:
    void apply(std::optional<ColorScheme> own, ColorScheme desktop);

    std::optional<ColorScheme> own_;
    ColorScheme desktop_ = ColorScheme::light;
    bool animates_ = true;
};

} // namespace quor::platform
