// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace quor::platform {

/// The files of one preferences suite: whole contents by key, without regard to what they mean.
///
/// A content is replaced by renaming a finished file over the old one, so a reader sees either, whole,
/// whenever the writer dies. Nothing is locked, cached or synced. Any thread.
class PreferenceFolder final {
public:
    /// `path` in the file system's encoding; an empty one can never be opened.
    explicit PreferenceFolder(QByteArray path);

    /// Makes the folder and those above it where missing, for the user alone. False if it is not a
    /// folder then whose files can be reached.
    [[nodiscard]] bool open() const;

    /// None if the key has no regular file that can be read whole.
    [[nodiscard]] std::optional<QByteArray> read(const QString& key) const;

    /// Stores `head` and `body`, one behind the other, making the folder where missing. False leaves
    /// what was there.
    [[nodiscard]] bool replace(const QString& key, QByteArrayView head, QByteArrayView body) const;

    /// True if the folder can be opened and the key has no file now.
    [[nodiscard]] bool remove(const QString& key) const;

private:
    [[nodiscard]] QByteArray pathOf(const QString& key) const; ///< empty if there can be no file
    [[nodiscard]] int makeTemporary(QByteArray& path) const;
    void removeAbandoned() const;

    QByteArray path_;
};

} // namespace quor::platform
