// SPDX-License-Identifier: MIT
#pragma once

#include <QTemporaryDir>

namespace quor::test {

/// Sets XDG_DATA_HOME to an empty temporary folder, and restores it in the destructor.
class TemporaryDataHome final {
public:
    TemporaryDataHome() { qputenv("XDG_DATA_HOME", folder_.path().toUtf8()); }
    ~TemporaryDataHome()
    {
        if (before_.isNull())
            qunsetenv("XDG_DATA_HOME");
        else
            qputenv("XDG_DATA_HOME", before_);
    }
    TemporaryDataHome(const TemporaryDataHome&) = delete;
    TemporaryDataHome& operator=(const TemporaryDataHome&) = delete;

    [[nodiscard]] QString path(const QString& below = {}) const { return folder_.filePath(below); }

private:
    QByteArray before_ = qgetenv("XDG_DATA_HOME");
    QTemporaryDir folder_;
};

} // namespace quor::test
