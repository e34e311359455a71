// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Application.h"

namespace quor::platform {

/// The application object over Qt's. Needs a QCoreApplication.
class QtApplication final : public Application {
public:
    /// Holds also when it is called before the event loop runs: the loop then ends at once.
    void terminate() override;

    void activate(QWidget& window) override;
};

} // namespace quor::platform
