// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Model/AttributeValue.h"
#include "ToolKit/CoreData/Model/EntityDescription.h"

#include <memory>
#include <utility>
#include <vector>

namespace quor::toolkit {

class ObjectGraph;

/// What the handles of one record share. Belongs to a graph and is touched on its queue only, but for a
/// plain one, which has none.
struct ManagedRecord {
    enum class State {
        plain, ///< of no graph
        inserted, ///< not in the file yet
        saved, ///< in the file, changed here or not
        deleted, ///< in the file until the next save
        gone, ///< not in the file, and never to be
    };

    [[nodiscard]] bool isDirty() const
    {
        return state == State::inserted || state == State::deleted
            || (state == State::saved && !originals.empty());
    }

    std::shared_ptr<ObjectGraph> graph;
    std::size_t entity = 0; ///< among those of the graph
    qint64 number = 0; ///< in the entity; from `ObjectGraph::firstTemporary` on: not saved yet
    State state = State::plain;
    bool isListed = false; ///< among the graph's changed ones
    bool awaitsOverlay = false; ///< changed since the overlay was last written
    std::vector<AttributeValue> values; ///< by the entity's attributes
    std::vector<std::pair<std::size_t, AttributeValue>> originals; ///< what a rollback brings back
    std::vector<std::pair<QString, AttributeValue>> plainValues;
};

} // namespace quor::toolkit
