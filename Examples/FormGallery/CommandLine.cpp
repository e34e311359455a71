// SPDX-License-Identifier: MIT
#include "FormGallery/CommandLine.h"

#include "FormGallery/Page.h"

#include <QCommandLineParser>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace quor::gallery {

namespace {

const auto description
    = u"Shows what forms of the kit look like, a page for each kind.\n\n"
      "With --pictures, writes a picture of each page instead: light and dark, English and "
      "German, at scale 1 and 2, and one from right to left. If QT_SCALE_FACTOR is set, "
      "at that scale only. Needs no display then. Exits with 0; with 1 if there is no "
      "display or a picture cannot be written; with 2 if the arguments are wrong."_s;

constexpr double smallestScale = 0.5, largestScale = 4;

QString pageNames()
{
    QStringList names;
    for (const Page& page : pages())
        names += page.name;
    return names.join(u", "_s);
}

} // namespace

ExitCode complain(ExitCode code, const QString& message)
{
    std::fprintf(stderr, "quor-form-gallery: %s\n", message.toLocal8Bit().constData());
    return code;
}

std::optional<double> scaleFactor()
{
    bool isNumber = false;
    const double factor = qEnvironmentVariable(scaleVariable).toDouble(&isNumber);
    const bool isSensible = isNumber && factor >= smallestScale && factor <= largestScale;
    return isSensible ? std::optional(factor) : std::nullopt;
}

std::optional<ExitCode> checkScale()
{
    if (qEnvironmentVariableIsEmpty(scaleVariable) || scaleFactor())
        return std::nullopt;
    return complain(misused,
        u"%1 is \"%2\", but must be a number from %3 to %4"_s.arg(QLatin1String(scaleVariable),
            qEnvironmentVariable(scaleVariable), QString::number(smallestScale),
            QString::number(largestScale)));
}

ParsedCommandLine parseCommandLine(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(description);
    const QCommandLineOption picturesOption(
        u"pictures"_s, u"Write pictures into this folder, which is made if it is missing."_s, u"folder"_s);
    const QCommandLineOption pageOption(
        u"page"_s, u"Open at this page, or write pictures of it alone: %1."_s.arg(pageNames()), u"name"_s);
    const QCommandLineOption help({u"h"_s, u"help"_s}, u"Shows this help."_s);
    parser.addOptions({picturesOption, pageOption, help});

    const auto misuse = [](const QString& problem) {
        return ParsedCommandLine{{}, complain(misused, problem + u"; see --help"_s)};
    };
    if (!parser.parse(arguments)) {
        QString problem = parser.errorText();
        if (problem.endsWith(u'.'))
            problem.chop(1);
        return misuse(problem);
    }
    if (parser.isSet(help)) {
        std::fputs(parser.helpText().toLocal8Bit().constData(), stdout);
        return {{}, succeeded};
    }
    if (const auto operands = parser.positionalArguments(); !operands.isEmpty())
        return misuse(u"unexpected operand \"%1\""_s.arg(operands.first()));

    for (const auto& option : {picturesOption, pageOption})
        if (parser.values(option).size() > 1)
            return misuse(u"--%1 is given more than once"_s.arg(option.names().constFirst()));

    ParsedCommandLine parsed;
    if (parser.isSet(picturesOption))
        parsed.options.pictures = parser.value(picturesOption);
    if (parsed.options.pictures == u""_s)
        return misuse(u"the name of the folder for pictures is empty"_s);
    if (parser.isSet(pageOption)) {
        const auto found = std::ranges::find(pages(), parser.value(pageOption), &Page::name);
        if (found == pages().end())
            return misuse(u"there is no page \"%1\""_s.arg(parser.value(pageOption)));
        parsed.options.page = &*found;
    }
    return parsed;
}

} // namespace quor::gallery
