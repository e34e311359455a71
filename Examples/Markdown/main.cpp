// SPDX-License-Identifier: MIT
// Renders a Markdown text as HTML, or shows the tree that it is:
//     quor-markdown README.md >readme.html
//     echo '- [x] *done*' | quor-markdown --tree
#include "Listing.h"

#include <Markdown/Document.h>
#include <ToolKit/Markdown/MarkdownToHTMLVisitor.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>

#include <cstdio>

using namespace quor;
using namespace Qt::StringLiterals;

namespace {

std::optional<QByteArray> contents(const QString& path)
{
    QFile file(path);
    const bool isOpen = path == u"-" ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    const QByteArray text = isOpen ? file.readAll() : QByteArray();
    if (file.error() == QFileDevice::NoError)
        return text;
    const QByteArray reason = (path + u": "_s + file.errorString()).toLocal8Bit();
    std::fprintf(stderr, "quor-markdown: %s\n", reason.constData());
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
    const QCoreApplication application(argc, argv);
    QCommandLineParser arguments;
    arguments.setApplicationDescription(u"Renders a Markdown text as HTML."_s);
    arguments.addHelpOption();
    const QCommandLineOption tree(u"tree"_s, u"Show the tree, one element a line, rather than HTML."_s);
    const QCommandLineOption straight(u"straight"_s, u"Keep straight quotes and dashes."_s);
    arguments.addOptions({tree, straight});
    arguments.addPositionalArgument(
        u"file"_s, u"What to read; standard input without it, or for \"-\"."_s, u"[file]"_s);
    arguments.process(application);
    const QStringList files = arguments.positionalArguments();
    if (files.size() > 1) {
        std::fputs("quor-markdown: one file at a time\n", stderr);
        return 2;
    }
    const auto text = contents(files.value(0, u"-"_s));
    if (!text)
        return 1;
    markdown::ParseOptions options;
    options.setFlag(markdown::ParseOption::disableSmartOptions, arguments.isSet(straight));
    const markdown::Document document(QByteArrayView(*text), {}, options);
    const QByteArray output = arguments.isSet(tree)
        ? listing(document)
        : toolkit::MarkdownToHTMLVisitor().visit(document).toUtf8() + '\n';
    return write(output) ? 0 : 1;
}
