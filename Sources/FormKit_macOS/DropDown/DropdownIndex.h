// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormItem.h"

#include <QString>

#include <array>
#include <atomic>
#include <memory>
#include <optional>
#include <vector>

namespace quor::formkit {

/// Finds the items whose name contains a text. The names are prepared by the first search: all of them in
/// one text, which a search goes through without looking at the single items.
///
/// An item comes with its parents, the headings that it is indented below, and with everything that is
/// indented below itself. Separators are never found. One thread at a time.
class DropdownIndex final {
public:
    using Items = std::vector<FormItem>;

    explicit DropdownIndex(std::shared_ptr<const Items> items);

    /// Returns the indexes of the items, in ascending order; of all items, if `term` is empty. `nullopt` if
    /// `isCancelled`, which another thread may set, became true; a later search goes on with the preparation
    /// where this one left it.
    [[nodiscard]] std::optional<std::vector<int>> find(
        const QString& term, const std::atomic<bool>& isCancelled);

private:
    [[nodiscard]] bool prepare(const std::atomic<bool>& isCancelled);
    void prepare(const FormItem& item);
    [[nodiscard]] qsizetype rarestLetter(const QString& folded) const;
    void findIn(std::size_t first, std::size_t last, const QString& folded, qsizetype rarest,
        std::vector<int>& found) const;
    [[nodiscard]] std::vector<int> withRelatives(const std::vector<int>& found) const;

    std::shared_ptr<const Items> items_;
    QString text_; ///< the folded names, one after the other
    std::vector<qsizetype> ends_; ///< of the names in `text_`
    std::vector<int> parents_; ///< -1 for items without one
    std::vector<int>
        ancestors_; ///< the last prepared item, its parent, the parent of that and so on, reversed
    bool hasParents_ = false;
    std::array<int, 256> counts_{}; ///< how often letters occur in `text_`, by the low byte of their code
};

} // namespace quor::formkit
