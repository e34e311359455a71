// SPDX-License-Identifier: MIT
#include "Support/TinyDisk.h"
#include "ToolKitCoreData/TestStore.h"

#include <QFile>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quor::toolkit;
using namespace std::chrono_literals;
using Kind = quor::toolkit::StoreError::Kind;

namespace quor::test {
namespace {

class StoreFaultsTest : public StoreTest {
protected:
    void put(const QByteArray& content) const
    {
        QFile file(path());
        EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write(content) == content.size());
    }
    static std::optional<Kind> errorOf(
        const QString& path, std::vector<EntityDescription> entities = taskModel())
    {
        Context context(path, std::move(entities), 50ms);
        if (!context.openError())
            return std::nullopt;
        EXPECT_FALSE(context.openError()->description.isEmpty());
        EXPECT_FALSE(context.fetchSingleton<Task>(u"1"_s).isAttached());
        EXPECT_TRUE(context.fetch<Task>().empty() && context.count<Task>() == 0 && !context.entity(u"Task"));
        EXPECT_EQ(context.save().error->kind, context.openError()->kind);
        return context.openError()->kind;
    }
};

TEST_F(StoreFaultsTest, SaysWhyThereIsNoStore)
{
    using Entity = EntityDescription;
    EXPECT_EQ(errorOf({}), Kind::cannotOpen);
    EXPECT_EQ(errorOf(u"a\0b"_s), Kind::cannotOpen);
    EXPECT_EQ(errorOf(folder_.path()), Kind::cannotOpen);
    EXPECT_EQ(errorOf(folder_.filePath(u"none/store"_s)), Kind::cannotOpen);
    const QString pipe = folder_.filePath(u"pipe"_s);
    ASSERT_EQ(::mkfifo(pipe.toUtf8().constData(), 0600), 0);
    EXPECT_EQ(errorOf(pipe), Kind::cannotOpen);
    for (const auto& entities : std::vector<std::vector<Entity>>{{Entity(u""_s, {})}, {Entity(u"$a"_s, {})},
             {Entity(u"sqlite_a"_s, {})}, {Entity(u"A"_s, {}), Entity(u"a"_s, {})}, {Entity(u"a\0b"_s, {})},
             {Entity(u"A"_s, {{u"b"_s}, {u"B"_s}})}, {Entity(u"A"_s, {{u"$id"_s}})}})
        EXPECT_EQ(errorOf(path(), entities), Kind::invalidModel) << entities.front().name().toStdString();
    EXPECT_FALSE(QFile::exists(path())) << "an invalid model creates no file";

    put("not a database, but a text that somebody would miss if it were gone, long enough to be a header");
    EXPECT_EQ(errorOf(path()), Kind::notAStore);
    EXPECT_EQ(QFile(path()).size(), 95) << "the file is not changed";
    QFile::remove(path());
    ASSERT_EQ(run("CREATE TABLE theirs(a)"), SQLITE_OK);
    EXPECT_EQ(errorOf(path()), Kind::notAStore);
    QFile::remove(path());
    EXPECT_EQ(errorOf(path()), std::nullopt);
    struct stat status { };
    ASSERT_EQ(::stat(path().toUtf8().constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);
    ASSERT_EQ(run("PRAGMA user_version = 2"), SQLITE_OK);
    EXPECT_EQ(errorOf(path()), Kind::notAStore) << "of a later version";
}

TEST_F(StoreFaultsTest, KeepsChangesWhileAnotherProcessHoldsTheLock)
{
    auto context = open(10ms);
    Task task = add(*context, u"1"_s, u"a"_s);
    ASSERT_TRUE(context->save());
    sqlite3* database = nullptr;
    sqlite3_open(path().toUtf8().constData(), &database);
    ASSERT_EQ(sqlite3_exec(database, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    task.setValue(u"b"_s, u"name");
    add(*context, u"2"_s);
    EXPECT_EQ(context->save().error->kind, Kind::locked);
    EXPECT_TRUE(task.isUpdated() && context->insertedObjects().size() == 1);
    EXPECT_EQ(context->count<Task>(), 2) << "reading does not wait";
    EXPECT_EQ(errorOf(path()), std::nullopt) << "opening does not wait";
    sqlite3_close(database);
    ASSERT_TRUE(context->save());
    EXPECT_EQ(names(open()->fetch<Task>()), (QStringList{u"b"_s, u""_s}));
}

TEST_F(StoreFaultsTest, KeepsChangesWhileTheDiskIsFull)
{
    auto context = open();
    add(*context, u"1"_s);
    ASSERT_TRUE(context->save());
    add(*context, u"2"_s).setValue(QByteArray(3'000'000, 'x'), u"photo");
    auto* const before = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit low{1'000'000, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &low);
    const auto outcome = context->save();
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, before);
    ASSERT_FALSE(outcome);
    EXPECT_EQ(outcome.error->kind, Kind::full) << outcome.error->description.toStdString();
    EXPECT_EQ(open()->count<Task>(), 1);
    ASSERT_TRUE(context->save());
    EXPECT_EQ(open()->fetchObject<Task>(u"2"_s)->value<QByteArray>(u"photo")->size(), 3'000'000);
}

TEST_F(StoreFaultsTest, OpensAStoreOnAFullDisk)
{
    constexpr int cannotMount = 77;
    const pid_t child = ::fork();
    if (child == 0) {
        if (!mountTinyDisk(folder_.path(), "size=160k"))
            ::_exit(cannotMount);
        add(*open(), u"0"_s); // makes the file, without the record
        {
            auto context = open();
            add(*context, u"1"_s);
            if (!context->save())
                ::_exit(2);
        }
        const QString rest = folder_.filePath(u"rest"_s);
        QFile file(rest);
        (void)file.open(QFile::WriteOnly | QFile::Unbuffered);
        while (file.write(QByteArray(4096, 'x')) > 0) { }
        file.resize(file.size() - 16'384);
        file.close(); // so that its removal makes room
        Context reader(path(), taskModel(), 50ms);
        Context second(path(), taskModel(), 50ms);
        const bool isRead = reader.count<Task>() == 1 && second.count<Task>() == 1;
        add(reader, u"2"_s).setValue(QByteArray(40'000, 'x'), u"photo");
        const auto outcome = reader.save();
        QFile::remove(rest);
        ::_exit(!isRead                                        ? 3
                : outcome || outcome.error->kind != Kind::full ? 4
                : !reader.save()                               ? 5
                : second.count<Task>() != 2                    ? 6
                                                               : 0);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    if (WEXITSTATUS(status) == cannotMount)
        GTEST_SKIP() << "this system does not allow users to mount";
    EXPECT_EQ(status, 0);
}

TEST_F(StoreFaultsTest, ReadsReadOnlyFiles)
{
    add(*open(), u"0"_s);
    auto context = open();
    add(*context, u"1"_s);
    ASSERT_TRUE(context->save());
    context.reset();
    ASSERT_EQ(::chmod(path().toUtf8().constData(), 0444), 0);
    for (const int folderMode : {0777, 0555}) {
        ASSERT_EQ(::chmod(folder_.path().toUtf8().constData(), static_cast<mode_t>(folderMode)), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            if (::geteuid() == 0 && ::seteuid(65534) != 0) // root can write everything
                ::_exit(2);
            Context reader(path(), taskModel());
            const bool isRead = !reader.openError() && reader.count<Task>() == 1;
            add(reader, u"2"_s);
            const auto outcome = reader.save();
            ::_exit(!isRead                                            ? 3
                    : outcome || outcome.error->kind != Kind::readOnly ? 4
                    : reader.hasChanges()                              ? 0
                                                                       : 5);
        }
        int status = -1;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0) << folderMode;
    }
    ::chmod(folder_.path().toUtf8().constData(), 0700);
}

TEST_F(StoreFaultsTest, SurvivesACorruptFile)
{
    auto context = open();
    for (int i = 0; i < 2000; ++i)
        add(*context, QString::number(i), QString(100, u'x'));
    ASSERT_TRUE(context->save());
    context.reset();
    QFile file(path());
    ASSERT_TRUE(file.open(QFile::ReadWrite) && file.seek(20'480));
    file.write(QByteArray(100'000, '\x5A'));
    file.close();
    context = open();
    StoreError error;
    EXPECT_FALSE(context->execute({u"Task"_s}, &error));
    EXPECT_EQ(error.kind, Kind::corrupt) << error.description.toStdString();
    EXPECT_TRUE(context->fetch<Task>().empty());
}

TEST_F(StoreFaultsTest, RefusesToSaveToADamagedOrReplacedFile)
{
    auto context = open(std::chrono::milliseconds::max());
    for (const char* const count : {"NULL", "0", "4611686018427387904", "9223372036854775807", "'x'"}) {
        ASSERT_EQ(run(QByteArray("UPDATE \"$entity\" SET next = ").append(count)), SQLITE_OK);
        add(*context, u"1"_s);
        EXPECT_EQ(context->save().error->kind, Kind::corrupt) << count;
    }
    ASSERT_EQ(run("UPDATE \"$entity\" SET next = 1"), SQLITE_OK);
    for (const bool isReplaced : {false, true}) {
        const QString there = path() + QString::number(isReplaced);
        ASSERT_TRUE(QFile::rename(path(), there) && (!isReplaced || QFile::copy(there, path())));
        EXPECT_EQ(context->save().error->kind, Kind::cannotOpen) << isReplaced;
        QFile::remove(path());
        ASSERT_TRUE(QFile::rename(there, path()));
    }
    EXPECT_TRUE(context->save()) << "the file is back";
    EXPECT_EQ(open()->count<Task>(), 5);
}

TEST_F(StoreFaultsTest, GrowsWithTheEntitiesInCode)
{
    const QString odd = u"a \"b\" 'c'; ?1"_s;
    const auto model = [&](std::vector<AttributeDescription> attributes) {
        return std::vector{EntityDescription(odd, std::move(attributes))};
    };
    {
        Context context(path(), model({{odd}, {u"old"_s}, {u"count"_s, AttributeType::text}}));
        auto object = context.insertObject(odd);
        EXPECT_TRUE(object.setValue(u"o"_s, odd) && object.setValue(u"kept"_s, u"old")
            && object.setValue(u"7"_s, u"count"));
        ASSERT_TRUE(context.save());
    }
    {
        Context context(path(),
            model({{odd, AttributeType::text, true}, {u"count"_s, AttributeType::integer}, {u"new"_s}}));
        ASSERT_FALSE(context.openError()) << context.openError()->description.toStdString();
        auto objects = context.fetchObjects(odd, Predicate(u"%K = %@", {odd, u"o"_s}));
        ASSERT_EQ(objects.size(), 1U);
        EXPECT_TRUE(isEmpty(objects[0].value(u"count"))) << "the text is no integer, and stays in the file";
        EXPECT_TRUE(objects[0].setValue(u"n"_s, u"new"));
        ASSERT_TRUE(context.save());
        EXPECT_EQ(context.objectID(objects[0].objectID().URIRepresentation()), objects[0].objectID());
    }
    Context context(path(), model({{u"old"_s}, {u"NEW"_s}, {u"count"_s}}));
    const auto object = context.fetchObjects(odd).at(0);
    EXPECT_EQ(object.value<QString>(u"old"), u"kept"_s);
    EXPECT_EQ(object.value<QString>(u"NEW"), u"n"_s) << "columns ignore the case of letters";
    EXPECT_EQ(object.value<QString>(u"count"), u"7"_s);
}

} // namespace
} // namespace quor::test
