// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Files/FileDescriptor.h"

#include <QByteArray>

#include <fcntl.h>
#include <sys/types.h>

namespace quor::platform {

/// What `TemporaryFile::commit` does with a file that already has the target's name.
enum class TargetFile {
    replace, ///< It is replaced. Of a symbolic link, the link is replaced, not its target.
    mustNotExist, ///< The commit fails with `std::errc::file_exists`.
    exchange, ///< They exchange names. Fails with `invalid_argument` if the file system cannot.
};

/// A new file that is written under a temporary name and takes the name of its target when it is complete.
/// Readers find either all of the old content or all of the new one, even if the writer is killed.
///
///     TemporaryFile file(path, 0600);
///     file.write(bytes);
///     const std::error_code error = file.commit();
///
/// After the first failure, later calls have no effect, and `commit` returns that failure. A file that was
/// not committed is removed with this object. If the writer was killed, `removeLeftovers` removes the file;
/// it skips files that are still being written, because their writers hold a lock on them. The temporary
/// name, `.quor-<random>.new` in the target's folder, is hidden and never used twice.
///
/// One thread at a time.
class TemporaryFile final {
public:
    /// Creates the file with permissions `mode` less the process's mask. A relative `target` starts in
    /// `folder`, an open descriptor that must stay open, or in the working folder without one.
    TemporaryFile(const QByteArray& target, mode_t mode, int folder = AT_FDCWD);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    /// The first failure, if any.
    [[nodiscard]] std::error_code error() const { return error_; }
    /// Borrowed; for `fstat` and the like. Negative if the file could not be created.
    [[nodiscard]] int descriptor() const { return file_.get(); }
    /// The temporary name, with the path of `target` before it.
    [[nodiscard]] const QByteArray& path() const { return path_; }

    void write(QByteArrayView bytes);
    /// Gives the file the permissions of the target, where that is a regular file.
    void copyPermissionsOfTarget();
    /// Waits until the content is on the disk. Without it, a power cut soon after the commit can leave the
    /// target empty.
    void sync();

    /// Gives the file the target's name. After an exchange the temporary name belongs to the former target,
    /// which is removed with this object; a second exchange undoes the first. The former target is not
    /// locked: while it can still be needed, no other process must call `removeLeftovers` for the folder.
    [[nodiscard]] std::error_code commit(TargetFile existing = TargetFile::replace);

private:
    [[nodiscard]] bool lock();
    void check(bool succeeded);

    QByteArray target_;
    int folder_;
    QByteArray path_; ///< Empty if no file of this object has the temporary name.
    FileDescriptor file_;
    std::error_code error_;
};

enum class Permissions {
    fixed, ///< The file gets `mode`.
    ofTarget, ///< The file keeps the permissions of the one it replaces. A new file gets `mode`.
};

/// Replaces the file, or creates it. On failure, the old file stays as it was. Never syncs.
[[nodiscard]] std::error_code replaceFile(const QByteArray& target, QByteArrayView bytes, mode_t mode,
    Permissions permissions, int folder = AT_FDCWD);

/// Removes the files that killed writers left under temporary names in an open folder. Files that a
/// `TemporaryFile` of any process or thread is still writing stay. On a file system without locks, all stay.
/// Costs one pass over the names of the folder: call it at each write if the folder has few files, else when
/// the folder is opened.
void removeLeftovers(int folder);

} // namespace quor::platform
