// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Data/Lists/FileManager.h"
#include "ToolKit/Data/Lists/PersistableListContainer.h"
#include "ToolKit/Data/Lists/StorageKey.h"
#include "ToolKit/Data/SynchronizedAccess.h"

#include <QFileInfo>
#include <QJsonValue>
#include <QSet>
#include <QString>

#include <chrono>
#include <limits>
#include <memory>
#include <mutex>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace quor::toolkit {

/// A map from text keys to elements, kept on disk as many small JSON files in one folder: a change rewrites
/// only the file that its key belongs to, and a look-up reads only that.
///
///     PersistableList<Task> tasks(folder);      // Task has JSONFields
///     tasks.set(task, task.identifier);
///     tasks.flush();
///
/// `Element` is any type that can be copied and has a `JSONCoding`. `storageKey` defines which file a key
/// belongs to; nothing outside the folder is read or written.
///
/// Changes are made in memory, on a private queue, and only `flush` writes them: changes after the last flush
/// are lost when the list is destroyed. One thing is not deferred: `removeValue` removes the file at once if
/// the file has no keys left. The destructor waits for all calls that were made, flushes included.
///
/// Several lists, of any process, can use one folder. While one of them writes, it locks the folder, and the
/// others wait. A flush writes the changes that were made here to the files as they are then, so lists that
/// change different keys lose nothing of each other; of two changes of one key, the later flush counts. A
/// file that is in memory is not read again before the flush, so changes of others are seen after it. If the
/// file is gone then, or is damaged, the flush writes it again with all the elements in memory, also those
/// that another list has removed with the file.
///
/// A flush that has waited for `lockTimeout` writes nothing, and its changes stay in memory for the next one.
/// After a wait in vain, `removeValue` only tries, until a lock succeeds, and leaves the file to the flush.
/// On a file system without locks nobody waits.
///
/// Files are replaced atomically: whenever the process dies, a file has its old content or its new content.
/// The data is not synced, so a power cut can damage a file that was written shortly before.
///
/// Failures are not reported. A file that is not an object of elements reads as an empty one. Reading one key
/// of such a file and then flushing removes the file, or replaces it if keys were set; `removeValue` of one
/// of its keys removes it at once. A file that cannot be read at all, for lack of permission for instance,
/// stays as it is. Changes that a flush cannot write stay in memory for the next flush.
///
/// Symbolic links, folders and names that begin with a dot are not read. But if a link has the name of a
/// key's file, a flush after any use of the key replaces or removes the link.
///
/// Any thread; the calls of one thread take effect in their order. A key that is empty or no valid Unicode
/// (half of a surrogate pair) has no element, and setting or removing it has no effect.
template <typename Element = QJsonValue>
class PersistableList final {
public:
    using Entry = ListEntry<Element>; ///< with the members `key` and `value`

    /// `storageURL` is the path of the folder, which a flush makes if it is missing and any key was used. If
    /// the path is absent or empty, the list is in memory only, and `flush` has no effect. The constructor
    /// touches no file. `lockTimeout` is how long a change on the disk waits for other lists that write in
    /// the folder.
    explicit PersistableList(const std::optional<QString>& storageURL,
        std::chrono::milliseconds lockTimeout = std::chrono::seconds(5))
        : access_(storageURL, lockTimeout)
    {
    }

    // These wait until the changes of earlier calls are made, and may read files.

    /// Returns whether the folder has no visible file and no file is in memory. Any use of a key loads its
    /// file into memory, even if there is no such file: after `value` of a missing key the list is not empty.
    /// A file leaves the memory when a flush has written or removed it, when `removeValue` leaves it without
    /// keys, and by `clear`.
    [[nodiscard]] bool isEmpty() const
    {
        return access_.sync(
            [](State& state) { return state.containers.empty() && state.fileNames().isEmpty(); });
    }
    /// Returns `nullopt` if the key has no element.
    [[nodiscard]] std::optional<Element> value(const QString& key) const
    {
        if (!isKey(key))
            return std::nullopt;
        return access_.sync([&](State& state) { return state.container(storageKey(key)).value(key); });
    }

    /// Returns at most `limit` keys, in no particular order. Loads each file that it takes keys from.
    [[nodiscard]] std::vector<QString> keys(qint64 limit) const
    {
        return collect<QString>(
            limit, [](const Container& container, qint64 rest) { return container.keys(rest); });
    }
    [[nodiscard]] std::vector<QString> allKeys() const { return keys(std::numeric_limits<qint64>::max()); }
    /// Returns the same keys with their elements.
    [[nodiscard]] std::vector<Entry> entries(qint64 limit) const
    {
        return collect<Entry>(
            limit, [](const Container& container, qint64 rest) { return container.entries(rest); });
    }

    // These return at once; the change is made later.

    void set(Element value, const QString& key) { change({key, std::move(value)}); }
    void removeValue(const QString& key) { change({key, std::nullopt}); }

    /// Writes each file that was loaded, also if it is unchanged, and frees its memory. A file without keys
    /// is removed. The first flush also removes files that killed processes left in the folder.
    void flush()
    {
        submit([](State& state) { state.flush(); });
    }

    /// Removes all elements, and the folder with everything in it, also what the list does not read. If the
    /// folder is a symbolic link, removes the visible files and the link.
    void clear()
    {
        submit([](State& state) { state.clear(); });
    }

private:
    using Container = PersistableListContainer<Element>;

    struct Change {
        QString key;
        std::optional<Element> value; ///< `nullopt` removes the key.
    };
    using Changes = std::vector<Change>;

