// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenubarStatusItemData.h"
#include "Platform/Lifetime/Subscription.h"
#include "Platform/Resources/Bundle.h"
#include "Platform/Services/PlatformServices.h"
#include "Platform/Services/Screen.h"
#include "ToolKit/Formatting/DurationFormatter.h"
#include "View/StatusItem/HeightPadding.h"
#include "View/StatusItem/StatusItemPlan.h"
#include "View/StatusItem/StatusItemStyle.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

namespace quor::platform {
class StatusItem;
}

namespace quor::helper {

class MenubarStackView;

/// Turns one record into what the user sees in the status bar: a pill with texts and symbols punched
/// out of it, tinted by the bar, and on top of it the task's dot or ring in true colour.
///
/// The owner sets `data` and the formatter and calls `update`; until the first call the item stays
/// empty. From then on it also renders anew when the item comes to another scale or the appearance
/// changes, and each minute while a clock's face shows. Borrows the item and the services, which must
/// outlive it. Main thread only.
class MenubarStatusItemRenderer final : public QObject {
    Q_OBJECT

public:
    using MainScreen = std::function<std::optional<platform::Screen>()>;

    MenubarStatusItemRenderer(platform::StatusItem& statusItem, const platform::PlatformServices& services,
        MainScreen mainScreen = platform::Screen::mainScreen);
    ~MenubarStatusItemRenderer() override;

    MenubarStatusItemData data;
    toolkit::DurationFormatter durationFormatter;

    [[nodiscard]] HeightPadding heightPadding() const { return heightPadding_; }

    /// Renders `data` as of now. What would look as before is not touched.
    void update();

    /// Ends the timer and takes the live elements off the button.
    void stop();

private:
    /// All that a drawing follows from.
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
    std::optional<StatusItemStyle> style_; ///< none before the first rendering, which loads the fonts
    std::unique_ptr<MenubarStackView> stackView_;
    QTimer clockUpdateTimer_{this}; ///< runs only while the idle clock's face shows
    HeightPadding heightPadding_ = HeightPadding::single;
    std::optional<Drawing> shown_;
    platform::Subscription appearanceChanges_;
};

} // namespace quor::helper
