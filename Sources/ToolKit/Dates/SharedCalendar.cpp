// SPDX-License-Identifier: MIT
#include "ToolKit/Dates/SharedCalendar.h"

#include <mutex>

namespace quor::toolkit {

namespace {

struct Shared {
    std::mutex mutex;
    platform::Calendar calendar; ///< guarded by `mutex`
};

/// Created by the first date operation, when the program has set its default locale.
Shared& shared()
{
    static Shared shared;
    return shared;
}

} // namespace

platform::Calendar calendar()
{
    Shared& common = shared();
    const std::lock_guard lock(common.mutex);
    return common.calendar;
}

void setCalendar(const platform::Calendar& calendar)
{
    Shared& common = shared();
    const std::lock_guard lock(common.mutex);
    common.calendar = calendar;
}

} // namespace quor::toolkit
