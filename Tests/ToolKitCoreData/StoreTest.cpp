// SPDX-License-Identifier: MIT
#include "ToolKitCoreData/TestStore.h"

#include <limits>

using namespace Qt::StringLiterals;
using namespace quor::toolkit;
using quor::platform::dateFromSeconds;

namespace quor::test {
namespace {

TEST_F(StoreTest, KeepsEveryValueThatItTakes)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const QString nul = u"a\0b"_s;
    const std::vector<std::pair<QString, AttributeValue>> kept{{u"name"_s, nul}, {u"name"_s, u""_s},
        {u"name"_s, u"'; DROP TABLE Task; --\"🎂"_s}, {u"name"_s, {}},
        {u"count"_s, std::numeric_limits<qint64>::min()}, {u"rate"_s, -infinity}, {u"rate"_s, 0.1},
        {u"photo"_s, QByteArray("\0\xFF", 2)}, {u"photo"_s, QByteArray()},
        {u"photo"_s, QByteArray(50'000'000, 'x')}, {u"due"_s, dateFromSeconds(-1e12 + 0.25)},
        {u"isDone"_s, true}, {u"isDone"_s, false}};
    auto context = open();
    for (const auto& [key, value] : kept)
        EXPECT_TRUE(context->insertObject<Task>().setValue(value, key));
    ASSERT_TRUE(context->save());
    const auto reopened = open();
    const auto tasks = reopened->fetch<Task>();
    ASSERT_EQ(tasks.size(), kept.size());
    for (std::size_t i = 0; i < kept.size(); ++i)
        EXPECT_EQ(tasks[i].value(kept[i].first), kept[i].second) << i;
    EXPECT_TRUE(reopened->fetchFirst<Task>(Predicate(u"name = %@", {nul}))) << "compared including NUL";

