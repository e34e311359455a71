// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>

namespace quor::platform {

/// The locale in which the user wants dates and times: the program's default locale if the program has set
/// one, else the one that the environment names for dates (`LC_ALL`, else `LC_TIME`), else the system's.
/// Any thread.
[[nodiscard]] QLocale userDateLocale();

} // namespace quor::platform
