// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <optional>

namespace quor::gallery {

struct Page;

/// The exit codes of the program.
enum ExitCode : int {
    succeeded = 0,
    failed = 1, ///< there is no display, or a picture could not be written
    misused = 2, ///< the command line was wrong
};

/// What the command line asks for.
struct Options {
    std::optional<QString> pictures; ///< the folder for pictures; without it the window opens
    const Page* page = nullptr; ///< the page that is shown first, or the only one in pictures
};

/// Reads the arguments, of which the first one is the program's own name. Returns what they ask for, or the
/// exit code if the program has to end: after the help, or after a message about a mistake.
struct ParsedCommandLine {
    Options options;
    std::optional<ExitCode> end;
};
[[nodiscard]] ParsedCommandLine parseCommandLine(const QStringList& arguments);

/// The environment variable with the factor by which everything is enlarged.
inline constexpr auto scaleVariable = "QT_SCALE_FACTOR";
/// Returns the factor, or `nullopt` if it is not set, not a number, or out of the range that fits a screen.
[[nodiscard]] std::optional<double> scaleFactor();
/// Returns the exit code if the program has to end, after a message about a factor that cannot be used. To be
/// called before there is a QApplication, which trusts the factor.
[[nodiscard]] std::optional<ExitCode> checkScale();

/// Writes "quor-form-gallery: " and the message to standard error. Returns `code`.
ExitCode complain(ExitCode code, const QString& message);

} // namespace quor::gallery
