// SPDX-License-Identifier: MIT
#pragma once

#include <cerrno>
#include <system_error>
#include <utility>

#include <unistd.h>

namespace quor::platform {

/// An open file or folder, which is closed when its owner ends. Can be moved, not copied.
class FileDescriptor final {
public:
    FileDescriptor() = default;
    /// Takes over an open descriptor. Any negative number means that nothing is open.
    explicit FileDescriptor(int descriptor)
        : descriptor_(descriptor)
    {
    }
    FileDescriptor(FileDescriptor&& other) noexcept
        : descriptor_(other.release())
    {
    }
    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }
    ~FileDescriptor()
    {
        if (descriptor_ >= 0)
            ::close(descriptor_);
    }

    [[nodiscard]] explicit operator bool() const { return descriptor_ >= 0; } ///< Whether something is open.
    [[nodiscard]] int get() const { return descriptor_; } ///< Borrowed; negative if nothing is open.
    /// Hands the descriptor over to the caller, who closes it.
    [[nodiscard]] int release() { return std::exchange(descriptor_, -1); }

private:
    int descriptor_ = -1;
};

/// The error that the last system call of this thread left in `errno`.
[[nodiscard]] inline std::error_code lastSystemError()
{
    return {errno, std::generic_category()};
}

} // namespace quor::platform
