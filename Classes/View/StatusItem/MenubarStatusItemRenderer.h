// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenubarStatusItemData.h"
#include "Platform/Lifetime/Subscription.h"
#include "Platform/Resources/Bundle.h"
#include "Platform/Services/PlatformServices.h"
#include "Platform/Services/Screen.h"
#include "ToolKit/Formatting/DurationFormatter.h"
#include "View/StatusItem/HeightPadding.h"
#include "View/StatusItem/StatusItemElements.h"
#include "View/StatusItem/StatusItemPlan.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>

namespace quor::platform {
class StatusItem;
}

namespace quor::helper {

/// Shows one record as the status item: a pill with texts and symbols punched out of it, tinted by the
/// bar, and on top of it the task's dot or ring in true colour.
///
/// The owner sets `data` and the formatter and calls `update`; until the first call the item stays empty.
/// After it, the renderer also renders when the scale of the item's screen or the appearance changes, and
/// each minute while the idle clock's face shows. Borrows the item and the services, which must outlive
/// it. Main thread only.
class MenubarStatusItemRenderer final : public QObject {
    Q_OBJECT

public:
    /// Returns the main screen, or `nullopt` if there is none.
    using MainScreen = std::function<std::optional<platform::Screen>()>;

    MenubarStatusItemRenderer(platform::StatusItem& statusItem, const platform::PlatformServices& services,
        MainScreen mainScreen = platform::Screen::mainScreen);
    ~MenubarStatusItemRenderer() override;

    MenubarStatusItemData data;
    toolkit::DurationFormatter durationFormatter;

    /// Renders `data` at the current time. What would look as before is not painted again.
    void update();

    /// Stops the timer and removes the dot or ring from the button. The pill stays.
    void stop();

private:
    /// Everything that determines the pixels of a rendering.
    struct Drawing {
        StatusItemPlan plan;
        double scale = 1;
        QColor warningColor;
    };

    [[nodiscard]] Drawing drawing() const;
    [[nodiscard]] QColor warningColor() const;
    void render(Drawing drawing);
    void describe(const StatusItemPlan& plan);
    void restartClock();

    platform::StatusItem& statusItem_;
    platform::PlatformServices services_;
    MainScreen mainScreen_;
    platform::Bundle bundle_;
    std::optional<StatusItemElements> elements_; ///< created by the first rendering, as it loads the fonts
    QTimer clockUpdateTimer_{this}; ///< runs only while the idle clock's face shows
    HeightPadding heightPadding_ = HeightPadding::single;
    std::optional<Drawing> shown_;
    platform::Subscription appearanceChanges_;
};

} // namespace quor::helper
