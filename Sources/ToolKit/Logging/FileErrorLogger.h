// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Clock.h"

#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <atomic>
#include <optional>

namespace quor::toolkit {

/// The error log: one text file for each day (`2026-11-16.log`, the local date) in a folder that the
/// application chooses at its start, with one line for each message:
///
///     2026-11-16 16:19:24 +0000: JSONHelper.decode:21: decodeError: The data is not valid
///
/// Times in the lines are UTC, the text is UTF-8. The log is off until the application turns it on; turning
/// it off removes all files of the folder. No failure is reported: the line is lost.
///
/// `write` may be called on any thread. Several processes may share a folder: each line is appended in one
/// system call, so lines neither mix nor overwrite each other. The other functions are for one thread, at
/// start. The parameter `now` is for tests.
class FileErrorLogger final {
public:
    FileErrorLogger() = delete;

    /// Sets the folder, makes it and the folders above it where they are missing, and removes items that were
    /// created more than seven days ago. Without a folder, or with an empty path, lines are dropped.
    static void setup(
        const std::optional<QString>& logDirectory, platform::Date now = platform::SystemClock().now());

    /// `nullopt` without a folder. Any thread.
    [[nodiscard]] static std::optional<QString> logDirectory();

    /// False at start. Any thread.
    [[nodiscard]] static bool isEnabled() { return isEnabled_.load(std::memory_order_relaxed); }

    /// False also empties the folder, as `removeLogs(0)` does.
    static void setEnabled(bool isEnabled);

    /// Appends the message to today's file, whether the log is enabled or not. Never makes the folder: after
    /// it was removed, lines are lost until the next `setup`.
    static void write(QStringView message, platform::Date now = platform::SystemClock().now());
    /// The same for text in UTF-8, which saves the conversion.
    static void write(QByteArrayView message, platform::Date now = platform::SystemClock().now());

    /// Removes each visible item of the folder that was created more than `olderThan` seconds ago, with
    /// any name: files, links, and empty folders. On a file system without creation times, the time of the
    /// last change is used, which for a log file is at most a day later.
    static void removeLogs(double olderThan, platform::Date now = platform::SystemClock().now());

private:
    static inline constinit std::atomic<bool> isEnabled_ = false;
};

} // namespace quor::toolkit
