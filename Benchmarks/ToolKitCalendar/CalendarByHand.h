// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/Event.h"

#include <libical/ical.h>

#include <ctime>
#include <memory>
#include <vector>

namespace quor::benchmarks {

/// The events of a folder, read with libical alone: parsed once, then all of them walked for each query.
/// Supports only what the benchmark needs: one event per file, shorter than a day, with an end, in UTC or in
/// a zone that the machine knows.
class CalendarByHand final {
public:
    using Fields = std::vector<toolkit::EventFields>;

    explicit CalendarByHand(const QString& folder);

    /// Returns the events that overlap [start, end), by start. Reads times and fields from libical's
    /// components.
    [[nodiscard]] Fields walkComponents(platform::Date start, platform::Date end) const;
    /// The same, from times, fields and rules that the constructor read.
    [[nodiscard]] Fields walkFields(platform::Date start, platform::Date end) const;

private:
    struct FreeComponent {
        void operator()(icalcomponent* component) const { icalcomponent_free(component); }
    };
    struct Parsed {
        std::unique_ptr<icalcomponent, FreeComponent> root;
        icalcomponent* event = nullptr;
        icaltimezone* zone = nullptr;
        QString zoneName;
    };
    struct Read {
        toolkit::EventFields fields;
        bool recurs = false;
        icaltimetype first{};
        icaltimezone* zone = nullptr;
        icalrecurrencetype rule{};
    };

    [[nodiscard]] static toolkit::EventFields fieldsOf(const Parsed& parsed);

    std::vector<Parsed> parsed_;
    std::vector<Read> read_;
};

} // namespace quor::benchmarks
