// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Files/FolderWatch.h"
#include "ToolKit/Calendar/Items/EventStoreError.h"

#include <QByteArray>

#include <compare>
#include <ctime>
#include <optional>
#include <vector>

#include <sys/types.h>

namespace quor::toolkit {

/// Above this a calendar file is not read.
inline constexpr qint64 largestItemFile = qint64(64) << 20;

/// The names of the folders in a folder, sorted; neither hidden ones nor links.
[[nodiscard]] std::vector<QByteArray> subfolders(const QByteArray& folder);

/// Tells one state of a file from another.
struct FileIdentity {
    ino_t inode = 0;
    off_t size = 0;
    std::int64_t modified = 0; ///< nanoseconds

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

struct FileContent {
    FileIdentity identity;
    std::optional<QByteArray> bytes; ///< none where it is too large or cannot be read
};

/// A source's or calendar's folder, held open: what is done through it stays in that folder, whatever
/// becomes of its name, and no link is followed from it.
class CalendarDirectory final {
public:
    CalendarDirectory(const QByteArray& root, const CalendarPath& path);
    /// Makes the folders that are missing.
    [[nodiscard]] static std::optional<EventStoreError> make(
        const QByteArray& root, const CalendarPath& path);
    /// Removes the files that calendars keep, and the folder where nothing else is in it.
    [[nodiscard]] static std::optional<EventStoreError> removeCalendar(
        const QByteArray& root, const CalendarPath& path);
    ~CalendarDirectory();
    CalendarDirectory(const CalendarDirectory&) = delete;
    CalendarDirectory& operator=(const CalendarDirectory&) = delete;

    [[nodiscard]] bool isOpen() const { return folder_ >= 0; }
    [[nodiscard]] bool isWritable() const;
    /// Keeps other stores from writing here until this object ends.
    void lock() const;

    /// The visible regular files.
    [[nodiscard]] std::vector<QByteArray> names() const;
    /// None where there is no such regular file.
    [[nodiscard]] std::optional<FileIdentity> identity(const QByteArray& name) const;
    [[nodiscard]] std::optional<FileContent> read(
        const QByteArray& name, qint64 limit = largestItemFile) const;

    /// Replaces that state of the file, or makes the file (`expected` none). A `conflict` where it has
    /// another state, in which it stays. The new state on success.
    [[nodiscard]] std::optional<EventStoreError> write(const QByteArray& name, const QByteArray& bytes,
        const std::optional<FileIdentity>& expected, FileIdentity* written = nullptr) const;
    [[nodiscard]] std::optional<EventStoreError> remove(
        const QByteArray& name, const FileIdentity& expected) const;

private:
    [[nodiscard]] std::optional<EventStoreError> put(const QByteArray& temporary, const QByteArray& name,
        const std::optional<FileIdentity>& expected) const;

    int folder_ = -1;
};

/// The error that `errno` stands for.
[[nodiscard]] EventStoreError systemError(int number, const QByteArray& name);

} // namespace quor::toolkit
