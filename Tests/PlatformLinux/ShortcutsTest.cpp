// SPDX-License-Identifier: MIT
#include "Platform/Linux/Applications/DesktopShortcutsService.h"
#include "Support/WaitFor.h"
#include "ToolKit_macOS/Shortcuts/ShortcutRunner.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quor;
using platform::DesktopShortcutsService;
using platform::Shortcut;
using test::waitFor;
using toolkit::ShortcutRunner;

namespace {

class ShortcutsTest : public testing::Test {
protected:
    ShortcutsTest()
    {
        qputenv("XDG_DATA_HOME", QFile::encodeName(home.path()));
        qputenv("LC_ALL", "de_AT.UTF-8");
    }
    ~ShortcutsTest() override
    {
        qunsetenv("XDG_DATA_HOME");
        qunsetenv("LC_ALL");
    }

    QString path(const QString& name) const { return home.filePath(u"quor/shortcuts/"_s + name); }
    void writeFile(const QString& id, const QByteArray& content) const
    {
        QFile file(path(id + u".desktop"_s));
        QDir().mkpath(QFileInfo(file).path());
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(content);
    }
    void writeEntry(const QString& id, const QByteArray& keys) const
    {
        writeFile(id, "[Desktop Entry]\nType=Application\nName=N\n" + keys);
    }
    QByteArray contentOf(const QString& name) const
    {
        QFile file(home.filePath(name));
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// A pipe in the home folder. Its readers wait until it has been opened for writing and closed.
    QByteArray makeGate() const
    {
        QByteArray gate = QFile::encodeName(home.filePath(u"gate"_s));
        EXPECT_EQ(::mkfifo(gate.constData(), 0600), 0);
        return gate;
    }
    /// Waits for a reader, and opens the pipe for writing.
    static int openGate(const QByteArray& gate)
    {
        int opened = -1;
        EXPECT_TRUE(waitFor([&] {
            opened = ::open(gate.constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
            return opened >= 0;
        }));
        return opened;
    }

    QTemporaryDir home;
    DesktopShortcutsService service;
};

} // namespace

TEST_F(ShortcutsTest, ListsOnlyEntriesThatCanBeRun)
{
    EXPECT_TRUE(service.shortcuts().empty()) << "there is no folder yet";
    const struct {
        const char* keys;
        bool isListed;
    } cases[] = {
        {"Exec=true", true},
        {"Exec = true\r\nTerminal=false\n[Desktop Action x]\nrubbish", true},
        {"Exec=true\nTryExec=sh", true},
        {"Exec=true\nTryExec=quor-no-such-program", false},
        {"Exec=true\nTryExec=/etc/passwd", false},
        {"Exec=true\nHidden=true", false},
        {"Exec=true\nNoDisplay=true", false},
        {"Exec=true\nTerminal=true", false},
        {"Exec=true\nrubbish", false},
        {"", false},
        {"Exec=", false},
        {"Exec=\"\"", false},
        {"Exec=\"true", false},
        {"Exec=\"true\"x", false},
        {"Exec=tr\"u\"e", false},
        {"Exec=true; rm", false},
        {"Exec=true $HOME", false},
        {"Exec=true `ls`", false},
        {"Exec=a=b true", false},
        {"Exec=./true", false},
        {"Exec=%c", false},
        {"Exec=true %", false},
        {"Exec=true %z", false},
        {"Exec=true x%F", false},
        {"Exec=true \"%c\"", false},
    };
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        writeEntry(QString::number(i), cases[i].keys);
        EXPECT_EQ(service.shortcutWithId(QString::number(i)).has_value(), cases[i].isListed) << cases[i].keys;
    }
    for (const char* content : {"", "[Other]\n[Desktop Entry]\nType=Application\nName=N\nExec=true",
             "Type=Application\n[Desktop Entry]\nName=N\nExec=true",
             "[Desktop Entry]\nType=Link\nName=N\nExec=true",
             "[Desktop Entry]\nType=Application\nExec=true"}) {
        writeFile(u"whole"_s, content);
        EXPECT_FALSE(service.shortcutWithId(u"whole"_s)) << content;
    }
    writeEntry(u"huge"_s, "Exec=true\n#" + QByteArray(300'000, 'x'));
    writeEntry(u".hidden"_s, "Exec=true");
    ASSERT_EQ(::mkfifo(QFile::encodeName(path(u"pipe.desktop"_s)), 0600), 0);
    ASSERT_EQ(::symlink(".", QFile::encodeName(path(u"loop"_s))), 0);
    ASSERT_EQ(::symlink("0.desktop", QFile::encodeName(path(u"link.desktop"_s))), 0);
    ASSERT_EQ(::symlink("self.desktop", QFile::encodeName(path(u"self.desktop"_s))), 0);
    QFile::copy(path(u"0.desktop"_s), home.filePath(u"outside.desktop"_s));
    const QByteArray noText = QFile::encodeName(path({})) + "\xff.desktop";
    ASSERT_EQ(::link(QFile::encodeName(path(u"0.desktop"_s)), noText), 0);
    QStringList ids;
    for (const auto& shortcut : service.shortcuts())
        ids << shortcut.id;
    ids.sort();
    ::unlink(noText); // Qt cannot remove it with the folder
    EXPECT_EQ(ids, (QStringList{u"0"_s, u"1"_s, u"2"_s, u"link"_s}));
    for (const auto& id :
        {u""_s, u"/"_s, u"loop/0"_s, u".hidden"_s, u"../../outside"_s, u"huge"_s, u"pipe"_s})
        EXPECT_FALSE(service.shortcutWithId(id)) << qPrintable(id);
}

TEST_F(ShortcutsTest, PassesArgumentsInputAndResult)
{
    writeFile(u"Work/it"_s,
        "# a comment\n[Desktop "
        "Entry]\nName=Plain\nName[de]=Grüße\\sdir\nName[de_AT@x]=No\nComment[de_AT]=Servus\n"
        "Type=Application\nIcon=ic\n"
        R"(Exec=printf "<%%s>" a "b c" "" "\\$x \\"q\\" \\\\ \\`" %c %i %f 100%% %U %k)");
    const Shortcut expected{u"Work/it"_s, u"Grüße dir"_s, u"Servus"_s, u"Work"_s};
    EXPECT_EQ(service.shortcuts(), std::vector{expected});
    EXPECT_EQ(service.run(u"Work/it"_s, {}),
        uR"(<a><b c><><$x "q" \ `><Grüße dir><--icon><ic><100%><)"_s + path(u"Work/it.desktop"_s) + u'>');

    const QByteArray gate = makeGate();
    const struct {
        const char* keys;
        std::optional<QString> input;
        std::optional<QString> result;
    } cases[] = {
        {"Exec=cat", u"größer\n"_s, u"größer\n"_s},
        {"Exec=cat", std::nullopt, u""_s},
        {"Exec=pwd\nPath=/usr", std::nullopt, u"/usr\n"_s},
        {"Exec=pwd\nPath=/no/such", std::nullopt, std::nullopt},
        {"Exec=quor-no-such-program", std::nullopt, std::nullopt},
        {"Exec=sh -c \"echo out; exit 3\"", std::nullopt, u"out\n"_s},
        {"Exec=true", QString(5'000'000, u'x'), u""_s},
        {"Exec=head -c 3000000 /dev/zero", std::nullopt, QString(1'048'576, u'\0')},
        // It leaves a program behind that keeps its output open.
        {R"(Exec=sh -c "cat \\"\\$XDG_DATA_HOME/gate\\" & echo out")", std::nullopt, u"out\n"_s},
    };
    for (const auto& [keys, input, result] : cases) {
        writeEntry(u"case"_s, keys);
        EXPECT_TRUE(service.run(u"case"_s, input) == result) << keys;
    }
    ::close(openGate(gate)); // ends it
    EXPECT_FALSE(service.run(u"missing"_s, {}));
}

TEST_F(ShortcutsTest, TheRunnerListsOnceForAllAndKeepsTheList)
{
    for (const auto& id : {u"work/a"_s, u"Work/b"_s, u"Work/a"_s, u"z"_s})
        writeFile(id, "[Desktop Entry]\nType=Application\nExec=true\nName=" + id.right(1).toUtf8());
    ShortcutRunner runner(std::make_shared<DesktopShortcutsService>());
    EXPECT_TRUE(runner.isAvailable());
    QStringList answers;
    const auto load = [&](const QString& name) {
        runner.loadShortcuts([&answers, name](const std::vector<Shortcut>& shortcuts) {
            QStringList ids{name};
            for (const auto& shortcut : shortcuts)
                ids << shortcut.id;
            answers << ids.join(u' ');
        });
    };
    const auto all = u" z Work/a Work/b work/a"_s;
    load(u"1"_s);
    load(u"2"_s);
    EXPECT_TRUE(answers.isEmpty());
    EXPECT_TRUE(waitFor([&] { return answers.size() == 2; }));
    writeEntry(u"new"_s, "Exec=true");
    load(u"3"_s);
    EXPECT_EQ(answers, (QStringList{u"1"_s + all, u"2"_s + all, u"3"_s + all})) << "the list was known";

    QDir(path({})).removeRecursively();
    runner.clearCache();
    for (const auto& expected : {u"4"_s, u"5"_s}) { // an empty list counts as not known
        load(expected);
        EXPECT_NE(answers.back(), expected);
        EXPECT_TRUE(waitFor([&] { return answers.back() == expected; }));
    }
}

TEST_F(ShortcutsTest, TheRunnerRunsInOrderAndMayEndMeanwhile)
{
    writeEntry(u"slow"_s, R"(Exec=sh -c "sleep 0.2; cat >> \\"\\$XDG_DATA_HOME/log\\"")");
    writeEntry(u"fast"_s, R"(Exec=sh -c "cat >> \\"\\$XDG_DATA_HOME/log\\"")");
    writeEntry(u"gate"_s,
        R"(Exec=sh -c "cat \\"\\$XDG_DATA_HOME/gate\\" >> \\"\\$XDG_DATA_HOME/log\\"; echo; echo")");
    const QByteArray gate = makeGate();
    auto runner = std::make_unique<ShortcutRunner>(std::make_shared<DesktopShortcutsService>());
    runner->run(std::vector<ShortcutRunner::Action>{
        {u"slow"_s, u"1"_s}, {u"missing"_s, u"-"_s}, {u"fast"_s, u"2"_s}, {u"fast"_s, {}}, {u"gate"_s, {}}});
    runner->run(ShortcutRunner::Action{u"fast"_s, u"never"_s});
    const int opened = openGate(gate);
    EXPECT_EQ(contentOf(u"log"_s), "12");
    runner.reset(); // must not wait for the program
    EXPECT_EQ(::write(opened, "end", 3), 3);
    ::close(opened);
    EXPECT_TRUE(waitFor([&] { return contentOf(u"log"_s) == "12end"; }));
}
