// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>
#include <QUrl>

#include <optional>

namespace quor::toolkit {

/// A folder whose files can be reached by paths from others, which may mean no good: no path leads outside.
/// Whatever holds "..", a NUL character or half of a surrogate pair is refused; an absolute path, too, starts
/// in the folder. Symbolic links are followed as long as they stay inside, also while somebody changes them
/// meanwhile: the kernel resolves the path below the folder's descriptor. Where it cannot, no link is
/// followed at all.
///
/// A folder that is gone, or whose URL is not of a local one, holds nothing. Stateless; any thread.
class PluginFolder final {
public:
    enum class Resolution { byKernel, byWalk };

    /// `byWalk` is what serves where the kernel cannot.
    explicit PluginFolder(const QUrl& baseURL, Resolution resolution = Resolution::byKernel);

    /// Whether anything is there, the folder itself included; false of a link that leads nowhere or outside.
    [[nodiscard]] bool exists(const QString& path) const;
    /// None for what is missing, unreadable, no regular file or longer than 256 MiB.
    [[nodiscard]] std::optional<QByteArray> contents(const QString& path) const;
    /// Replaces the file whole, by renaming a new one over it, which keeps its mode: readers see the old or
    /// the new content, and a full disk leaves the old. A link is replaced itself. Makes no folders.
    [[nodiscard]] bool write(const QByteArray& data, const QString& path) const;
    /// Removes a file, or a link itself; never a folder.
    void remove(const QString& path) const;

private:
    [[nodiscard]] int openBelow(int base, const QByteArrayList& components, int flags) const;
    /// Opens the folder that the last of the components lies in; -1 if there is none.
    [[nodiscard]] int openParent(const QByteArrayList& components) const;
    [[nodiscard]] int openBase() const;

    QByteArray base_; ///< empty for none
    Resolution resolution_;
};

} // namespace quor::toolkit
