// SPDX-License-Identifier: MIT
// Counts in a file how often each task was worked on:
//     example-store tasks.store "Design" "Write report"
#include <ToolKit/CoreData/ManagedObjectContext.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTextStream>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;

// A record class has accessors for the attributes. Its name is the name of its entity.
class Task : public ManagedObject {
public:
    QString name() const { return value<QString>(u"name").value_or(QString()); }
    void setName(const QString& name) { setValue(name, u"name"); }
    qint64 runs() const { return value<qint64>(u"runs").value_or(0); }
    void setRuns(qint64 runs) { setValue(runs, u"runs"); }
};

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Counts in a file how often each task was worked on."_s);
    parser.addHelpOption();
    parser.addPositionalArgument(
        u"file"_s, u"The store, created if it is missing; a temporary one by default."_s, u"[file"_s);
    parser.addPositionalArgument(u"task"_s, u"The name of a task that was worked on."_s, u"[task...]]"_s);
    parser.process(application);
    const QStringList arguments = parser.positionalArguments();
    const QString path = arguments.value(0, folder.filePath(u"tasks.store"_s));
    const QStringList names = arguments.size() > 1 ? arguments.mid(1) : QStringList{u"Design"_s, u"Travel"_s};
    QTextStream out(stdout);

    // The entities are declared in code. Attributes that an older file lacks are added to it.
    ManagedObjectContext context(path,
        {EntityDescription::of<Task>({
            {u"uniqueID"_s, AttributeType::text},
            {u"name"_s, AttributeType::text},
            {u"runs"_s, AttributeType::integer},
        })});
    if (context.openError()) {
        QTextStream(stderr) << path << ": " << context.openError()->description << '\n';
        return 1;
    }

    // One record for each identifier, found or inserted. Operations that belong together are one block.
    context.performBlockAndWait([&] {
        for (const QString& name : names) {
            auto task = context.fetchSingleton<Task>(name.toCaseFolded());
            task.setName(name);
            task.setRuns(task.runs() + 1);
        }
    });

    // Fetches see changes that are not saved yet. Values are arguments, never parts of the format.
    const Predicate often(u"runs >= %@ AND NOT (name BEGINSWITH %@)", {1, u"_"_s});
    for (const Task& task : context.fetch<Task>(often, {{u"runs"_s, false}, {u"name"_s}}, 10))
        out << task.runs() << " × " << task.name() << (task.isInserted() ? ", new\n" : "\n");

    // Only a save writes to the file: all changes or, if it fails, none, and then they are still pending.
    if (const SaveOutcome outcome = context.save(); !outcome) {
        QTextStream(stderr) << "not saved: " << outcome.error->description << '\n';
        return 1;
    }
    if (const auto first = context.fetchFirst<Task>())
        out << "the first of " << context.count<Task>() << ": " << first->objectID().URIRepresentation()
            << '\n';
    return 0;
}
