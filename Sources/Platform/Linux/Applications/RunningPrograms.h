// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Files/FileDescriptor.h"
#include "Platform/Services/ApplicationInstaller.h"

#include <vector>

namespace quor::platform {

/// The processes that run the programs of a bundle, other than this process. They are held, so that none of
/// them is mistaken for another process that gets its number. Not installed. Any thread.
class RunningPrograms final {
public:
    /// Finds them. Those of other users are found only by their program, not by an image that they come from.
    explicit RunningPrograms(const ApplicationBundle& bundle);

    [[nodiscard]] bool isEmpty() const { return processes_.empty(); }

    /// Ends them without asking, and waits at most 5 seconds. Returns whether all have ended.
    [[nodiscard]] bool end() const;

private:
    std::vector<FileDescriptor> processes_;
};

} // namespace quor::platform
