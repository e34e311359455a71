// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/AppMover/AppMover.h"
#include "Platform/Services/Application.h"
#include "Support/WaitFor.h"
#include "ToolKit_macOS/Alert.h"
#include "ToolKit_macOS/AppMover/ApplicationFolders.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quor;
using platform::ApplicationBundle;
using platform::InstallResult;
using toolkit::Alert;
using toolkit::AppMover;

namespace {

class TestApplication final : public platform::Application {
public:
    void terminate() override { ++terminations; }
    void activate(QWidget&) override { }
    int terminations = 0;
};

/// Notes what it is asked to do, and answers as it is told.
class TestInstaller final : public platform::ApplicationInstaller {
public:
    std::optional<ApplicationBundle> runningBundle() const override { return bundle; }
    std::vector<QByteArray> applicationFolders() const override { return folders; }
    Ending endPrograms(const ApplicationBundle& ended) override
    {
        calls += "end " + ended.path;
        return ending;
    }
    InstallResult install(const QByteArray& source, const QByteArray& target) override
    {
        calls += "install " + source + ' ' + target;
        return result;
    }
    InstallResult installAsAdministrator(const QByteArray& source, const QByteArray& target) override
    {
        calls += "administrator " + source + ' ' + target;
        return std::exchange(result, {InstallResult::Kind::failed, {}});
    }
    void removeDownloadMarks(const QByteArray& path) override { calls += "unmark " + path; }
    std::error_code open(const ApplicationBundle& opened, Start start) override
    {
        calls += (start == Start::now ? "open " : "open later ") + opened.programPath();
        return {};
    }
    void remove(const QByteArray& path) override { calls += "remove " + path; }

    std::optional<ApplicationBundle> bundle;
    std::vector<QByteArray> folders;
    Ending ending = Ending::notRunning;
    InstallResult result;
    mutable QByteArrayList calls;
};

class AppMoverTest : public testing::Test {
protected:
    AppMoverTest()
    {
        QDir(folder.path()).mkpath(u"Apps"_s);
        installer.bundle = ApplicationBundle{"/build/Tool.app", "bin/tool"};
        installer.folders = {apps};
    }
    ~AppMoverTest() override { AppMover::moveInProgress = false; }

