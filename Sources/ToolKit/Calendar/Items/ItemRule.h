// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <libical/ical.h>

#include <cstdlib>

namespace quor::toolkit {

/// A recurrence rule, parsed from the value of an RRULE. Owns the text that libical allocates within the
/// rule.
struct ItemRule {
    explicit ItemRule(const QByteArray& text)
        : value(icalrecurrencetype_from_string(text.constData()))
    {
    }
    ~ItemRule() { std::free(value.rscale); }
    ItemRule(const ItemRule&) = delete;
    ItemRule& operator=(const ItemRule&) = delete;

    [[nodiscard]] bool isValid() const { return value.freq != ICAL_NO_RECURRENCE; }

    icalrecurrencetype value;
};

} // namespace quor::toolkit
