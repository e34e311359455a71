// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>

#include <optional>
#include <vector>

namespace quor::toolkit {

// libical drops properties that it does not know, does not write components of
// unknown names, and writes some values differently than it read them.
// Therefore it gets only the lines that this library reads. Every other line,
// and every other component as a whole, is masked: a property with the number
// of the original takes its place while libical has the file, and the original
// comes back, byte for byte, when the file is written.

/// The property that takes the place of a component.
inline constexpr const char* maskedPart = "X-QUOR-MASKED-PART";

struct MaskedFile {
    /// For libical: unfolded and without line breaks. Properties without a value,
    /// which some programs write, are left out. A list of dates is split, because
    /// libical reads at most 500 of them.
    std::vector<QByteArray> lines;
    std::vector<QByteArray> originals; ///< what was masked
};

/// Returns `nullopt` if the file is no calendar file: if BEGIN and END do not
/// match, components are nested too deeply, a component at the top is no
/// VCALENDAR, a line has no name, or a line stands outside of all components.
[[nodiscard]] std::optional<MaskedFile> maskItems(QByteArrayView file);
/// Returns the text that libical wrote, with all that was masked. Masked
/// components follow the properties of the component that holds them.
[[nodiscard]] QByteArray unmaskItems(QByteArrayView text, const std::vector<QByteArray>& originals);

} // namespace quor::toolkit
