// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Application.h"

namespace quor::platform {

/// The running application on top of Qt's application object, which must exist.
class QtApplication final : public Application {
public:
    /// May be called before the event loop runs: the loop then ends as soon as it starts.
    void terminate() override;

    void activate(QWidget& window) override;
};

} // namespace quor::platform
