// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/Bundle.h"

#include <QString>

/// The version of the running application, versions as numbers, and the application's own texts.
///
/// An application passes its version, with the build number in parentheses, to Qt when it starts:
///
///     target_compile_definitions(app PRIVATE "APP_VERSION=\"${PROJECT_VERSION} (${BUILD})\"")
///     QCoreApplication::setApplicationVersion(QStringLiteral(APP_VERSION));
///
/// These functions never fail. Any thread, after the version was set.
namespace quor::toolkit {

/// Returns the version without the build number, as in "3.1.2"; "0.0.0" if no version was set.
[[nodiscard]] QString shortVersion();

/// Returns the version with the build number, if there is one, as in "3.1.2 (2847)".
[[nodiscard]] QString versionDescription();

/// Returns a version such as "14.2.1" as a number, here 140201. The numbers have the order of the versions as
/// long as the minor and patch numbers are below 100. Pieces between dots that are no integers are ignored,
/// and so are integers after the third. Returns 0 if there are fewer than two. A result beyond 64 bits is
/// clamped.
[[nodiscard]] qint64 numericVersion(QStringView version);

/// Returns the text of `key` in the user's language from the bundle, by default the one with the name of the
/// executable. Returns the key if the bundle has no such text.
[[nodiscard]] QString localized(
    const QString& key, const platform::Bundle& bundle = platform::Bundle::main());

} // namespace quor::toolkit