    /// The part that only the queue touches.
    struct State {
        State(const std::optional<QString>& url, std::chrono::milliseconds timeout)
            : lockTimeout(timeout)
        {
            if (url && !url->isEmpty())
                storageURL = QFileInfo(*url).absoluteFilePath();
        }

        [[nodiscard]] QStringList fileNames() const
        {
            return storageURL ? fileManager.visibleFileNames(*storageURL) : QStringList();
        }

        Container& container(const QString& name)
        {
            auto found = containers.find(name);
            if (found == containers.end()) {
                std::optional<QString> url;
                if (storageURL)
                    url = *storageURL + QLatin1Char('/') + name;
                found = containers.try_emplace(name, std::move(url), fileManager).first;
            }
            found->second.load();
            return found->second;
        }

        // The changes of each file together, so that they find its memory in the processor's cache.
        void apply(Changes& changes)
        {
            std::unordered_map<QString, std::vector<Change*>> byFile;
            for (Change& each : changes)
                byFile[storageKey(each.key)].push_back(&each);
            for (const auto& [name, ofFile] : byFile)
                apply(name, ofFile);
        }

        void apply(const QString& name, const std::vector<Change*>& changes)
        {
            Container& file = container(name);
            file.reserve(qsizetype(changes.size()));
            bool isGone = false;
            for (Change* const each : changes) {
                isGone = !each->value && remove(file, each->key);
                if (each->value)
                    file.setValue(*std::move(each->value), each->key);
            }
            if (isGone)
                containers.erase(name);
        }

        /// Returns whether neither memory nor the disk has anything of the file any more.
        bool remove(Container& file, const QString& key)
        {
            file.removeValue(key);
            if (!file.isEmpty() || !file.hasFile())
                return file.isEmpty();
            // Each of many removals would wait in vain otherwise, one after the other.
            const auto timeout = hasWaitedInVain ? std::chrono::milliseconds(0) : lockTimeout;
            const auto lock = fileManager.lockDirectory(*storageURL, timeout);
            hasWaitedInVain = !lock;
            return lock && file.deleteIfEmpty();
        }

        std::optional<platform::FolderLock> lockFolder()
        {
            auto lock = fileManager.lockDirectory(*storageURL, lockTimeout);
            if (!lock && !fileManager.itemExists(*storageURL) && fileManager.createDirectory(*storageURL))
                lock = fileManager.lockDirectory(*storageURL, lockTimeout);
            hasWaitedInVain = !lock;
            return lock;
        }

        void flush()
        {
            if (!storageURL || containers.empty())
                return;
            const auto lock = lockFolder();
            if (!lock)
                return;
            if (!std::exchange(areLeftoversRemoved, true))
                fileManager.removeLeftovers(*lock);
            for (auto each = containers.begin(); each != containers.end();)
                each = each->second.save() ? containers.erase(each) : std::next(each);
        }

        void clear()
        {
            const auto lock = storageURL ? fileManager.lockDirectory(*storageURL, lockTimeout) : std::nullopt;
            // One by one too: if the folder is a link, its removal would only remove the link.
            for (const QString& name : fileNames())
                container(name);
            for (auto& [name, each] : containers)
                each.deleteAll();
            containers.clear();
            if (storageURL && fileManager.itemExists(*storageURL))
                fileManager.removeDirectory(*storageURL);
        }

        FileManager fileManager;
        std::unordered_map<QString, Container> containers; ///< by storage key
        std::optional<QString> storageURL;
        std::chrono::milliseconds lockTimeout;
        bool areLeftoversRemoved = false;
        bool hasWaitedInVain = false; ///< by the latest attempt to lock the folder
    };

    // A key that is no valid Unicode would be written as another key.
    static bool isKey(const QString& key) { return !key.isEmpty() && key.isValidUtf16(); }

    // Consecutive changes share one block of the queue until it runs, since a block costs more than a change.
    void change(Change change)
    {
        if (!isKey(change.key))
            return;
        const std::lock_guard lock(mutex_);
        if (!changes_) {
            changes_ = std::make_shared<Changes>();
            access_.async([this, changes = changes_](State& state) {
                close(changes);
                state.apply(*changes);
            });
        }
        changes_->push_back(std::move(change));
    }

    /// Prevents that changes are added to a block that runs now.
    void close(const std::shared_ptr<Changes>& changes)
    {
        const std::lock_guard lock(mutex_);
        if (changes_ == changes)
            changes_ = nullptr;
    }

    template <typename Block>
    void submit(Block block)
    {
        const std::lock_guard lock(mutex_);
        changes_ = nullptr; // later changes must not run before this block
        access_.async(std::move(block));
    }

    template <typename Item, typename Take>
    std::vector<Item> collect(qint64 limit, Take take) const
    {
        return access_.sync([&](State& state) {
            QSet<QString> names;
            for (const auto& [name, each] : state.containers)
                names.insert(name);
            for (const QString& name : state.fileNames())
                names.insert(name);
            std::vector<Item> items;
            for (const QString& name : std::as_const(names)) {
                auto taken = take(state.container(name), limit - qint64(items.size()));
                std::move(taken.begin(), taken.end(), std::back_inserter(items));
                if (qint64(items.size()) >= limit)
                    break;
            }
            return items;
        });
    }

    std::mutex mutex_;
    std::shared_ptr<Changes> changes_; ///< Of the last block, until it runs. Guarded by the mutex.
    mutable SynchronizedAccess<State> access_; ///< Last, so that its blocks end before the rest.
};

} // namespace quor::toolkit
