// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QString>
#include <QUuid>

#include <optional>
#include <variant>

namespace quor::formkit {

/// One entry of a drop-down. A value.
struct FormItem {
    /// The name of an image in the application's resources.
    struct LibraryImage {
        QString name;
        friend bool operator==(const LibraryImage&, const LibraryImage&) = default;
    };
    /// The name of an icon of the desktop's theme.
    struct SystemImage {
        QString name;
        friend bool operator==(const SystemImage&, const SystemImage&) = default;
    };
    using ImageType = std::variant<LibraryImage, SystemImage>;

    /// Makes a separator.
    FormItem() = default;
    /// `shownName` becomes the name, `storedValue` the value.
    FormItem(QString shownName, QString storedValue, bool enabled = true, int indentation = 0,
        std::optional<QColor> mark = {}, std::optional<ImageType> picture = {});
    /// The same with the decimal text of `number` as the value.
    FormItem(QString shownName, int number, bool enabled = true, int indentation = 0,
        std::optional<QColor> mark = {}, std::optional<ImageType> picture = {});

    [[nodiscard]] bool isSeparator() const { return !isEnabled && value.isEmpty() && name.isEmpty(); }

    /// Two separators are equal if their identifiers are. All other items are equal if their names and values
    /// are.
    friend bool operator==(const FormItem& left, const FormItem& right);

    QUuid id = QUuid::createUuid(); ///< another one for each item that is made, the same for copies
    QString name;
    QString value;
    bool isEnabled = false; ///< whether it can be selected
    int indentationLevel = 0;
    std::optional<QColor> color; ///< of a small mark in the row
    std::optional<ImageType> image;
};

} // namespace quor::formkit
