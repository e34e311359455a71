// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Files/FileDescriptor.h"

#include <QByteArray>

#include <fcntl.h>
#include <sys/types.h>

namespace quor::platform {

/// What `TemporaryFile::commit` does with a file that already has the target's name.
enum class TargetFile {
    replace, ///< It is replaced. A symbolic link is replaced itself, not the file that it leads to.
    mustNotExist, ///< The commit fails with `std::errc::file_exists`.
    /// The two files exchange names. The commit fails with `std::errc::no_such_file_or_directory` if no file
    /// has the target's name, and with `invalid_argument` if the file system cannot exchange names.
    exchange,
};

/// What keeps `removeLeftovers` from removing a file that is still being written.
enum class WriteGuard {
    ownLock, ///< The file itself is locked.
    /// The caller has the `FolderLock` of the folder, as all who write there or remove leftovers. This saves
    /// system calls.
    folderLock,
};

/// A new file that is written under a temporary name and takes the name of its target when it is complete.
/// Readers of the target always see either the complete old content or the complete new content, even if the
/// writer is killed.
///
///     TemporaryFile file(path, 0600);
///     file.write(bytes);
///     const std::error_code error = file.commit();
///
/// After the first failure, later calls have no effect, and `commit` returns that failure. Only a failed
/// `exchange` is not kept: the caller can then commit again with another choice.
///
/// The destructor removes a file that was not committed. `removeLeftovers` removes the files of killed
/// writers. A `TemporaryFile` locks its file, so that `removeLeftovers` skips files that are still being
/// written. The temporary name, `.quor-<random>.new` in the target's folder, is hidden and never used twice.
///
/// One thread at a time.
class TemporaryFile final {
public:
    /// Creates the file with the permissions `mode`, with the bits of the process's umask cleared. If that
    /// fails, `error()` says why.
    ///
    /// A relative `target` is resolved against `folder`, an open descriptor that must stay open as long as
    /// this object exists; by default against the working folder.
    TemporaryFile(
        const QByteArray& target, mode_t mode, int folder = AT_FDCWD, WriteGuard guard = WriteGuard::ownLock);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    /// The first failure, if any.
    [[nodiscard]] std::error_code error() const { return error_; }
    /// Borrowed; for `fstat` and the like. Negative if the file could not be created.
    [[nodiscard]] int descriptor() const { return file_.get(); }
    /// The temporary name, with the folders of `target` before it. Empty if the file could not be created,
    /// and after a commit that has renamed it to the target's name.
    [[nodiscard]] const QByteArray& path() const { return path_; }

    void write(QByteArrayView bytes);
    /// Copies the bits to read, write and execute from the target, but not its owner or its special bits. Has
    /// no effect if the target is missing or is not a regular file.
    void copyPermissionsOfTarget();
    /// Waits until the data of the file is on the disk. Without it, a power cut soon after the commit can
    /// leave the target empty. Does not sync the folder: a power cut can still undo the commit.
    void sync();

    /// Gives the file the target's name. With `WriteGuard::folderLock` it closes the file before. Must not be
    /// called again after it has succeeded, unless that was an exchange.
    ///
    /// After an exchange the former target has the temporary name, and the destructor removes it. A second
    /// exchange restores both names. The former target is not locked: nobody must call `removeLeftovers` for
    /// this folder before this object is destroyed.
    [[nodiscard]] std::error_code commit(TargetFile existing = TargetFile::replace);

private:
    [[nodiscard]] bool lock();
    [[nodiscard]] bool close();
    void check(bool succeeded);

    QByteArray target_;
    int folder_;
    WriteGuard guard_;
    QByteArray path_; ///< Empty if no file of this object has the temporary name.
    FileDescriptor file_;
    std::error_code error_;
};

enum class Permissions {
    fixed, ///< The file gets `mode`, with the bits of the process's umask cleared.
    ofTarget, ///< As `TemporaryFile::copyPermissionsOfTarget`. A new file gets `mode`, as with `fixed`.
};

/// Replaces the file `target`, or creates it, by a `TemporaryFile`. On failure, the old file stays as it was.
/// Does not sync.
[[nodiscard]] std::error_code replaceFile(const QByteArray& target, QByteArrayView bytes, mode_t mode,
    Permissions permissions, int folder = AT_FDCWD, WriteGuard guard = WriteGuard::ownLock);

/// Removes the files that killed writers left under temporary names in an open folder. Keeps the files that a
/// `TemporaryFile` of any process or thread is still writing; on a file system without locks, keeps all
/// files. Errors are ignored.
///
/// Reads all names in the folder. If the folder has few files, call it at each write; otherwise call it once,
/// when the folder is opened.
void removeLeftovers(int folder);

} // namespace quor::platform