    /// Answers the alerts that come, one after the other, with these buttons. Keeps their texts.
    void answer(const QList<int>& buttons)
    {
        auto* const timer = new QTimer(&context);
        timer->callOnTimeout([this, timer, left = buttons]() mutable {
            auto* const alert = qobject_cast<Alert*>(QApplication::activeModalWidget());
            auto* const button = alert && !left.isEmpty() ? alert->button(left.front()) : nullptr;
            if (!button)
                return;
            left.removeFirst();
            QStringList shown;
            const auto labels = alert->findChildren<QLabel*>();
            for (const auto* label : labels)
                shown += label->text();
            texts += shown.join(u' ');
            if (left.isEmpty())
                timer->stop();
            button->click();
        });
        timer->start(5);
    }
    void mustExit(const QList<int>& buttons)
    {
        answer(buttons);
        AppMover::moveIfNeeded(installer, application);
        std::fputs(installer.calls.join("; ").constData(), stderr);
        QObject::connect(
            qApp, &QCoreApplication::aboutToQuit, qApp, [] { std::fputs("was asked to quit", stderr); });
        QTimer::singleShot(10'000, qApp, [] { ::_exit(1); });
        QApplication::exec();
    }

    static constexpr int move = 1;
    static constexpr int close = Alert::cancelTag;

    QTemporaryDir folder;
    QByteArray apps = QFile::encodeName(folder.filePath(u"Apps"_s));
    QByteArray target = apps + "/Tool.app";
    QObject context;
    TestApplication application;
    TestInstaller installer;
    QStringList texts;
};

} // namespace

TEST_F(AppMoverTest, KnowsWhatIsInItsPlace)
{
    const QByteArray link = QFile::encodeName(folder.filePath(u"link"_s));
    ASSERT_EQ(::symlink(apps.constData(), link.constData()), 0);
    const std::pair<QByteArray, bool> cases[] = {
        {apps + "/A.app", true},
        {apps + "/deeper/A.app", true},
        {apps + "Old/A.app", false},
        {apps, false},
        {"/home/x/Applications/A.app", true},
        {"/home/x/ApplicationsOld/A.app", false},
        {"/home/x/applications/A.app", false},
    };
    for (const auto& [path, isInPlace] : cases)
        EXPECT_EQ(toolkit::isInApplicationsFolder(path, {link, {}}), isInPlace) << path.constData();
}

TEST_F(AppMoverTest, PrefersTheFolderWithTheMostEntries)
{
    const auto name = [&](const char* below) { return apps + '/' + below; };
    for (const auto* below : {"one/a", "two/a", "two/b", "three/a", "three/b"})
        QDir().mkpath(QFile::decodeName(name(below)));
    QFile file(QFile::decodeName(name("file")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(::symlink("two", name("link").constData()), 0);
    const std::pair<std::vector<QByteArray>, std::optional<QByteArray>> cases[] = {
        {{name("one"), name("two")}, name("two")},
        {{name("two"), name("one")}, name("two")},
        {{name("two"), name("three")}, name("three")},
        {{name("one"), name("link")}, name("two")},
        {{name("missing"), name("one"), name("file")}, name("one")},
        {{name("missing"), name("new")}, name("new")},
        {{}, std::nullopt},
    };
    for (const auto& [folders, expected] : cases)
        EXPECT_EQ(toolkit::preferredInstallDirectory(folders), expected);
}

TEST_F(AppMoverTest, DoesNothingWithoutAPlanOrAYes)
{
    installer.bundle.reset();
    AppMover::moveIfNeeded(installer, application);
    installer.bundle = ApplicationBundle{target, "bin/tool"};
    AppMover::moveIfNeeded(installer, application);
    installer.bundle->path = "/build/Tool.app";
    answer({close});
    AppMover::moveIfNeeded(installer, application);
    ASSERT_EQ(texts.size(), 1);
    EXPECT_TRUE(texts[0].contains(u"works best"_s)) << qPrintable(texts[0]);
    EXPECT_FALSE(texts[0].contains(u"administrator"_s));
    EXPECT_FALSE(AppMover::moveInProgress);
    EXPECT_TRUE(installer.calls.isEmpty());
}

TEST_F(AppMoverTest, InstallsStartsTheCopyAndExits)
{
    EXPECT_EXIT(mustExit({move}), testing::ExitedWithCode(0),
        "install /build/Tool.app .*/Apps/Tool.app; unmark .*/Apps/Tool.app; "
        "open later .*/Apps/Tool.app/bin/tool");
    QDir().mkpath(QFile::decodeName(target));
    installer.ending = TestInstaller::Ending::ended;
    EXPECT_EXIT(mustExit({move}), testing::ExitedWithCode(0), "end .*/Apps/Tool.app; install /build/");
}

TEST_F(AppMoverTest, GoesOnWhereAMoveFails)
{
    QDir().mkpath(QFile::decodeName(target));
    installer.ending = TestInstaller::Ending::refused;
    answer({move});
    AppMover::moveIfNeeded(installer, application);
    EXPECT_EQ(installer.calls, QByteArrayList({"end " + target, "open " + target + "/bin/tool"}));
    EXPECT_TRUE(AppMover::moveInProgress);

    installer.ending = TestInstaller::Ending::ended;
    installer.result = {InstallResult::Kind::failed, u"The disk is full."_s};
    texts.clear();
    answer({move, close});
    AppMover::moveIfNeeded(installer, application);
    EXPECT_TRUE(texts.value(1).contains(u"The disk is full."_s)) << "the user hears why";
    EXPECT_EQ(application.terminations, 0);
}

TEST_F(AppMoverTest, AsksAgainAfterACancelledPassword)
{
    const uid_t user = ::geteuid();
    ASSERT_EQ(::chmod(apps.constData(), 0555), 0);
    ASSERT_EQ(::chmod(qPrintable(folder.path()), 0755), 0);
    constexpr uid_t nobody = 65534;
    if (user == 0) { // who may write everywhere
        ASSERT_EQ(::seteuid(nobody), 0);
    }
    installer.result = {InstallResult::Kind::cancelled, {}};
    answer({move, move, close});
    AppMover::moveIfNeeded(installer, application);
    const QByteArray call = "administrator /build/Tool.app " + target;
    EXPECT_EQ(installer.calls, QByteArrayList({call, call}));
    EXPECT_EQ(texts.size(), 3);
    EXPECT_TRUE(texts.value(0).contains(u"administrator"_s));
    EXPECT_EQ(application.terminations, 1);
    EXPECT_EQ(::seteuid(user), 0);
}
