// SPDX-License-Identifier: MIT
#pragma once

#include <any>

namespace quor::toolkit {

/// One entry in a publisher's list: a target, held weakly, and what to call on it. Main thread only.
template <class Publisher>
class TargetAction {
public:
    virtual ~TargetAction() = default;

    [[nodiscard]] virtual bool isAlive() const = 0;

    /// Calls the target, at once or after the delay of the entry. Has no effect if the target was destroyed.
    /// An empty `payload` means no payload. The called target may remove this entry, and may destroy itself
    /// or the sender.
    virtual void perform(Publisher& sender, const std::any& payload) = 0;
};

} // namespace quor::toolkit
