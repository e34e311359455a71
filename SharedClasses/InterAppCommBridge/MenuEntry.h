// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <variant>

namespace quor {

// The payloads of MenuEntry. They are outside of it because a variant needs their default member
// initializers, which the compiler knows only after the enclosing class.
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
    QString hotkey; ///< Shown at the trailing end. Empty if the row has none.
    std::optional<QString> iconName; ///< The name of an image resource.
    std::optional<std::uint64_t> color; ///< Tint of the icon, 0xRRGGBB.
    bool isTitle = false; ///< A heading: dimmed, smaller, not selectable.
    Action action; ///< Of a click on the row.

    friend bool operator==(const Entry&, const Entry&) = default;
};

/// Moves the start of a running timer back. `startTime` is its start now, in seconds since 1970.
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

/// One row of the pop-up menu, as sent by the main application.
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
