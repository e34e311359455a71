// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenubarStatusItemData.h"
#include "Platform/Services/Clock.h"
#include "ToolKit/Formatting/DurationFormatter.h"
#include "View/StatusItem/HeightPadding.h"

#include <QColor>
#include <QString>

#include <optional>
#include <variant>

namespace quor::helper {

/// Tags of the status item's elements: punched out of the pill, or drawn above it in true colour ("live").
constexpr int CutoutTag = 1;
constexpr int LiveTag = 0;

/// The content of the status item as a plain value: which elements it shows, with which texts. From left to
/// right they are the symbol, then the clock face or the texts.
struct StatusItemPlan {
    /// A ring that shows the day's progress; the part above 1 is over-time.
    struct Ring {
        double progress = 0;
        QColor color;
        std::optional<QColor> backgroundColor;
        int tag = LiveTag;
        friend bool operator==(const Ring&, const Ring&) = default;
    };
    /// A live solid disc.
    struct Dot {
        QColor color;
        friend bool operator==(const Dot&, const Dot&) = default;
    };
    /// A clock's face that shows this local time.
    struct ClockFace {
        int hour = 0; ///< 0 to 23
        int minute = 0;
        friend bool operator==(const ClockFace&, const ClockFace&) = default;
    };
    using Symbol = std::variant<std::monostate, Dot, Ring>;

    Symbol symbol;
    std::optional<Ring> overTime; ///< over a cut-out ring: a clear live ring with the over-time arc
    std::optional<ClockFace> clockFace; ///< only if there is neither a symbol nor a text
    std::optional<QString> taskText; ///< can be an empty text, which takes the room of a label
    std::optional<QString> timeText;
    bool twoLines = false; ///< whether the task stands above the time, and not beside it
    std::optional<HeightPadding> heightPadding; ///< `nullopt` keeps the padding of the plan shown before

    friend bool operator==(const StatusItemPlan&, const StatusItemPlan&) = default;
};

/// Returns the plan for a record. `hasNotch` says whether a notch cuts the main screen's bar.
[[nodiscard]] StatusItemPlan statusItemPlan(const MenubarStatusItemData& data, platform::Date now,
    const toolkit::DurationFormatter& formatter, bool hasNotch);

/// Returns whether the two are drawn alike: they are equal, or differ by a step of a ring far below a pixel.
[[nodiscard]] bool looksLike(const StatusItemPlan::Symbol& symbol, const StatusItemPlan::Symbol& other);
[[nodiscard]] bool looksLike(const StatusItemPlan& plan, const StatusItemPlan& other);

/// Returns the sum of the seconds that the running timers have run.
[[nodiscard]] double runningTotal(const MenubarStatusItemData& data, platform::Date now);

/// Returns the share of the day's expected work that is done: 1 for all of it, at most 4 pi.
[[nodiscard]] double dayProgress(const MenubarStatusItemData& data, platform::Date now);

/// Returns the formatted total of the day, running timers included.
[[nodiscard]] QString dailyTotalText(
    const MenubarStatusItemData& data, platform::Date now, const toolkit::DurationFormatter& formatter);

} // namespace quor::helper
