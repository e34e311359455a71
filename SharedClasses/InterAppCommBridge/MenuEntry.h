// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <variant>

namespace quor {

// The payloads of MenuEntry. Outside of it because a variant needs their initializers, which are only
// known once the class around them is complete.
namespace menuentry {

struct Entry {
    struct Action {
        struct Stop {
            QString taskID;
            friend bool operator==(const Stop&, const Stop&) = default;
        };
        struct Start {
            QString taskID;
            friend bool operator==(const Start&, const Start&) = default;
        };
        struct Show {
            friend bool operator==(const Show&, const Show&) = default;
        };
        struct Quit {
            friend bool operator==(const Quit&, const Quit&) = default;
        };
        struct None {
            friend bool operator==(const None&, const None&) = default;
        };

        std::variant<Stop, Start, Show, Quit, None> value = None{};

        friend bool operator==(const Action&, const Action&) = default;
    };

    QString label;
    QString hotkey; ///< shown at the trailing end; empty for none
    std::optional<QString> iconName; ///< of an image resource
    std::optional<std::uint64_t> color; ///< icon tint, 0xRRGGBB
    bool isTitle = false; ///< a heading: dimmed, smaller, not selectable
    Action action; ///< what a click does

    friend bool operator==(const Entry&, const Entry&) = default;
};

/// Rewinds the start of a running timer. `startTime` in seconds since 1970.
struct AdjustStart {
    QString taskID;
    double startTime = 0;
    friend bool operator==(const AdjustStart&, const AdjustStart&) = default;
};

/// Stops a running timer in the past.
struct StopPast {
    QString taskID;
    friend bool operator==(const StopPast&, const StopPast&) = default;
};

struct Search {
    friend bool operator==(const Search&, const Search&) = default;
};

struct Separator {
    friend bool operator==(const Separator&, const Separator&) = default;
};

} // namespace menuentry

/// One row of the pop-up menu, as the main application sends it.
struct MenuEntry {
    using Entry = menuentry::Entry;
    using AdjustStart = menuentry::AdjustStart;
    using StopPast = menuentry::StopPast;
    using Search = menuentry::Search;
    using Separator = menuentry::Separator;

    std::variant<Entry, AdjustStart, StopPast, Search, Separator> value;

    friend bool operator==(const MenuEntry&, const MenuEntry&) = default;
};

} // namespace quor
