// SPDX-License-Identifier: MIT
#pragma once

#include <any>

namespace quor::toolkit {

/// One entry of a publisher's list: somebody who may be gone, and what to call there.
/// Main thread only.
template <class Publisher>
class TargetAction {
public:
    virtual ~TargetAction() = default;

    [[nodiscard]] virtual bool isAlive() const = 0;

    /// Calls the target, now or later; nothing once it has gone. An empty payload means none. The
    /// call may remove this entry, end the target, or end the sender.
    virtual void perform(Publisher& sender, const std::any& payload) = 0;
};

} // namespace quor::toolkit
