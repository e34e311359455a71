// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/DynamicColor.h"

#include <QImage>
#include <QSizeF>
#include <QString>

#include <memory>
#include <optional>
#include <variant>
#include <vector>

namespace quor::platform {

/// A folder of what a module shows: texts in several languages, colours, images.
///
///     <Name>.bundle/<language>.lproj/Localizable.json   {"key": "text"}
///     <Name>.bundle/Colors.json                         {"name": {"light": "#RRGGBB", "dark": "#RRGGBB"}}
///     <Name>.bundle/Images/<name>.svg or .png
///
/// Files are read when first asked for, and then kept. What is missing or malformed counts as absent,
/// so a bundle that is nowhere gives keys for texts, and neither colours nor images. A handle, cheap
/// to copy; copies share what was read. Any thread.
class Bundle final {
public:
    /// What is filled into a text.
    using Argument = std::variant<qint64, double, QString>;

    /// The bundle that is this folder.
    explicit Bundle(const QString& folder);

    /// Returns the bundle `<name>.bundle` of the first of these folders that has it: `../share/quor` seen
    /// from the executable, the folder of the installed kit that the program was linked with, the folder
    /// that the kit was configured for, `quor` in each of `$XDG_DATA_DIRS`.
    [[nodiscard]] static Bundle named(const QString& name);

    /// The application's own: the bundle that is named as its executable is, found as by `named`. It is
    /// looked for once, when there is a `QCoreApplication`; before that it is nowhere.
    [[nodiscard]] static Bundle main();

    /// Where the bundle is; empty if it is nowhere.
    [[nodiscard]] const QString& path() const;

    /// The text of `key` in the first of the user's languages that has it (the default locale's, as
    /// it stands at the call), else in English, else the key itself.
    [[nodiscard]] QString localizedString(const QString& key) const;

    /// The text of `key` as an ICU message with the arguments filled in as {0}, {1} and so on; a
    /// malformed message comes back unfilled.
    [[nodiscard]] QString localizedString(const QString& key, const std::vector<Argument>& arguments) const;

    /// The image fitted into `size` points, keeping its proportions, and drawn for that many device
    /// pixels a point; in its own size where `size` is empty. A null image if there is none.
    [[nodiscard]] QImage image(const QString& name, QSizeF size = {}, qreal devicePixelRatio = 1) const;

    [[nodiscard]] std::optional<DynamicColor> color(const QString& name) const;

private:
    class Contents;

    std::shared_ptr<Contents> contents_;
};

} // namespace quor::platform
