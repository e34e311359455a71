// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Text/TextRange.h"

#include <QString>

#include <optional>

/// Texts as searches compare them. Any thread.
namespace quor::formkit {

/// Returns `text` so that texts that differ only in case, or in whether their accents are composed, become
/// equal.
[[nodiscard]] QString foldedText(const QString& text);

/// Returns the first part of `text` that becomes `folded`, in whole characters as readers see them. `nullopt`
/// if there is none, or if `folded` is empty.
[[nodiscard]] std::optional<platform::TextRange> matchIn(const QString& text, const QString& folded);

} // namespace quor::formkit
