// SPDX-License-Identifier: MIT
#include <QApplication>

#include <gmock/gmock.h>

namespace {

/// Deletes, after each test, what was left to an event loop that the test does not run.
class DeferredDeletion final : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo& /*test*/) override
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("com.quor-app.Tests"));
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleMock(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new DeferredDeletion);
    return RUN_ALL_TESTS();
}
