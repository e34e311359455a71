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

#include <limits>
#include <memory>
#include <mutex>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace quor::toolkit {

/// A map from text keys to elements, kept on disk as many small JSON files in one folder, so that a
/// change rewrites only the file of its key, and a look-up reads only that.
///
///     PersistableList<Task> tasks(folder);      // Task has JSONFields
///     tasks.set(task, task.identifier);
///     tasks.flush();
///
/// `Element` is any type with a `JSONCoding` that can be copied. The file of a key is told by
/// `storageKey`; nothing outside the folder is ever read or written.
///
/// Changes are made in memory, on a queue of the list's own, and reach the disk with `flush` alone:
/// what was set after the last one goes with the list. Only a file whose last key is removed goes at
/// once. The destructor waits for what was submitted, a flush included. Failures are dropped: a file
/// that cannot be read as an object of elements counts as empty, and the next flush after it was
/// looked into replaces or removes it; what a flush cannot write stays in memory for the next one.
///
/// Links and subfolders within the folder are no files of the list: never followed, not counted, but
/// gone with `clear`. The folder belongs to one list at a time.
///
/// Any thread. Calls of one thread take effect in their order. A key that is empty, or no Unicode (half
/// a surrogate pair in it), holds nothing: setting or removing it does nothing.
template <typename Element = QJsonValue>
class PersistableList final {
public:
    using Entry = std::pair<QString, Element>; ///< key and value

    /// `storageURL` is the path of the folder, made by the first flush after any key was touched.
    /// Without one (absent or empty) the list lives in memory alone. Touches no file.
    explicit PersistableList(const std::optional<QString>& storageURL)
        : access_(storageURL)
    {
    }

    // These wait for the changes submitted before and read the disk where they must.

    /// Whether the folder holds no visible file and nothing was touched since the last flush.
    [[nodiscard]] bool isEmpty() const
    {
        return access_.sync(
            [](State& state) { return state.containers.empty() && state.fileNames().isEmpty(); });
    }
    [[nodiscard]] std::optional<Element> value(const QString& key) const
    {
        if (!isKey(key))
            return std::nullopt;
        return access_.sync([&](State& state) { return state.container(storageKey(key)).value(key); });
    }

    /// At most `limit` keys, file by file in no particular order, loading each file visited; none for
    /// 0 or less.
    [[nodiscard]] std::vector<QString> keys(qint64 limit) const
    {
        return collect<QString>(
            limit, [](const Container& container, qint64 rest) { return container.keys(rest); });
    }
    [[nodiscard]] std::vector<QString> allKeys() const { return keys(std::numeric_limits<qint64>::max()); }
    [[nodiscard]] std::vector<Entry> entries(qint64 limit) const
    {
        return collect<Entry>(
            limit, [](const Container& container, qint64 rest) { return container.entries(rest); });
    }

    // These return at once.

    void set(Element value, const QString& key) { change({key, std::move(value)}); }
    void removeValue(const QString& key) { change({key, std::nullopt}); }

    /// Writes what is in memory and forgets it.
    void flush()
    {
        submit([](State& state) {
            std::erase_if(state.containers, [](const auto& each) { return each.second.save(); });
        });
    }

    /// Removes everything, in memory and on disk, the folder included.
    void clear()
    {
        submit([](State& state) { state.clear(); });
    }

private:
    using Container = PersistableListContainer<Element>;

    struct Change {
        QString key;
        std::optional<Element> value; ///< none removes
    };
    using Changes = std::vector<Change>;

    /// What only blocks of the queue touch.
    struct State {
        explicit State(const std::optional<QString>& url)
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

        void apply(Change&& change)
        {
            const QString name = storageKey(change.key);
            Container& its = container(name);
            if (change.value)
                return its.setValue(*std::move(change.value), change.key);
            its.removeValue(change.key);
            if (its.isEmpty()) {
                its.deleteAll();
                containers.erase(name);
            }
        }

        void clear()
        {
            // Files that the folder's removal would fail to reach, as below a link, go one by one.
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
    };

    // What is no Unicode would be written as another key.
    static bool isKey(const QString& key) { return !key.isEmpty() && key.isValidUtf16(); }

    // Changes that follow each other share a block until it runs: a block for each would cost more than
    // the change.
    void change(Change change)
    {
        if (!isKey(change.key))
            return;
        const std::lock_guard lock(mutex_);
        if (!changes_) {
            changes_ = std::make_shared<Changes>();
            access_.async([this, changes = changes_](State& state) {
                end(changes);
                for (Change& each : *changes)
                    state.apply(std::move(each));
            });
        }
        changes_->push_back(std::move(change));
    }

    void end(const std::shared_ptr<Changes>& changes)
    {
        const std::lock_guard lock(mutex_);
        if (changes_ == changes)
            changes_ = nullptr;
    }

    template <typename Block>
    void submit(Block block)
    {
        const std::lock_guard lock(mutex_);
        changes_ = nullptr; // those to come belong behind this block
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
    std::shared_ptr<Changes> changes_; ///< the last block's, while it waits; guarded by the mutex
    mutable SynchronizedAccess<State> access_; ///< ends first
};

} // namespace quor::toolkit
