// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Linux/Bus/SessionBus.h"

#include <QString>
#include <QVariantList>

namespace quor::peer {

/// A client of `PeerService`: calls the serving process over the session bus and waits for the answer, 10
/// seconds at most. Main thread only.
class PeerClient final {
public:
    struct Reply {
        QString text; ///< the result of the call; empty if it has none
        QString error; ///< for the user; empty on success
    };

    [[nodiscard]] Reply call(const QString& method, const QVariantList& arguments = {}) const;

private:
    platform::SessionBus bus_;
};

} // namespace quor::peer
