// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace quor::platform {

/// A preferences suite: keyed, typed values that every process of the user can read and write.
///
/// A suite is a folder, `$XDG_DATA_HOME/<suite>/Preferences` (mode 0700), with one regular file
/// (mode 0600) a key: a line with the type (`data`, `string`, `bool`, `real`), a line feed, the value.
/// The file's name is the key, every byte outside `A-Za-z0-9._-` and a leading dot as `%XX`.
/// A write is renamed over the key's file, so a reader sees the old value or the new one, whole.
/// Nothing is cached: each read is of the file as it stands.
///
/// A missing, unreadable or malformed value reads as unset. A value of another type converts: a
/// boolean from a number or from the texts "true", "yes", "1"; a double from a numeric text; all else is
/// unset. Numbers are finite; a line feed at the end of a boolean or a number is let pass, since shells
/// like to write one. A key that is empty, no Unicode, or too long for a file name holds nothing, and no
/// value is larger than 256 MiB. Halves of surrogate pairs in a text are stored as question marks.
///
/// Any thread; a value type without open handles.
class UserDefaults final {
public:
    /// The suite of that name, its folder made where missing; none if it cannot be opened. Cannot be
    /// opened: a name that is no folder's name ("..", or with a "/"), a file in the folder's place, a
    /// folder that may not be made or entered, no data home.
    [[nodiscard]] static std::optional<UserDefaults> suite(const QString& name);

    /// This process's own defaults: the suite named as the application is
    /// (`QCoreApplication::applicationName`). Where that cannot be opened, nothing is set and nothing
    /// can be.
    [[nodiscard]] static UserDefaults standard();

    /// `suite(name)`, or the standard defaults in its place. Costs nothing by itself: whether the suite
    /// can be opened shows at each access, and only one that does not succeed at once looks.
    [[nodiscard]] static UserDefaults suiteOrStandard(const QString& name);

    [[nodiscard]] std::optional<QByteArray> dataForKey(const QString& key) const;
    [[nodiscard]] std::optional<QString> stringForKey(const QString& key) const;
    [[nodiscard]] bool boolForKey(const QString& key) const; ///< false where unset
    [[nodiscard]] double doubleForKey(const QString& key) const; ///< 0 where unset; always finite

    /// Replaces the value. False if it could not be stored whole (full disk, say, or a number that is
    /// not finite); the old value then stands. A value that is there when this returns survives the
    /// end of the process, not a power cut: nothing is synced.
    bool setObject(const QByteArray& data, const QString& key) const;
    bool setObject(const QString& string, const QString& key) const;
    bool setObject(bool value, const QString& key) const;
    bool setObject(double value, const QString& key) const;
    bool setObject(const char* value, const QString& key) const = delete; // would be taken for a bool
    /// True if the key holds nothing now.
    bool removeObject(const QString& key) const;

private:
    explicit UserDefaults(QByteArray folder);

    template <typename Access>
    auto access(Access access) const;
    [[nodiscard]] std::optional<QByteArray> content(const QString& key) const;
    bool replace(const QString& key, QByteArrayView type, QByteArrayView value) const;

    QByteArray folder_; ///< in the file system's encoding; empty if there can be none
    bool standsInStandard_ = false; ///< the standard defaults serve where the folder cannot be opened
};

} // namespace quor::platform
