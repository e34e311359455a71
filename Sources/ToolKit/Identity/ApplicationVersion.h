// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/Bundle.h"

#include <QString>

/// What version of itself an application is, versions as numbers, and the application's own texts.
///
/// The version is what the application was built with and tells Qt when it starts, with the number of
/// the build behind it:
///
///     target_compile_definitions(app PRIVATE "APP_VERSION=\"${PROJECT_VERSION} (${BUILD})\"")
///     QCoreApplication::setApplicationVersion(QStringLiteral(APP_VERSION));
///
/// None of these fails. Any thread, once the version is set.
namespace quor::toolkit {

/// The version without the number of the build, as in "3.1.2"; "0.0.0" if none was set.
[[nodiscard]] QString shortVersion();

/// The version with the number of the build, if it has one, as in "3.1.2 (2847)".
[[nodiscard]] QString versionDescription();

/// A version such as "14.2.1" as a number, 140201, which orders versions as long as the minor number
/// and the patch stay below 100. Pieces between points that are no integer are skipped, and so are the
/// fourth and further ones; 0 with fewer than two. Kept within 64 bits.
[[nodiscard]] qint64 numericVersion(QStringView version);

/// The text of `key` in the user's language, from the bundle named as the executable; else the key itself.
[[nodiscard]] QString localized(
    const QString& key, const platform::Bundle& bundle = platform::Bundle::main());

} // namespace quor::toolkit
