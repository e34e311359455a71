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

/// A folder with what a module shows to users: texts in several languages, colours and images.
///
///     <Name>.bundle/<language>.lproj/Localizable.json   {"key": "text"}
///     <Name>.bundle/Colors.json                         {"name": {"light": "#RRGGBB", "dark": "#RRGGBB"}}
///     <Name>.bundle/Images/<name>.svg or .png
///
/// Files are read on first use and kept in memory; images up to a total size only. A file or entry that
/// is malformed is treated as missing. A bundle without a folder, or whose folder does not exist, is
/// valid: it returns keys instead of texts, and no colours or images. A handle: copies are cheap and
/// share what was read. Any thread.
class Bundle final {
public:
    /// A value that is filled into a text.
    using Argument = std::variant<qint64, double, QString>;

    /// Creates the bundle for a folder, which need not exist. An empty path makes a bundle without folder.
    explicit Bundle(const QString& folder);

    /// Returns the bundle `<name>.bundle` of the first of these folders that has it: `../share/quor` seen
    /// from the executable, the folder of the installed kit that the program was linked with, the folder
    /// that the kit was configured for, `quor` in each of `$XDG_DATA_DIRS`.
    [[nodiscard]] static Bundle named(const QString& name);

    /// As `named`, for a bundle that is part of the installation: if no folder has it, ends the program with
    /// the message "unable to find bundle named <name>".
    [[nodiscard]] static Bundle required(const QString& name);

    /// Returns the application's own bundle: the one with the name of the executable, found as by `named`.
    /// The first call with a `QCoreApplication` searches for it; without a `QCoreApplication` the result
    /// is a bundle without folder.
    [[nodiscard]] static Bundle main();

    /// The path of the folder. Empty for a bundle without folder.
    [[nodiscard]] const QString& path() const;

    /// Returns the text of `key` in the first language of the current default `QLocale` that has it,
    /// otherwise in English, otherwise `key` itself.
    [[nodiscard]] QString localizedString(const QString& key) const;

    /// Returns the text of `key` as an ICU message, with the arguments filled in for {0}, {1} and so on.
    /// A malformed message is returned without arguments filled in.
    [[nodiscard]] QString localizedString(const QString& key, const std::vector<Argument>& arguments) const;

    /// Returns an image, scaled to fit into `size` with its proportions kept, or in its own size if `size`
    /// is empty. Sizes are in device-independent pixels; the result has `devicePixelRatio` device pixels
    /// for each of them. Returns a null image if the bundle has no such image, if `name` contains a
    /// slash, or if `devicePixelRatio` is not positive.
    [[nodiscard]] QImage image(const QString& name, QSizeF size = {}, qreal devicePixelRatio = 1) const;

    /// Returns `nullopt` if the bundle has no colour of this name.
    [[nodiscard]] std::optional<DynamicColor> color(const QString& name) const;

private:
    class Contents;

    std::shared_ptr<Contents> contents_;
};

} // namespace quor::platform
