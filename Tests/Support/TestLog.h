// SPDX-License-Identifier: MIT
#pragma once

#include "Support/Files.h"
#include "ToolKit/Logging/FileErrorLogger.h"

#include <QTemporaryDir>

namespace quor::test {

/// Enables the log, in a temporary folder, and disables it in the destructor.
class TestLog final {
public:
    TestLog()
    {
        toolkit::FileErrorLogger::setup(folder_.path());
        toolkit::FileErrorLogger::setEnabled(true);
    }
    ~TestLog()
    {
        toolkit::FileErrorLogger::setEnabled(false);
        toolkit::FileErrorLogger::setup(std::nullopt);
    }
    TestLog(const TestLog&) = delete;
    TestLog& operator=(const TestLog&) = delete;

    /// All lines, of all files.
    [[nodiscard]] QByteArray text() const
    {
        QByteArray text;
        for (const QString& name : QDir(folder_.path()).entryList(QDir::Files))
            text += readFile(folder_.filePath(name));
        return text;
    }

private:
    QTemporaryDir folder_;
};

} // namespace quor::test
