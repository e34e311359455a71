// SPDX-License-Identifier: MIT
#include "ToolKit/Logging/FileErrorLogger.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cmath>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace quor::toolkit {

namespace {

constexpr double sevenDays = 604800;

struct Directory {
    QString path; // empty for none
    std::string nativePath;
    const Directory* replaced;
};

// Read by every thread that logs, without a lock. What `setup` replaces is kept, since some thread
// may be writing by it just then; an application has one, seldom two.
constinit std::atomic<const Directory*> directory = nullptr;

std::string nativeDirectory()
{
    const auto* const current = directory.load(std::memory_order_acquire);
    return current ? current->nativePath : std::string();
}

// Digits by hand: printing both dates by a format costs a tenth of the whole line.
void appendTwoDigits(std::string& text, int value)
{
    text += static_cast<char>('0' + value / 10 % 10);
    text += static_cast<char>('0' + value % 10);
}

void appendDate(std::string& text, int year, int month, int day)
{
    appendTwoDigits(text, year / 100);
    appendTwoDigits(text, year);
    text += '-';
    appendTwoDigits(text, month);
    text += '-';
    appendTwoDigits(text, day);
}

// localtime_r alone keeps the zone that the process started in. Asking costs half as much as a line,
// so it is done once a second at most.
void followZone(std::time_t now)
{
    static constinit std::atomic<std::time_t> asked = 0;
    if (asked.exchange(now, std::memory_order_relaxed) != now)
        tzset();
}

std::string fileName(platform::Date now)
{
    const auto seconds = static_cast<std::time_t>(std::floor(platform::secondsSince1970(now)));
    followZone(seconds);
    std::tm local{};
    localtime_r(&seconds, &local);
    std::string text;
    appendDate(text, local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
    return text + ".log";
}

std::string timestamp(platform::Date now)
{
    const auto seconds = static_cast<std::time_t>(std::floor(platform::secondsSince1970(now)));
    std::tm utc{};
    gmtime_r(&seconds, &utc);
    std::string text;
    appendDate(text, utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday);
    char before = ' ';
    for (const int field : {utc.tm_hour, utc.tm_min, utc.tm_sec}) {
        text += std::exchange(before, ':');
        appendTwoDigits(text, field);
    }
    return text + " +0000";
}

// One append of everything, so that lines of other threads and processes stay whole beside it.
void append(const std::string& path, const std::string& line)
{
    const int file = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
    if (file < 0)
        return;
    [[maybe_unused]] const auto written = ::write(file, line.data(), line.size());
    ::close(file);
}

std::optional<double> creationDate(const std::filesystem::path& path)
{
    struct statx status { };
    const auto wanted = STATX_BTIME | STATX_MTIME;
    if (::statx(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW, wanted, &status) != 0)
        return std::nullopt;
    const auto& moment = (status.stx_mask & STATX_BTIME) != 0 ? status.stx_btime : status.stx_mtime;
    return static_cast<double>(moment.tv_sec) + moment.tv_nsec / 1e9;
}

bool isVisible(const std::filesystem::path& path)
{
    return !path.filename().string().starts_with('.');
}

} // namespace

void FileErrorLogger::setup(const std::optional<QString>& logDirectory, platform::Date now)
{
    const QString path = logDirectory.value_or(QString());
    directory.store(
        new Directory{path, QFile::encodeName(path).toStdString(), directory.load(std::memory_order_relaxed)},
        std::memory_order_release);
    if (!path.isEmpty() && !QFileInfo::exists(path))
        QDir().mkpath(path);
    removeLogs(sevenDays, now);
}

std::optional<QString> FileErrorLogger::logDirectory()
{
    const auto* const current = directory.load(std::memory_order_acquire);
    if (!current || current->path.isEmpty())
        return std::nullopt;
    return current->path;
}

void FileErrorLogger::setEnabled(bool isEnabled)
{
    isEnabled_.store(isEnabled, std::memory_order_relaxed);
    if (!isEnabled)
        removeLogs(0);
}

void FileErrorLogger::write(QStringView message, platform::Date now)
{
    const std::string folder = nativeDirectory();
    if (folder.empty())
        return;
    const QByteArray text = message.toUtf8();
    std::string line = timestamp(now) + ": ";
    line.append(text.constData(), static_cast<std::size_t>(text.size()));
    line += '\n';
    append(folder + '/' + fileName(now), line);
}

void FileErrorLogger::removeLogs(double olderThan, platform::Date now)
{
    const std::string folder = nativeDirectory();
    if (folder.empty())
        return;
    std::error_code error;
    auto item = std::filesystem::directory_iterator(folder, error);
    for (; !error && item != std::filesystem::directory_iterator(); item.increment(error)) {
        const auto created = isVisible(item->path()) ? creationDate(item->path()) : std::nullopt;
        std::error_code refused; // one that stays does not end the walk
        if (created && *created - platform::secondsSince1970(now) < -olderThan)
            std::filesystem::remove(item->path(), refused);
    }
}

} // namespace quor::toolkit