    auto task = context->insertObject<Task>();
    EXPECT_TRUE(task.setValue(7, u"rate")) << "integers become reals";
    EXPECT_EQ(task.value<double>(u"rate"), 7);
    for (const auto& [key, value] : std::vector<std::pair<QString, AttributeValue>>{{u"count"_s, 0.5},
             {u"count"_s, u"1"_s}, {u"name"_s, QByteArray("x")}, {u"name"_s, QString(QChar(0xD800))},
             {u"Name"_s, u"x"_s}, {u"rate"_s, std::nan("")}, {u"due"_s, dateFromSeconds(std::nan(""))},
             {u"isDone"_s, 2}, {u"$id"_s, 1}})
        EXPECT_FALSE(task.setValue(value, key)) << key.toStdString() << value.index();
}

TEST_F(StoreTest, FindsByPredicatesWithPendingChangesAsIfTheyWereSaved)
{
    using Case = std::pair<Predicate, QStringList>;
    const std::vector<AttributeValue> manyNames(1000, AttributeValue(u"b"_s));
    const auto deep = [](int levels) {
        return QString(u"!("_s).repeated(levels) + u"count=%@"_s + QString(levels, u')');
    };
    const std::vector<Case> cases{
        {Predicate(u"count >= %@ && count<%@", {2, 4.5}), {u"b"_s, u"c"_s, u"B%_"_s}},
        {Predicate(u"name contains %@ OR NOT (count < %@)", {u"%_"_s, 5}), {u"B%_"_s, u"-"_s}},
        {Predicate(u"name == %@", {AttributeValue()}), {u"-"_s}},
        {Predicate(u"name <> %@ AND %K != %@", {u"a"_s, u"count"_s, 2}), {u"c"_s, u"B%_"_s, u"-"_s}},
        {Predicate(u"!(name > %@)", {u"a"_s}), {u"a"_s, u"B%_"_s, u"-"_s}},
        {Predicate(u"name BEGINSWITH %@", {u"b"_s}), {u"b"_s}},
        {Predicate(u"name IN %@", {QStringList()}), {}},
        {Predicate(u"name IN %@ OR count IN %@", {manyNames, std::vector<AttributeValue>{1, 1}}),
            {u"a"_s, u"b"_s}},
        {Predicate::all({}), {u"a"_s, u"b"_s, u"c"_s, u"B%_"_s, u"-"_s}}, {Predicate::any({}), {}},
        {Predicate::all({Predicate(u"count=%@ or count=%@", {1, 3}), Predicate(u"count>%@", {1})}), {u"c"_s}},
        {Predicate(u"name IN %@", {std::vector<AttributeValue>{{}, u"c"_s}}), {u"c"_s, u"-"_s}},
        {Predicate::any(std::vector(1500, Predicate(u"count=%@", {3}))), {u"c"_s}},
        {Predicate(deep(20), {2}), {u"b"_s}},
        // Invalid predicates find nothing.
        {Predicate(deep(21), {2}), {}}, {Predicate(u""), {}}, {Predicate(u"name"), {}},
        {Predicate(u"name == a"), {}}, {Predicate(u"name == %@ count", {1}), {}},
        {Predicate(u"(count == %@", {1}), {}}, {Predicate(u"count == %@"), {}},
        {Predicate(u"count == %@", {1, 2}), {}}, {Predicate(u"count IN %@", {1}), {}},
        {Predicate(u"count == %@", {QStringList{u"1"_s}}), {}}, {Predicate(u"none == %@", {1}), {}},
        {Predicate(u"count == %@", {u"1"_s}), {}}, {Predicate(u"1=1 OR count == %@", {1}), {}},
        {Predicate(u"rate == %@", {std::nan("")}), {}},
        {Predicate(u"name != %@", {QString(QChar(0xD800))}), {}}, {Predicate(u"count CONTAINS %@", {1}), {}},
        {Predicate(u"\"count\" == %@", {1}), {}}};
    auto context = open();
    const auto agree = [&](const char* when) {
        int number = 0;
        for (const auto& [predicate, expected] : cases) {
            EXPECT_EQ(names(context->fetch<Task>(predicate)), expected) << when << number;
            EXPECT_EQ(context->count<Task>(predicate), expected.size()) << when << number++;
        }
    };
    // Records that are saved and then deleted, edited, edited back, and inserted.
    add(*context, u"0"_s, u"a"_s, 2);
    Task edited = add(*context, u"1"_s, u"z"_s, 1);
    add(*context, u"2"_s, u"b"_s, 2);
    const Task deleted = add(*context, u"3"_s, u"b"_s, 2);
    Task turned = add(*context, u"4"_s, u"c"_s, 3);
    ASSERT_TRUE(context->save());
    context->deleteObject(deleted);
    context->deleteObject(context->fetch<Task>().front());
    edited.setValue(u"a"_s, u"name");
    turned.setValue(u"x"_s, u"name");
    EXPECT_EQ(context->count<Task>(Predicate(u"name = %@", {u"x"_s})), 1);
    turned.setValue(u"c"_s, u"name");
    EXPECT_FALSE(turned.hasChanges());
    add(*context, u"5"_s, u"B%_"_s, 4);
    Task nameless = add(*context, u"6"_s, {}, 5);
    nameless.setValue({}, u"name");
    context->deleteObject(add(*context, u"7"_s, u"b"_s, 2));
    agree("pending ");
    EXPECT_EQ(context->insertedObjects().size(), 2U);
    EXPECT_EQ(context->deletedObjects().size(), 2U);
    EXPECT_EQ(context->updatedObjects(), std::vector<ManagedObject>{edited});
    EXPECT_EQ(edited.changedKeys(), QStringList{u"name"_s});

    const std::vector<SortDescriptor> order{{u"name"_s, false}, {u"count"_s}};
    const auto sorted = [&] { return names(context->fetch<Task>(std::nullopt, order, 3)); };
    EXPECT_EQ(sorted(), (QStringList{u"c"_s, u"b"_s, u"a"_s}));
    ASSERT_TRUE(context->save());
    EXPECT_FALSE(context->hasChanges());
    agree("saved ");
    EXPECT_EQ(sorted(), (QStringList{u"c"_s, u"b"_s, u"a"_s}));
    EXPECT_EQ(context->fetch<Task>(std::nullopt, {}, 0).size(), 5U) << "no limit";
    EXPECT_EQ(context->fetch<Task>(std::nullopt, {{u"none"_s}}).size(), 0U);
    StoreError error;
    EXPECT_FALSE(context->execute({u"Nobody"_s}, &error));
    EXPECT_EQ(error.kind, StoreError::Kind::invalidRequest);
}

TEST_F(StoreTest, RollsBackToWhatWasSaved)
{
    auto context = open();
    Task task = add(*context, u"1"_s, u"a"_s);
    ASSERT_TRUE(context->save());
    Task other = add(*context, u"2"_s);
    task.setValue(u"b"_s, u"name");
    EXPECT_TRUE(context->deleteObject(task));
    EXPECT_TRUE(task.isDeleted());
    EXPECT_FALSE(context->deleteObject(task));
    EXPECT_FALSE(task.setValue(u"c"_s, u"name")) << "a deleted record cannot be changed";
    EXPECT_EQ(context->count<Task>(), 1);
    context->rollback();
    EXPECT_FALSE(context->hasChanges() || task.isDeleted() || task.hasChanges());
    EXPECT_EQ(task.name(), u"a"_s);
    EXPECT_TRUE(other.isDeleted() && !other.setValue(u"x"_s, u"name"));
    EXPECT_EQ(names(context->fetch<Task>()), QStringList{u"a"_s});

    context.reset();
    EXPECT_EQ(task.name(), u"a"_s) << "a handle may outlive its context";
    EXPECT_FALSE(task.isAttached() || task.setValue(u"c"_s, u"name"));
    Task plain;
    EXPECT_TRUE(plain.setValue(1, u"anything") && plain.value<qint64>(u"anything") == 1);
    EXPECT_FALSE(open()->deleteObject(plain) || open()->deleteObject(task));
}

TEST_F(StoreTest, NeverReusesAnIdentity)
{
    auto context = open();
    const Task first = add(*context, u"1"_s, u"a"_s);
    const Task second = add(*context, u"2"_s, u"b"_s);
    EXPECT_TRUE(first.objectID().isTemporaryID());
    EXPECT_LT(first.objectID().URIRepresentation(), second.objectID().URIRepresentation());
    EXPECT_EQ(context->existingObject(second.objectID()), second);
    const auto before = second.objectID();
    ASSERT_TRUE(context->save());
    EXPECT_LT(before.URIRepresentation(), first.objectID().URIRepresentation())
        << "temporary identities sort first";
    EXPECT_FALSE(context->existingObject(before));
    EXPECT_EQ(context->fetchObject<Task>(u"2"_s), second) << "one handle for one record";
    const QString uri = second.objectID().URIRepresentation();
    EXPECT_TRUE(uri.startsWith(u"x-quor-store://"_s) && uri.endsWith(u"/Task/p2"_s)) << uri.toStdString();
    ASSERT_EQ(context->objectID(uri), second.objectID());
    EXPECT_EQ(context->existingObject(second.objectID()), second);
    for (const QString& wrong :
        {u""_s, u"/"_s, uri + u'x', uri.chopped(1), uri.chopped(1) + u"02"_s, before.URIRepresentation()})
        EXPECT_FALSE(context->objectID(wrong)) << wrong.toStdString();

    context->deleteObject(second);
    EXPECT_FALSE(context->existingObject(second.objectID()));
    ASSERT_TRUE(context->save());
    context = open();
    EXPECT_FALSE(context->existingObject(*context->objectID(uri)));
    const Task third = add(*context, u"3"_s);
    ASSERT_TRUE(context->save());
    EXPECT_TRUE(third.objectID().URIRepresentation().endsWith(u"/p3"_s)) << "numbers are not used again";
}

} // namespace
} // namespace quor::test
