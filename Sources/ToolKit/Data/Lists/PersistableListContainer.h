// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Data/JSON/JSONDecoder.h"
#include "ToolKit/Data/JSON/JSONEncoder.h"
#include "ToolKit/Data/Lists/FileManager.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <limits>
#include <optional>
#include <utility>
#include <vector>

namespace quor::toolkit {

/// An element of a list in memory.
template <typename Element>
struct ListElement {
    Element value{};
    bool isChanged = false; ///< it was set here, after the file was read
};

template <typename Element>
struct JSONCoding<ListElement<Element>> {
    static bool decode(JSONValue value, ListElement<Element>& out, DecodingError& error)
    {
        return JSONCoding<Element>::decode(value, out.value, error);
    }
    static void encode(const ListElement<Element>& element, JSONWriter& writer)
    {
        JSONCoding<Element>::encode(element.value, writer);
    }
};

/// A key of a list with its element.
template <typename Element>
struct ListEntry {
    QString key;
    Element value;

    friend bool operator==(const ListEntry&, const ListEntry&) = default;
};

/// The content of one file of a `PersistableList` in memory: the elements by their keys. The file is a JSON
/// object with one member for each element; without elements there is no file.
///
/// `storageURL` is the path of the file. Without one, the disk is never touched. Borrows the file manager.
/// Failures are not reported. One thread at a time.
///
/// Functions that write require the lock of the folder. Before they write, they read a file again that
/// another process has changed meanwhile, and apply the changes made here to it. If it is gone or damaged,
/// they write all elements in memory.
template <typename Element>
class PersistableListContainer final {
public:
    using Entry = ListEntry<Element>;
    static constexpr qint64 noLimit = std::numeric_limits<qint64>::max();

    PersistableListContainer(std::optional<QString> storageURL, const FileManager& fileManager)
        : storageURL_(std::move(storageURL))
        , fileManager_(fileManager)
    {
    }

    /// Reads the file, unless there are elements already. A file that is not an object of such elements reads
    /// as an empty one. If the file cannot be read, the next call tries again, and the changes made until
    /// then are applied to what it reads.
    void load()
    {
        if (storageURL_ && (dict_.isEmpty() || isLoadPending_))
            reload();
    }

    /// Writes the file, or removes it if there are no elements. Returns whether the disk has these elements
    /// now. A file that cannot be read stays as it is.
    bool save()
    {
        if (!storageURL_ || !update())
            return false;
        if (dict_.isEmpty())
            return fileManager_.removeFile(*storageURL_);
        const auto data = JSONEncoder().encode(dict_);
        return data && fileManager_.write(*data, *storageURL_);
    }

    /// Removes the elements and the file.
    void deleteAll()
    {
        if (storageURL_)
            fileManager_.removeFile(*storageURL_);
        dict_ = {};
        removed_ = {};
        identity_.reset();
        isLoadPending_ = false;
    }

    /// Removes the file if it has no elements either. Returns whether there is no file now.
    bool deleteIfEmpty()
    {
        if (!update() || !isEmpty())
            return false;
        deleteAll();
        return true;
    }

    /// Whether there was a file when it was read last.
    [[nodiscard]] bool hasFile() const { return identity_ || isLoadPending_; }

    /// Whether neither memory nor a file that could not be read so far has elements.
    [[nodiscard]] bool isEmpty() const { return dict_.isEmpty() && !isLoadPending_; }

    /// Returns at most `limit` keys, in no particular order.
    [[nodiscard]] std::vector<QString> keys(qint64 limit = noLimit) const
    {
        std::vector<QString> keys;
        visit(limit, [&](const QString& key, const Element&) { keys.push_back(key); });
        return keys;
    }

    /// Returns the same keys with their elements.
    [[nodiscard]] std::vector<Entry> entries(qint64 limit = noLimit) const
    {
        std::vector<Entry> entries;
        visit(limit, [&](const QString& key, const Element& value) { entries.push_back({key, value}); });
        return entries;
    }

    [[nodiscard]] std::optional<Element> value(const QString& key) const
    {
        const auto entry = dict_.constFind(key);
        return entry == dict_.cend() ? std::nullopt : std::optional<Element>(entry->value);
    }

    void setValue(Element value, const QString& key)
    {
        dict_.emplace(key, ListElement<Element>{std::move(value), true});
    }
    void removeValue(const QString& key)
    {
        dict_.remove(key);
        if (hasFile())
            removed_.insert(key);
    }
    /// Makes room for so many further elements.
    void reserve(qsizetype count) { dict_.reserve(dict_.size() + count); }

private:
    using Dict = QHash<QString, ListElement<Element>>;

    template <typename Visit>
    void visit(qint64 limit, Visit visit) const
    {
        for (auto entry = dict_.cbegin(); entry != dict_.cend() && limit > 0; ++entry, --limit)
            visit(entry.key(), entry->value);
    }

    /// Reads the file again if it has changed. Returns false if it cannot be read.
    bool update()
    {
        return (!isLoadPending_ && fileManager_.identity(*storageURL_) == identity_) || reload();
    }

    bool reload()
    {
        auto file = fileManager_.read(*storageURL_);
        isLoadPending_ = !file;
        if (isLoadPending_)
            return false;
        identity_ = file->identity;
        auto dict
            = file->contents.isEmpty() ? std::nullopt : JSONDecoder().decode<Dict>(std::move(file->contents));
        if (!dict)
            return true; // there are no elements of others: those in memory are all
        auto before = std::exchange(dict_, *std::move(dict));
        for (const QString& key : std::as_const(removed_))
            dict_.remove(key);
        for (auto entry = before.begin(); entry != before.end(); ++entry) {
            if (entry->isChanged)
                dict_.insert(entry.key(), std::move(*entry));
        }
        return true;
    }

    Dict dict_;
    QSet<QString> removed_; ///< the keys that were removed here, after the file was read
    FileManager::Identity identity_; ///< of the file when it was read; `nullopt` if there was none
    bool isLoadPending_ = false;
    std::optional<QString> storageURL_;
    const FileManager& fileManager_;
};

} // namespace quor::toolkit
