// SPDX-License-Identifier: MIT
// Renders a Markdown text as HTML, or lists its tree of elements:
//     quor-markdown README.md >readme.html
//     echo '- [x] *done*' | quor-markdown --tree
// Exits with 0, with 1 if reading or writing failed, with 2 if the arguments are wrong.
#include "Listing.h"

#include <Markdown/Document.h>
#include <ToolKit/Markdown/MarkdownToHTMLVisitor.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

using namespace quor;
using namespace Qt::StringLiterals;

namespace {

constexpr int failed = 1;
constexpr int misused = 2;

int complain(int code, const QString& text)
{
    std::fprintf(stderr, "quor-markdown: %s\n", text.toLocal8Bit().constData());
    return code;
}

/// A file that is opened while a standard stream is closed gets that stream's descriptor. This function opens
/// something first that cannot be read or written, so that using the stream fails.
void fillClosedStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(stream, F_GETFD) < 0)
            (void)::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
}

std::optional<QByteArray> contents(const QString& path)
{
    QFile file(path);
    const bool isStandard = path == u"-";
    const bool isOpen = isStandard ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    const QByteArray text = isOpen ? file.readAll() : QByteArray();
    if (file.error() == QFileDevice::NoError)
        return text;
    complain(failed, (isStandard ? u"standard input"_s : path) + u": "_s + file.errorString());
    return std::nullopt;
}

bool write(const QByteArray& output)
{
    const auto size = static_cast<std::size_t>(output.size());
    if (std::fwrite(output.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0)
        return true;
    std::perror("quor-markdown");
    return false;
}

} // namespace

int main(int argc, char** argv)
{
    fillClosedStreams();
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Renders a Markdown text in UTF-8 as HTML, or lists its tree of elements. Nothing is escaped: "
        "HTML in the text stays HTML. Exits with 0; with 1 if reading or writing failed; with 2 if the "
        "arguments are wrong."_s);
    const QCommandLineOption tree(u"tree"_s, u"List the tree, one element on each line, instead of HTML."_s);
    const QCommandLineOption straight(u"straight"_s, u"Keep straight quotes, dashes and dots."_s);
    const QCommandLineOption help({u"h"_s, u"help"_s}, u"Shows this help."_s);
    parser.addOptions({tree, straight, help});
    parser.addPositionalArgument(
        u"file"_s, u"The file to read; standard input if it is missing or \"-\"."_s, u"[file]"_s);
    if (!parser.parse(application.arguments()))
        return complain(misused, parser.errorText());
    if (parser.isSet(help))
        parser.showHelp();
    const QStringList files = parser.positionalArguments();
    if (files.size() > 1)
        return complain(misused, u"more than one file given; see --help"_s);
    const auto text = contents(files.value(0, u"-"_s));
    if (!text)
        return failed;
    markdown::ParseOptions options;
    options.setFlag(markdown::ParseOption::disableSmartOptions, parser.isSet(straight));
    const markdown::Document document(QByteArrayView(*text), {}, options);
    const QByteArray output = parser.isSet(tree)
        ? listing(document)
        : toolkit::MarkdownToHTMLVisitor().visit(document).toUtf8() + '\n';
    return write(output) ? 0 : failed;
}
