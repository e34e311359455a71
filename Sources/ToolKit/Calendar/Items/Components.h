// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <libical/ical.h>

namespace quor::toolkit {

// libical's iteration moves an iterator within the component. These lists stay valid while it is searched or
// changed. All pointers are borrowed.

[[nodiscard]] inline std::vector<icalcomponent*> componentsIn(
    icalcomponent* component, icalcomponent_kind kind = ICAL_ANY_COMPONENT)
{
    std::vector<icalcomponent*> found;
    for (auto* each = icalcomponent_get_first_component(component, kind); each;
         each = icalcomponent_get_next_component(component, kind))
        found.push_back(each);
    return found;
}

[[nodiscard]] inline std::vector<icalproperty*> propertiesIn(icalcomponent* component, icalproperty_kind kind)
{
    std::vector<icalproperty*> found;
    for (auto* each = icalcomponent_get_first_property(component, kind); each;
         each = icalcomponent_get_next_property(component, kind))
        found.push_back(each);
    return found;
}

inline void removeProperty(icalcomponent* component, icalproperty* property)
{
    icalcomponent_remove_property(component, property);
    icalproperty_free(property);
}

} // namespace quor::toolkit
