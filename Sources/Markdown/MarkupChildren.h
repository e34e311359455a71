// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Markup.h"

#include <cstddef>
#include <iterator>
#include <utility>

/// The direct children of an element, as a range to iterate over, forwards or backwards:
///
///     for (const Markup& child : element.children()) ...
///     for (const Markup& child : element.children().reversed()) ...
///
/// The range keeps the document alive. Any thread.
namespace quor::markdown {

/// Refers to one child by its index in the tree, and makes the handle when it is dereferenced.
template <bool isReversed>
class MarkupChildIterator {
public:
    using value_type = Markup;
    using difference_type = std::ptrdiff_t;
    using reference = Markup;
    using iterator_concept = std::forward_iterator_tag;
    using iterator_category = std::input_iterator_tag; // because it returns values

    MarkupChildIterator() = default;

    Markup operator*() const { return Markup(parent_->raw().at(index_)); }
    MarkupChildIterator& operator++();
    MarkupChildIterator operator++(int)
    {
        MarkupChildIterator before = *this;
        ++*this;
        return before;
    }
    friend bool operator==(const MarkupChildIterator& one, const MarkupChildIterator& other)
    {
        return one.left_ == other.left_;
    }

private:
    friend class MarkupChildren;
    friend class ReversedMarkupChildren;
    MarkupChildIterator(const Markup& parent, quint32 index, quint32 left)
        : parent_(parent)
        , index_(index)
        , left_(left)
    {
    }

    std::optional<Markup> parent_;
    quint32 index_ = 0;
    quint32 left_ = 0; // the children from this one to the last
};

template <>
MarkupChildIterator<false>& MarkupChildIterator<false>::operator++();
template <>
MarkupChildIterator<true>& MarkupChildIterator<true>::operator++();

class ReversedMarkupChildren {
public:
    using Iterator = MarkupChildIterator<true>;

    explicit ReversedMarkupChildren(Markup parent)
        : parent_(std::move(parent))
    {
    }
    [[nodiscard]] Iterator begin() const;
    [[nodiscard]] Iterator end() const { return {parent_, 0, 0}; }

private:
    Markup parent_;
};

class MarkupChildren {
public:
    using Iterator = MarkupChildIterator<false>;

    explicit MarkupChildren(Markup parent)
        : parent_(std::move(parent))
    {
    }
    [[nodiscard]] Iterator begin() const;
    [[nodiscard]] Iterator end() const { return {parent_, 0, 0}; }
    [[nodiscard]] qsizetype size() const { return parent_.childCount(); }
    [[nodiscard]] bool isEmpty() const { return size() == 0; }
    [[nodiscard]] ReversedMarkupChildren reversed() const { return ReversedMarkupChildren(parent_); }

    /// The child at `index`; `nullopt` if there is no such child. Takes time in proportion to `index`.
    [[nodiscard]] std::optional<Markup> at(qsizetype index) const;

private:
    Markup parent_;
};

} // namespace quor::markdown
