// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace quor::platform {

/// A preferences suite: keyed, typed values that every process of the user can read and write.
///
/// A suite is a folder, `$XDG_DATA_HOME/<suite>/Preferences` (mode 0700), with one regular file (mode 0600)
/// for each key. The file's name is the key, in which a leading dot and every byte outside `A-Za-z0-9._-` is
/// written as `%XX`. Its content is a line with the type (`data`, `string`, `bool` or `real`) and then the
/// value. A write replaces the file as a whole, so a reader sees the old value or the new one. Nothing is
/// cached: each read opens the file.
///
/// A missing, unreadable or malformed value reads as unset, and so does a value of another type, with these
/// exceptions: a boolean is read from a number or from the texts "true", "yes" and "1", a double from a
/// numeric text. One line feed after a boolean or a number is ignored, since shells like to write one.
///
/// A key that is empty, no valid Unicode, or too long for a file name is always unset. No value is larger
/// than 256 MiB. In a text, half of a surrogate pair is stored as a question mark.
///
/// Any thread. A value type without open handles.
class UserDefaults final {
public:
    /// Returns the suite of that name and makes its folder if it is missing. Returns `nullopt` if the suite
    /// cannot be opened: the name is no name of a folder ("..", or with a "/"), something else has the
    /// folder's name, the folder cannot be made or entered, or there is no data home.
    [[nodiscard]] static std::optional<UserDefaults> suite(const QString& name);

    /// Returns this process's own defaults: the suite that is named as the application is
    /// (`QCoreApplication::applicationName`). If it cannot be opened, every value is unset and no write
    /// succeeds.
    [[nodiscard]] static UserDefaults standard();

    /// Returns defaults that use the suite if it can be opened, otherwise the standard defaults. This is
    /// decided at each access. This function does not make or open a folder.
    [[nodiscard]] static UserDefaults suiteOrStandard(const QString& name);

    [[nodiscard]] std::optional<QByteArray> dataForKey(const QString& key) const;
    [[nodiscard]] std::optional<QString> stringForKey(const QString& key) const;
    [[nodiscard]] bool boolForKey(const QString& key) const; ///< False if unset.
    [[nodiscard]] double doubleForKey(const QString& key) const; ///< 0 if unset. Always finite.

    /// Replaces the value. Returns false if it could not be stored (the disk is full, say, or the number is
    /// not finite); the old value then stays. A stored value survives the end of the process, but possibly
    /// not a power cut, as nothing is synced.
    bool setObject(const QByteArray& data, const QString& key) const;
    bool setObject(const QString& string, const QString& key) const;
    bool setObject(bool value, const QString& key) const;
    bool setObject(double value, const QString& key) const;
    bool setObject(const char* value, const QString& key) const = delete; // it would convert to a bool
    /// Removes the value. Returns true if the key was unset already. Returns false on failure, if the suite
    /// cannot be opened, and for a key that can have no value.
    bool removeObject(const QString& key) const;

private:
    explicit UserDefaults(QByteArray folder);

    template <typename Access>
    auto access(Access access) const;
    [[nodiscard]] std::optional<QByteArray> content(const QString& key) const;
    bool replace(const QString& key, QByteArrayView type, QByteArrayView value) const;

    QByteArray folder_; ///< In the file system's encoding. Empty if there can be no such folder.
    bool fallsBackToStandard_ = false;
};

} // namespace quor::platform
