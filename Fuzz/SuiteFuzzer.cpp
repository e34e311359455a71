// SPDX-License-Identifier: MIT
// A value file with a name and bytes that another process may have left: read, stored and read again.
#include "Platform/Preferences/UserDefaults.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

using namespace Qt::StringLiterals;
using quor::platform::UserDefaults;

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

/// The suite of one fuzzing process, with nothing else in its data home.
class Suite final {
public:
    Suite() { qputenv("XDG_DATA_HOME", home_.path().toUtf8()); }

    [[nodiscard]] static UserDefaults open() { return UserDefaults::suite(u"suite"_s).value(); }

    [[nodiscard]] QStringList files() const
    {
        constexpr auto everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
        require(QDir(home_.path()).entryList(everything) == QStringList{u"suite"_s});
        return QDir(folder()).entryList(everything);
    }
    [[nodiscard]] QString folder() const { return home_.filePath(u"suite/Preferences"_s); }

private:
    QTemporaryDir home_{u"/dev/shm/SuiteFuzzer-XXXXXX"_s}; // a disk would cost most of the runs
};

void readBytes(const Suite& suite, const QString& key, const QByteArray& bytes)
{
    const UserDefaults defaults = Suite::open();
    const QStringList files = suite.files();
    require(files.size() == 1);
    QFile file(suite.folder() + u'/' + files.front());
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    file.close();

    const auto data = defaults.dataForKey(key);
    const auto string = defaults.stringForKey(key);
    require(!data || "data\n" + *data == bytes);
    require(!string || "string\n" + string->toUtf8() == bytes);
    require(std::isfinite(defaults.doubleForKey(key)));
    (void)defaults.boolForKey(key);
}

void storeAndReadBack(const QString& key, const QByteArray& bytes)
{
    const UserDefaults defaults = Suite::open();
    require(defaults.setObject(bytes, key) && defaults.dataForKey(key) == bytes);

    const QString string(reinterpret_cast<const QChar*>(bytes.constData()), bytes.size() / 2);
    require(defaults.setObject(string, key));
    require(!string.isValidUtf16() || defaults.stringForKey(key) == string);

    double number = 0;
    std::memcpy(&number, bytes.constData(), std::min<std::size_t>(sizeof number, std::size_t(bytes.size())));
    require(defaults.setObject(number, key) == std::isfinite(number));
    require(!std::isfinite(number) || defaults.doubleForKey(key) == number);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    static const Suite suite;
    FuzzedDataProvider input(bytes, size);
    const QString key = QString::fromStdString(input.ConsumeRandomLengthString(100));
    const auto content = input.ConsumeRemainingBytesAsString();

    const UserDefaults defaults = Suite::open();
    if (defaults.setObject(true, key)) {
        readBytes(suite, key, QByteArray::fromStdString(content));
        storeAndReadBack(key, QByteArray::fromStdString(content));
        require(defaults.removeObject(key));
    }
    require(suite.files().isEmpty());
    return 0;
}
