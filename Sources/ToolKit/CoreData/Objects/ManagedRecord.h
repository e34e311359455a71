// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Model/AttributeValue.h"
#include "ToolKit/CoreData/Model/EntityDescription.h"

#include <memory>
#include <utility>
#include <vector>

namespace quor::toolkit {

class ObjectGraph;

/// The data that all handles of one record share. It must be used only on the queue of its graph. A plain
/// record has no graph and no queue.
struct ManagedRecord {
    enum class State {
        plain, ///< has no graph
        inserted, ///< not in the file yet
        saved, ///< in the file, changed here or not
        deleting, ///< deleted here, but in the file until the next save
        deleted, ///< not in the file: deleted from it, or never saved and then deleted or rolled back
    };

    /// Whether the next save writes something of this record.
    [[nodiscard]] bool isDirty() const
    {
        return state == State::inserted || state == State::deleting
            || (state == State::saved && !originals.empty());
    }

    std::shared_ptr<ObjectGraph> graph;
    std::size_t entity = 0; ///< index in `ObjectGraph::entities`
    qint64 number = 0; ///< unique in the entity; `ObjectGraph::firstTemporary` or higher until it is saved
    State state = State::plain;
    bool isListed = false; ///< in `ObjectGraph::changed`
    bool awaitsOverlay = false; ///< in `ObjectGraph::awaitingOverlay`
    std::vector<AttributeValue> values; ///< in the order of the entity's attributes
    /// Changed attributes by index, with the values that a rollback restores.
    std::vector<std::pair<std::size_t, AttributeValue>> originals;
    std::vector<std::pair<QString, AttributeValue>> plainValues; ///< of a plain record, by key
};

} // namespace quor::toolkit
