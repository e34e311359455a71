// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/Bundle.h"

namespace quor::formkit {

/// The texts of the form engine's widgets, from the bundle "Cabinet_FormKit_macOS". Any thread.
struct FormMacOSResource {
    /// The bundle, which is looked for at the first call. Ends the program with a message if it is not
    /// installed.
    [[nodiscard]] static const platform::Bundle& resourceBundle();
    /// Returns the text of `key` in the user's language, or `key` if there is none.
    [[nodiscard]] static QString localizedString(const QString& key);
};

} // namespace quor::formkit
