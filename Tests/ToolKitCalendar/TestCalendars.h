// SPDX-License-Identifier: MIT
#pragma once

#include "Support/Files.h"
#include "ToolKit/Calendar/EventStore.h"

#include <QTemporaryDir>

namespace quor::test {

/// A root folder of calendars of its own, with access granted.
class TestCalendars final {
public:
    [[nodiscard]] QString path(const QString& below = {}) const { return folder_.filePath(below); }
    [[nodiscard]] toolkit::EventStoreOptions options() const
    {
        return {folder_.path(), [](auto) { return toolkit::AuthorizationStatus::fullAccess; }};
    }

private:
    QTemporaryDir folder_;
};

} // namespace quor::test
