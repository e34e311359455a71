// SPDX-License-Identifier: MIT
#include "Platform/Linux/Applications/DesktopShortcutsService.h"

#include "Platform/Files/FileContents.h"
#include "Platform/Files/Folder.h"
#include "Platform/Linux/Applications/ChildProcess.h"
#include "Platform/Linux/Applications/DesktopEntry.h"
#include "Platform/Preferences/DataHome.h"

#include <QFile>
#include <QProcess>

#include <sys/mman.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quor::platform {

namespace {

constexpr const char* suffix = ".desktop";
constexpr qint64 fileLimit = 262'144;
constexpr qsizetype resultLimit = 1'048'576;
constexpr int depthLimit = 16;
constexpr mode_t folderMode = 0700;

std::optional<QByteArray> shortcutsFolder()
{
    auto folder = dataHome();
    if (folder)
        folder->append("/quor/shortcuts");
    return folder;
}

FileDescriptor openShortcutsFolder()
{
    const auto folder = shortcutsFolder();
    return folder ? openFolder(*folder) : FileDescriptor();
}

bool isText(const QByteArray& name)
{
    return QString::fromUtf8(name).toUtf8() == name;
}

Shortcut shortcutOf(const DesktopEntry& entry, const QByteArray& id)
{
    return {QString::fromUtf8(id), entry.name, entry.comment,
        QString::fromUtf8(id.left(std::max<qsizetype>(id.lastIndexOf('/'), 0)))};
}

std::optional<DesktopEntry> readEntry(
    int folder, const QByteArray& id, const QByteArrayList& locales = messageLocales())
{
    const QByteArray fileName = id.mid(id.lastIndexOf('/') + 1) + suffix;
    const auto content = readFile(fileName, fileLimit, SymbolicLinks::follow, folder);
    if (!content)
        return std::nullopt;
    return DesktopEntry::read(*content, shortcutsFolder().value_or("") + '/' + id + suffix, locales);
}

/// Lists the shortcuts below a folder, the ids of which begin with `prefix`.
class Listing {
public:
    void add(int folder, const QByteArray& prefix, int depth)
    {
        for (const mode_t kind : {S_IFREG, S_IFLNK})
            for (const auto& name : entryNames(folder, kind))
                addFile(folder, prefix, name);
        if (depth == depthLimit)
            return;
        for (const auto& name : entryNames(folder, S_IFDIR)) {
            const auto inner = openFolder(name, SymbolicLinks::refuse, folder);
            if (inner && isText(name))
                add(inner.get(), prefix + name + '/', depth + 1);
        }
    }

    std::vector<Shortcut> found;

private:
    void addFile(int folder, const QByteArray& prefix, const QByteArray& name)
    {
        if (!name.endsWith(suffix) || !isText(name))
            return;
        const QByteArray id = prefix + name.chopped(QByteArrayView(suffix).size());
        if (const auto entry = readEntry(folder, id, locales_))
            found.push_back(shortcutOf(*entry, id));
    }

    QByteArrayList locales_ = messageLocales();
};

/// Finds the entry of the file `id`, unless the listing would leave it out for its place or name.
std::optional<DesktopEntry> entryWithId(const QByteArray& id)
{
    auto folders = id.split('/');
    if (id.contains('\0') || folders.size() > depthLimit + 1)
        return std::nullopt;
    for (const auto& name : folders)
        if (name.isEmpty() || name.startsWith('.'))
            return std::nullopt;
    folders.removeLast();
    auto folder = openShortcutsFolder();
    for (const auto& name : folders)
        if (folder)
            folder = openFolder(name, SymbolicLinks::refuse, folder.get());
    return folder ? readEntry(folder.get(), id) : std::nullopt;
}

/// A file with this content, at its start. A program that does not read it keeps nobody waiting.
FileDescriptor fileWith(const QByteArray& content)
{
    FileDescriptor file(::memfd_create("input", MFD_CLOEXEC));
    if (!file || writeWhole(file.get(), content) || ::lseek(file.get(), 0, SEEK_SET) != 0)
        return {};
    return file;
}

} // namespace

bool DesktopShortcutsService::isAvailable() const
{
    return shortcutsFolder().has_value();
}

std::vector<Shortcut> DesktopShortcutsService::shortcuts() const
{
    Listing listing;
    if (const auto folder = openShortcutsFolder())
        listing.add(folder.get(), {}, 0);
    return listing.found;
}

std::optional<Shortcut> DesktopShortcutsService::shortcutWithId(const QString& id) const
{
    const auto entry = entryWithId(id.toUtf8());
    return entry ? std::optional(shortcutOf(*entry, id.toUtf8())) : std::nullopt;
}

std::optional<QString> DesktopShortcutsService::run(const QString& id, const std::optional<QString>& input)
{
    const auto entry = entryWithId(id.toUtf8());
    if (!entry)
        return std::nullopt;
    const auto inputFile = input ? fileWith(input->toUtf8()) : FileDescriptor();
    auto output = Pipe::make();
    if ((input && !inputFile) || !output.reading)
        return std::nullopt;
    pid_t process = 0;
    const StandardFiles files{inputFile.get(), output.writing.get(), STDERR_FILENO};
    if (startProgram(entry->arguments, files, process, entry->folder))
        return std::nullopt;
    output.writing = FileDescriptor();
    return QString::fromUtf8(outputUntilEnd(process, output.reading, resultLimit));
}

void DesktopShortcutsService::launchApplication()
{
    const auto folder = shortcutsFolder();
    if (folder && !makeFolder(*folder, folderMode))
        QProcess::startDetached(u"xdg-open"_s, {QFile::decodeName(*folder)});
}

} // namespace quor::platform
