// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/HotKeys.h"

#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace quor::platform {

/// What is registered with an object of hot keys. A `Registration` has at least the members `hotKey` and
/// `handlers`. A handler may change the registry, and destroy it, while handlers are called.
template <class Registration>
class HotKeyRegistry final {
public:
    using Reference = HotKeys::Reference;

    Reference add(Registration registration)
    {
        const Reference reference{++lastReference_};
        all_->emplace(reference, std::move(registration));
        return reference;
    }

    /// Returns what was registered, or `nullopt` for a reference that is not in use.
    std::optional<Registration> remove(Reference reference)
    {
        auto node = all_->extract(reference);
        return node ? std::optional(std::move(node.mapped())) : std::nullopt;
    }

    /// Returns null for a reference that is not in use.
    [[nodiscard]] const Registration* find(Reference reference) const
    {
        const auto found = all_->find(reference);
        return found == all_->end() ? nullptr : &found->second;
    }

    [[nodiscard]] bool isEmpty() const { return all_->empty(); }
    [[nodiscard]] auto begin() const { return all_->begin(); }
    [[nodiscard]] auto end() const { return all_->end(); }

    /// The references of those for which `fits` returns true, in the order of registration.
    template <class Fits>
    [[nodiscard]] std::vector<Reference> select(Fits fits) const
    {
        std::vector<Reference> references;
        for (const auto& [reference, registration] : *all_) {
            if (fits(registration))
                references.push_back(reference);
        }
        return references;
    }

    /// The registry may have ended when one of these returns.
    void notifyReleased(const std::vector<Reference>& references) const
    {
        visit(references, [](const HotKey& hotKey, const HotKeys::Handlers& handlers) {
            if (handlers.released)
                handlers.released(hotKey.identifier);
        });
    }
    void notifyChanged() const
    {
        visit(select([](const Registration&) { return true; }),
            [](const HotKey&, const HotKeys::Handlers& handlers) {
                if (handlers.changed)
                    handlers.changed();
            });
    }

private:
    using Map = std::map<Reference, Registration>;

    template <class Call>
    void visit(const std::vector<Reference>& references, Call call) const
    {
        const std::weak_ptr<Map> life = all_;
        for (const auto reference : references) {
            const auto all = life.lock();
            if (!all)
                return;
            const auto found = all->find(reference);
            if (found == all->end())
                continue;
            const auto hotKey = found->second.hotKey;
            const auto handlers = found->second.handlers;
            call(hotKey, handlers);
        }
    }

    std::shared_ptr<Map> all_ = std::make_shared<Map>();
    std::uint64_t lastReference_ = 0;
};

} // namespace quor::platform
