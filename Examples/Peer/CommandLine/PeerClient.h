// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Linux/Bus/SessionBus.h"

#include <QString>
#include <QVariantList>

namespace quor::peer {

/// The other end of a `PeerService`: calls the serving process over the session bus and waits for
/// its answer. Main thread only.
class PeerClient final {
public:
    struct Reply {
        QString text; ///< what the call gave, if anything
        QString error; ///< for the user; empty on success
    };

    [[nodiscard]] Reply call(const QString& method, const QVariantList& arguments = {}) const;

private:
    platform::SessionBus bus_;
};

} // namespace quor::peer
