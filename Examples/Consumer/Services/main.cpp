// SPDX-License-Identifier: MIT
// Asks several libraries of the kit for something and prints what they return. Exits with 1 if the kit's
// texts or the program that runs its scripts are not found:
//     services
#include <Markdown/MarkupVisitor.h>
#include <ToolKit/Calendar/Stores/EventStore.h>
#include <ToolKit/CoreData/ManagedObjectContext.h>
#include <ToolKit/Dates/DateOperations.h>
#include <ToolKit/JavaScript/JavaScriptPlugin.h>
#include <ToolKit/Markdown/MarkdownToHTMLVisitor.h>

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTextStream>

using namespace quor;
using namespace quor::toolkit;
using namespace Qt::StringLiterals;

namespace {

class Task : public ManagedObject { };

class HeadingCounter : public markdown::MarkupVisitor<int> {
public:
    int defaultVisit(const markdown::Markup& markup) override
    {
        int count = 0;
        for (const markdown::Markup& child : markup.children())
            count += visit(child);
        return count;
    }
    int visitHeading(const markdown::Heading&) override { return 1; }
};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    QTextStream out(stdout);

    // A text of the kit's own. If it reads "MinutesIn", the kit's bundles were not found.
    const QString now = relativeText(platform::SystemClock().now());
    out << "dates:      " << now << '\n';

    const markdown::Document document(u"# Design\n\n## *Review*");
    out << "markdown:   " << HeadingCounter().visit(document) << " headings in "
        << MarkdownToHTMLVisitor().visit(document) << '\n';

    ManagedObjectContext context(
        folder.filePath(u"tasks.store"_s), {EntityDescription::of<Task>({{u"uniqueID"_s}})});
    (void)context.fetchSingleton<Task>(u"design"_s);
    out << "store:      " << (context.save() ? context.count<Task>() : 0) << " task\n";

    EventStoreOptions options;
    options.root = folder.filePath(u"calendars"_s);
    out << "calendars:  in " << EventStore(options).sources().front().title << '\n';

    JavaScriptPlugin plugin{QUrl::fromLocalFile(folder.path()), {}};
    plugin.timeLimit = std::chrono::seconds(10); // so the kit's program runs the script
    const auto result
        = plugin.execute(u"utils.fileExists('tasks.store') ? hours * 60 : 0"_s, {{u"hours"_s, 2}});
    out << "JavaScript: " << (result ? result->toDouble() : 0) << " minutes\n";
    return now == "MinutesIn"_L1 || !result ? 1 : 0;
}
