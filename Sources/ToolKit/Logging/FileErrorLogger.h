// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Clock.h"

#include <QString>
#include <QStringView>

#include <atomic>
#include <optional>

namespace quor::toolkit {

/// The error log: one text file a day (`2026-11-16.log`, the local date) in a folder that the
/// application names at start, a line for each message:
///
///     2026-11-16 16:19:24 +0000: JSONHelper.decode:21: decodeError: The data is not valid
///
/// Times in the lines are UTC, the text is UTF-8. Off until the application turns it on; turning it
/// off empties the folder. A failure of any kind loses the line and is never told. `write` may be
/// called on any thread, and several processes may share a folder: each line is one append, so none
/// tears or overwrites another. The rest is for one thread, at start. `now` is for tests.
class FileErrorLogger final {
public:
    FileErrorLogger() = delete;

    /// Takes `logDirectory` (none, or an empty path: lines are dropped), creates it with the folders
    /// above it where nothing is there, and removes what is older than seven days.
    static void setup(
        const std::optional<QString>& logDirectory, platform::Date now = platform::SystemClock().now());

    /// None before `setup`. Any thread.
    [[nodiscard]] static std::optional<QString> logDirectory();

    /// False at start. Any thread.
    [[nodiscard]] static bool isEnabled() { return isEnabled_.load(std::memory_order_relaxed); }

    /// False also removes all that is in the folder, as `removeLogs(0)`.
    static void setEnabled(bool isEnabled);

    /// Appends the message as it is, enabled or not, to the file of the local date, in the user's
    /// zone of that second. The folder is never created here: where it is gone, lines are lost until the
    /// next `setup`.
    static void write(QStringView message, platform::Date now = platform::SystemClock().now());

    /// Removes every visible item of the folder, whatever its name, that was created longer than
    /// `olderThan` seconds ago: files, links, and folders that are empty. Later changes of an item do
    /// not count, but where the file system keeps no creation time: there its last change must serve,
    /// which for a day's log is at most a day later.
    static void removeLogs(double olderThan, platform::Date now = platform::SystemClock().now());

private:
    static inline constinit std::atomic<bool> isEnabled_ = false;
};

} // namespace quor::toolkit
