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

/// Tags of the status item's elements: punched out of the pill, or live above it in true colour.
constexpr int CutoutTag = 1;
constexpr int LiveTag = 0;

/// What the status item shows, as a plain value: which elements, in which order, with which texts.
///
/// From left to right: the symbol, then the clock face or the texts. It follows from the record, the
/// time, the formatter and the screen alone, without any drawing.
struct StatusItemPlan {
    /// The day's progress. Above 1 the part beyond the full turn is over-time.
    struct Ring {
        double progress = 0;
        QColor color;
        std::optional<QColor> backgroundColor;
        int tag = LiveTag;
        friend bool operator==(const Ring&, const Ring&) = default;
    };
    /// A solid disc, live.
    struct Dot {
        QColor color;
        friend bool operator==(const Dot&, const Dot&) = default;
    };
    /// A clock's face with its hands at this local time.
    struct ClockFace {
        int hour = 0; ///< 0 to 23
        int minute = 0;
        friend bool operator==(const ClockFace&, const ClockFace&) = default;
    };
    using Symbol = std::variant<std::monostate, Dot, Ring>;

    Symbol symbol;
    std::optional<Ring> overTime; ///< live, right above the symbol: its over-time arc alone
    std::optional<ClockFace> clockFace; ///< only where nothing else is shown
    std::optional<QString> taskText; ///< may be empty: the label is there nevertheless
    std::optional<QString> timeText;
    bool twoLines = false; ///< the task above the time, else beside it
    std::optional<HeightPadding> heightPadding; ///< none leaves it as it is

    friend bool operator==(const StatusItemPlan&, const StatusItemPlan&) = default;
};

/// `hasNotch` tells whether the main screen's bar is cut by a notch.
[[nodiscard]] StatusItemPlan statusItemPlan(const MenubarStatusItemData& data, platform::Date now,
    const toolkit::DurationFormatter& formatter, bool hasNotch);

/// Whether no eye could tell the drawings apart: equal, but for steps of a ring far below a pixel.
[[nodiscard]] bool looksLike(const StatusItemPlan::Symbol& symbol, const StatusItemPlan::Symbol& other);
[[nodiscard]] bool looksLike(const StatusItemPlan& plan, const StatusItemPlan& other);

/// Seconds that the running timers have run, all together.
[[nodiscard]] double runningTotal(const MenubarStatusItemData& data, platform::Date now);

/// How much of the day's expected work is done: 1 is all of it, and it ends at 4 pi.
[[nodiscard]] double dayProgress(const MenubarStatusItemData& data, platform::Date now);

[[nodiscard]] QString dailyTotalText(
    const MenubarStatusItemData& data, platform::Date now, const toolkit::DurationFormatter& formatter);

} // namespace quor::helper
