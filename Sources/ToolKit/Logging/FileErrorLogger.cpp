// SPDX-License-Identifier: MIT
#include "ToolKit/Logging/FileErrorLogger.h"

#include "Platform/Files/FileContents.h"
#include "Platform/Files/Folder.h"

#include <QByteArray>
#include <QFile>

#include <array>
#include <cmath>
#include <ctime>
#include <filesystem>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace quor::toolkit {

namespace {

constexpr double sevenDays = 604800;

/// The folder of the log. Reading its path takes no lock, since any thread may log at any moment; so a path
/// stays in memory once it was set, each distinct one once. Never destroyed, since threads may log until the
/// process ends.
class LogFolder {
public:
    static LogFolder& shared()
    {
        static auto* const folder = new LogFolder;
        return *folder;
    }

    void setPath(const QString& path)
    {
        const std::lock_guard lock(mutex_);
        current_.store(
            &*paths_.insert(QFile::encodeName(path).toStdString()).first, std::memory_order_release);
    }
    /// In the file system's encoding. Empty if there is no folder.
    [[nodiscard]] std::string_view nativePath() const
    {
        const auto* const path = current_.load(std::memory_order_acquire);
        return path ? std::string_view(*path) : std::string_view();
    }

private:
    std::mutex mutex_; ///< Guards `paths_`.
    std::set<std::string> paths_; ///< A set keeps its elements where they are.
    std::atomic<const std::string*> current_ = nullptr;
};

// Without a format: formatting both dates would take a tenth of the time of a whole line.
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

// localtime_r alone stays with the zone in which the process started. tzset takes half as long as writing a
// line, so it is called once a second at most.
void updateZone(std::time_t now)
{
    static constinit std::atomic<std::time_t> lastUpdate = 0;
    if (lastUpdate.exchange(now, std::memory_order_relaxed) != now)
        tzset();
}

std::string fileName(std::time_t seconds)
{
    updateZone(seconds);
    std::tm local{};
    localtime_r(&seconds, &local);
    std::string text;
    appendDate(text, local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
    return text + ".log";
}

std::string timestamp(std::time_t seconds)
{
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

/// What all lines of one second have in common. Without a destructor, since threads may log until they end.
struct SecondTexts {
    bool isValid = false;
    std::time_t seconds = 0;
    std::array<char, std::string_view("2026-11-16.log").size()> fileName{};
    std::array<char, std::string_view("2026-11-16 16:19:24 +0000").size()> timestamp{};
};

// Kept for the next line, since lines often come in bursts, and this takes a tenth of the time of a line.
const SecondTexts& textsOf(platform::Date now)
{
    static constinit thread_local SecondTexts texts;
    const auto seconds = static_cast<std::time_t>(std::floor(platform::secondsSince1970(now)));
    if (!texts.isValid || texts.seconds != seconds) {
        texts.isValid = true;
        texts.seconds = seconds;
        fileName(seconds).copy(texts.fileName.data(), texts.fileName.size());
        timestamp(seconds).copy(texts.timestamp.data(), texts.timestamp.size());
    }
    return texts;
}

// In one system call, so that lines of other threads and processes do not come between.
void append(const std::string& path, const std::string& line)
{
    const platform::FileDescriptor file(
        ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600));
    if (file)
        (void)platform::writeWhole(file.get(), QByteArrayView(line.data(), qsizetype(line.size())));
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
    constexpr mode_t mode = 0777; // the bits of the process's umask are cleared
    const QString path = logDirectory.value_or(QString());
    LogFolder::shared().setPath(path);
    if (!path.isEmpty())
        (void)platform::makeFolder(QFile::encodeName(path), mode);
    removeLogs(sevenDays, now);
}

std::optional<QString> FileErrorLogger::logDirectory()
{
    const auto path = LogFolder::shared().nativePath();
    if (path.empty())
        return std::nullopt;
    return QFile::decodeName(QByteArray(path.data(), qsizetype(path.size())));
}

void FileErrorLogger::setEnabled(bool isEnabled)
{
    isEnabled_.store(isEnabled, std::memory_order_relaxed);
    if (!isEnabled)
        removeLogs(0);
}

void FileErrorLogger::write(QStringView message, platform::Date now)
{
    write(QByteArrayView(message.toUtf8()), now);
}

void FileErrorLogger::write(QByteArrayView message, platform::Date now)
{
    const std::string_view folder = LogFolder::shared().nativePath();
    if (folder.empty())
        return;
    const SecondTexts& texts = textsOf(now);
    std::string path;
    path.reserve(folder.size() + 1 + texts.fileName.size());
    path.append(folder) += '/';
    path.append(texts.fileName.data(), texts.fileName.size());
    std::string line;
    line.reserve(texts.timestamp.size() + static_cast<std::size_t>(message.size()) + 3);
    line.append(texts.timestamp.data(), texts.timestamp.size()) += ": ";
    line.append(message.data(), static_cast<std::size_t>(message.size())) += '\n';
    append(path, line);
}

void FileErrorLogger::removeLogs(double olderThan, platform::Date now)
{
    const std::string_view folder = LogFolder::shared().nativePath();
    if (folder.empty())
        return;
    std::error_code error;
    auto item = std::filesystem::directory_iterator(folder, error);
    for (; !error && item != std::filesystem::directory_iterator(); item.increment(error)) {
        const auto created = isVisible(item->path()) ? creationDate(item->path()) : std::nullopt;
        std::error_code ignored; // the others are removed all the same
        if (created && *created - platform::secondsSince1970(now) < -olderThan)
            std::filesystem::remove(item->path(), ignored);
    }
}

} // namespace quor::toolkit
