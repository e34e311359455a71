// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/Event.h"

#include <libical/ical.h>

#include <ctime>
#include <memory>
#include <vector>

namespace quor::benchmarks {

/// A folder's events as somebody would read them with libical alone: parsed once, walked whole for each
/// question. Knows no more than the benchmark needs: one event a file, shorter than a day, with an end, of
/// UTC or of a zone of the machine's.
class CalendarByHand final {
public:
    using Fields = std::vector<toolkit::EventFields>;

    explicit CalendarByHand(const QString& folder);

    /// Those that overlap [start, end), by start; times and fields are read in libical's components.
    [[nodiscard]] Fields walkComponents(platform::Date start, platform::Date end) const;
    /// The same, with times, fields and rules that were read when the folder was.
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
