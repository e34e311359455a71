// SPDX-License-Identifier: MIT
#include "Support/TestLog.h"
#include "ToolKitCoreData/TestStore.h"

using namespace Qt::StringLiterals;
using namespace quor::toolkit;

namespace quor::test {
namespace {

class Unknown : public ManagedObject { };

class StoreHelpersTest : public StoreTest {
protected:
    /// The lines since the last call, without time and line number.
    [[nodiscard]] QString logged()
    {
        const QString all = QString::fromUtf8(log_.text());
        QString text;
        for (const QString& line : all.sliced(seen_).split(u'\n', Qt::SkipEmptyParts))
            text += line.section(u": "_s, 1, 1).section(u':', 0, 0) + u'|' + line.section(u": "_s, 2) + u'\n';
        seen_ = all.size();
        return text;
    }

private:
    const TestLog log_;
    qsizetype seen_ = 0;
};

TEST_F(StoreHelpersTest, FindsOrInsertsASingleton)
{
    auto context = open();
    const auto made = context->fetchSingleton<Task>(u"one"_s);
    EXPECT_TRUE(made.isInserted());
    EXPECT_EQ(made.value<QString>(u"uniqueID"), u"one"_s);
    EXPECT_EQ(context->fetchSingleton<Task>(u"one"_s), made) << "before it is saved";
    ASSERT_TRUE(context->save());
    EXPECT_EQ(context->fetchSingleton<Task>(u"one"_s), made);
    EXPECT_EQ(context->fetchSingleton<Task>(), made) << "without an identifier, any record of the class";
    context->deleteObject(made);
    EXPECT_TRUE(isEmpty(context->fetchSingleton<Task>().value(u"uniqueID")));
    EXPECT_EQ(context->count<Task>(), 1);
    EXPECT_EQ(logged(), QString());
}

TEST_F(StoreHelpersTest, KeepsTheDuplicateWithTheLastIdentity)
{
    auto context = open();
    for (int i = 1; i <= 11; ++i)
        add(*context, i < 9 ? u"other"_s : u"twin"_s, QString::number(i));
    ASSERT_TRUE(context->save());
    for (int again = 0; again < 2; ++again) {
        EXPECT_EQ(context->fetchSingleton<Task>(u"twin"_s).name(), u"9"_s) << "p9 sorts after p11";
        context->rollback();
    }
    (void)logged();
    const Task unsaved = add(*context, u"twin"_s, u"unsaved"_s);
    EXPECT_EQ(context->fetchSingleton<Task>(u"twin"_s).name(), u"9"_s);
    EXPECT_TRUE(unsaved.isDeleted());
    EXPECT_EQ(logged(),
        u"ManagedObjectContext.fetchSingleton|found duplicates for: quor::test::Task, twin deleting\n"_s);
    EXPECT_EQ(open()->fetchObjects<Task>({u"twin"_s}).size(), 3U) << "the repair is not saved";
    EXPECT_EQ(context->fetchSingleton<Task>(u"twin"_s).name(), u"9"_s);
    EXPECT_EQ(logged(), QString());
    ASSERT_TRUE(context->save());
    EXPECT_EQ(names(open()->fetchObjects<Task>({u"twin"_s})), QStringList{u"9"_s});
    (void)context->fetchSingleton<Task>();
    EXPECT_EQ(logged(),
        u"ManagedObjectContext.fetchSingleton|found duplicates for: quor::test::Task, nil deleting\n"_s);
}

TEST_F(StoreHelpersTest, FetchesByIdentifierAndReturnsNothingForUnknownEntities)
{
    auto context = open();
    add(*context, u"a"_s, u"A"_s);
    add(*context, u"b"_s, u"B"_s);
    add(*context, u"b"_s, u"B"_s);
    EXPECT_EQ(names(context->fetchObjects<Task>({u"b"_s, u"none"_s, u"b"_s})), (QStringList{u"B"_s, u"B"_s}));
    EXPECT_TRUE(context->fetchObjects<Task>({}).empty());
    EXPECT_EQ(context->fetchObject<Task>(u"a"_s)->name(), u"A"_s);
    EXPECT_FALSE(context->fetchObject<Task>(u"A"_s));
    EXPECT_EQ(recordOf<Task>(*context->fetchObject(u"Task"_s, u"a"_s)).name(), u"A"_s);
    EXPECT_EQ(context->fetchObjects(u"Task"_s, std::nullopt, 2).size(), 2U);
    EXPECT_EQ(context->fetch<Task>(FetchRequest{u"Task"_s}).size(), 3U);

    for (const QString& name : {u"Unknown"_s, u"task"_s, u""_s, u"$store"_s}) {
        EXPECT_FALSE(context->fetchObject(name, u"a"_s)) << name.toStdString();
        EXPECT_TRUE(context->fetchObjects(name).empty() && !context->insertObject(name).isAttached());
    }
    EXPECT_FALSE(context->fetchSingleton<Task>(QString(QChar(0xDC00))).isAttached())
        << "this text is not storable";
    EXPECT_TRUE(context->fetch<Unknown>().empty() && context->count<Unknown>() == 0);
    auto plain = context->fetchSingleton<Unknown>(u"x"_s);
    EXPECT_FALSE(plain.isAttached() || !isEmpty(plain.value(u"uniqueID")));
    EXPECT_EQ(context->insertedObjects().size(), 3U);

    for (const AttributeDescription& attribute :
        {AttributeDescription{u"name"_s}, AttributeDescription{u"uniqueID"_s, AttributeType::integer}}) {
        Context nameless(folder_.filePath(attribute.name), {EntityDescription::of<Task>({attribute})});
        EXPECT_FALSE(nameless.fetchSingleton<Task>(u"1"_s).isAttached() || nameless.hasChanges());
        EXPECT_TRUE(nameless.fetchSingleton<Task>().isAttached());
    }
}

} // namespace
} // namespace quor::test
