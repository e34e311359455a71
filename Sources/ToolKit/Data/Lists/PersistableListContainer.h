// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Data/JSON/JSONDecoder.h"
#include "ToolKit/Data/JSON/JSONEncoder.h"
#include "ToolKit/Data/Lists/FileManager.h"

#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <QString>

#include <limits>
#include <optional>
#include <utility>
#include <vector>

namespace quor::toolkit {

/// The content of one file of a `PersistableList` in memory: the elements by their keys. The file is a JSON
/// object with one member for each element; without elements there is no file.
///
/// `storageURL` is the path of the file. Without one, the disk is never touched. Borrows the file manager.
/// Failures are not reported. One thread at a time.
template <typename Element>
class PersistableListContainer final {
public:
    static constexpr qint64 noLimit = std::numeric_limits<qint64>::max();

    PersistableListContainer(std::optional<QString> storageURL, const FileManager& fileManager)
        : storageURL_(std::move(storageURL))
        , fileManager_(fileManager)
    {
    }

    /// Reads the file, unless there are elements already. A file that cannot be read as an object of such
    /// elements reads as an empty one. If files cannot be opened for the moment, the next call tries again,
    /// and the changes made until then are applied to what it reads.
    void load()
    {
        if (!storageURL_ || (!dict_.isEmpty() && !isLoadPending_))
            return;
        auto data = fileManager_.contents(*storageURL_);
        isLoadPending_ = !data;
        if (isLoadPending_)
            return;
        const auto changed = std::exchange(dict_, {});
        if (auto dict = JSONDecoder().decode<QHash<QString, Element>>(*std::move(data)))
            dict_ = std::move(*dict);
        for (const QString& key : std::exchange(removed_, {}))
            dict_.remove(key);
        dict_.insert(changed);
    }

    /// Writes the file, or removes it if there are no elements; makes its folder if that is missing. Returns
    /// whether the disk has these elements now. A file that could not be read so far is read first.
    bool save()
    {
        if (isLoadPending_)
            load();
        if (!storageURL_ || isLoadPending_)
            return false;
        const QString directory = QFileInfo(*storageURL_).path();
        if (!fileManager_.itemExists(directory))
            fileManager_.createDirectory(directory);
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
    }

    /// Whether neither memory nor a file that could not be read so far has elements.
    [[nodiscard]] bool isEmpty() const { return dict_.isEmpty() && !isLoadPending_; }

    /// Returns at most `limit` keys, in no particular order.
    [[nodiscard]] std::vector<QString> keys(qint64 limit = noLimit) const
    {
        std::vector<QString> keys;
        for (auto entry = dict_.keyBegin(); entry != dict_.keyEnd() && qint64(keys.size()) < limit; ++entry)
            keys.push_back(*entry);
        return keys;
    }

    /// Returns the same keys with their elements.
    [[nodiscard]] std::vector<std::pair<QString, Element>> entries(qint64 limit = noLimit) const
    {
        std::vector<std::pair<QString, Element>> entries;
        for (QString& key : keys(limit)) {
            const Element element = dict_.value(key);
            entries.emplace_back(std::move(key), element);
        }
        return entries;
    }

    [[nodiscard]] std::optional<Element> value(const QString& key) const
    {
        const auto entry = dict_.constFind(key);
        return entry == dict_.cend() ? std::nullopt : std::optional<Element>(*entry);
    }

    void setValue(Element value, const QString& key) { dict_.emplace(key, std::move(value)); }
    void removeValue(const QString& key)
    {
        dict_.remove(key);
        if (isLoadPending_)
            removed_.insert(key);
    }

private:
    QHash<QString, Element> dict_;
    QSet<QString> removed_; ///< Since a load is pending.
    bool isLoadPending_ = false;
    std::optional<QString> storageURL_;
    const FileManager& fileManager_;
};

} // namespace quor::toolkit
