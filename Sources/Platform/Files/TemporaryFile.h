// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Files/FileDescriptor.h"

#include <QByteArray>

#include <fcntl.h>
#include <sys/types.h>

namespace quor::platform {

/// What `TemporaryFile::commit` does with a file that already has the target's name.
enum class TargetFile {
    replace, ///< It goes; so does a symbolic link, not the file that it leads to.
    mustNotExist, ///< The commit fails with `std::errc::file_exists`.
    exchange, ///< The two files exchange their names. Not every file system can: `invalid_argument`.
};

/// A new file that is written under a temporary name and takes the name of its target when it is complete,
/// so that readers find the old content or the new one, whole, whenever the writer dies.
///
///     TemporaryFile file(path, 0600);
///     file.write(bytes);
///     const std::error_code error = file.commit();
///
/// After the first failure, later calls have no effect, and `commit` returns that failure. A file that was
/// not committed is removed with this object; one whose writer was killed is removed by `removeLeftovers`,
/// which a lock on each file under a temporary name keeps from removing files that are being written. The
/// temporary name, `.quor-<random>.new` in the target's folder, is hidden and never used twice.
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

    /// Gives the file the target's name. After an exchange the temporary name belongs to the former
    /// target, which is removed with this object; a second exchange takes everything back. A former target
    /// is not locked: while it can still be needed, no other process may remove leftovers in the folder.
    [[nodiscard]] std::error_code commit(TargetFile existing = TargetFile::replace);

private:
    [[nodiscard]] bool lock();
    void check(bool succeeded);

    QByteArray target_;
    int folder_;
    QByteArray path_; ///< Empty when nothing of ours has the temporary name.
    FileDescriptor file_;
    std::error_code error_;
};

enum class Permissions {
    fixed, ///< Those of the mode that is given.
    ofTarget, ///< Those of the file that is replaced; those of the mode for a new file.
};

/// Replaces the file, or creates it. On failure, the old file stays as it was. Never syncs.
[[nodiscard]] std::error_code replaceFile(const QByteArray& target, QByteArrayView bytes, mode_t mode,
    Permissions permissions, int folder = AT_FDCWD);

/// Removes the files that killed writers left under temporary names in an open folder. Files that a
/// `TemporaryFile` of any process or thread is still writing stay. On a file system without locks, all
/// stay. Costs one pass over the names of the folder: to be called at each write to a folder of few files,
/// else when a folder is opened.
void removeLeftovers(int folder);

} // namespace quor::platform
