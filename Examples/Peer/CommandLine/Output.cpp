// SPDX-License-Identifier: MIT
#include "Peer/CommandLine/Output.h"

#include <cstdio>

using namespace Qt::StringLiterals;

namespace quor::peer {

namespace {

void write(const QString& text, std::FILE* file)
{
    const QByteArray bytes = text.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), file);
    std::fflush(file);
}

} // namespace

void print(const QString& line)
{
    write(line, stdout);
}

void printError(const QString& message)
{
    write(u"quor-peer: "_s + message, stderr);
}

} // namespace quor::peer
