// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/ManagedObjectContext.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <sqlite3.h>

namespace quor::test {

/// A record class with an attribute of every type.
class Task : public toolkit::ManagedObject {
public:
    [[nodiscard]] QString name() const { return value<QString>(u"name").value_or(QStringLiteral("-")); }
};

inline std::vector<toolkit::EntityDescription> taskModel()
{
    using enum toolkit::AttributeType;
    return {toolkit::EntityDescription::of<Task>({{QStringLiteral("uniqueID"), text},
        {QStringLiteral("name"), text}, {QStringLiteral("count"), integer}, {QStringLiteral("rate"), real},
        {QStringLiteral("photo"), data}, {QStringLiteral("due"), date},
        {QStringLiteral("isDone"), boolean}})};
}

/// A folder with one store, which any number of contexts can open.
class StoreTest : public testing::Test {
protected:
    using Context = toolkit::ManagedObjectContext;

    [[nodiscard]] QString path() const { return folder_.filePath(QStringLiteral("it's a \"store\"?%41")); }
    [[nodiscard]] std::unique_ptr<Context> open(
        std::chrono::milliseconds busyTimeout = std::chrono::seconds(20)) const
    {
        auto context = std::make_unique<Context>(path(), taskModel(), busyTimeout);
        EXPECT_EQ(context->openError() ? context->openError()->description : QString(), QString());
        return context;
    }
    static Task add(Context& context, const QString& identifier, const QString& name = {}, qint64 count = 0)
    {
        auto task = context.insertObject<Task>();
        EXPECT_TRUE(task.setValue(identifier, u"uniqueID") && task.setValue(name, u"name")
            && task.setValue(count, u"count"));
        return task;
    }
    static QStringList names(const std::vector<Task>& tasks)
    {
        QStringList names;
        for (const Task& task : tasks)
            names += task.name();
        return names;
    }
    /// Runs SQL on the file, as another program.
    int run(const char* sql) const
    {
        sqlite3* database = nullptr;
        sqlite3_open(path().toUtf8().constData(), &database);
        sqlite3_busy_timeout(database, 5000);
        const int result = sqlite3_exec(database, sql, nullptr, nullptr, nullptr);
        sqlite3_close(database);
        return result;
    }

    QTemporaryDir folder_;
};

} // namespace quor::test
