// SPDX-License-Identifier: MIT
#include "Platform/Resources/Bundle.h"

#include "Platform/Resources/LocalizedTexts.h"

#include <QCache>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QImageReader>
#include <QJsonObject>
#include <QStringList>

#include <mutex>
#include <utility>

using namespace Qt::StringLiterals;

// Only programs that were linked with an installed kit define it (cmake/InstalledBundles.cpp.in).
extern "C" [[gnu::weak]] const char quorInstalledBundles[];

namespace quor::platform {

namespace {

using Colors = QHash<QString, DynamicColor>;

// In bytes. The overhead bounds the number of missing images in the cache, whose names can come from other
// processes.
constexpr qsizetype imageCacheSize = qsizetype(4) << 20;
constexpr qsizetype imageOverhead = 256;

struct ImageKey {
    QString name;
    QSizeF size;
    qreal devicePixelRatio = 1;

    friend bool operator==(const ImageKey&, const ImageKey&) = default;
    friend size_t qHash(const ImageKey& key, size_t seed = 0)
    {
        return qHashMulti(seed, key.name, key.size.width(), key.size.height(), key.devicePixelRatio);
    }
};

QStringList dataFolders()
{
    QStringList folders;
    if (QCoreApplication::instance())
        folders += QCoreApplication::applicationDirPath() + "/../share/quor"_L1;
    if (quorInstalledBundles)
        folders += QFile::decodeName(quorInstalledBundles);
    folders += QStringLiteral(QUOR_DATA_DIR);
    const QString shared = qEnvironmentVariable("XDG_DATA_DIRS");
    for (const auto& folder :
        (shared.isEmpty() ? u"/usr/local/share:/usr/share"_s : shared).split(u':', Qt::SkipEmptyParts))
        folders += folder + "/quor"_L1;
    return folders;
}

std::optional<QColor> colorOf(const QJsonValue& value)
{
    const QString text = value.toString();
    if (text.size() != 7 || text.front() != u'#' || !QColor::isValidColor(text))
        return std::nullopt;
    return QColor(text);
}

Colors readColors(const QString& path)
{
    Colors colors;
    const QJsonObject entries = readJsonObject(path);
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        const auto light = colorOf(entry->toObject().value("light"_L1));
        const auto dark = colorOf(entry->toObject().value("dark"_L1));
        if (light && dark)
            colors.insert(entry.key(), {*light, *dark});
    }
    return colors;
}

// The reader scales, not the caller, so that vector images stay crisp.
QImage readImage(const QString& path, QSizeF size, qreal devicePixelRatio)
{
    QImageReader reader(path);
    const QSizeF own = reader.size();
    const QSizeF shown = size.isEmpty() ? own : own.scaled(size, Qt::KeepAspectRatio);
    reader.setScaledSize((shown * devicePixelRatio).toSize().expandedTo(QSize(1, 1)));
    QImage image = reader.read();
    image.setDevicePixelRatio(devicePixelRatio);
    return image;
}

} // namespace

class Bundle::Contents {
public:
    explicit Contents(QString folder)
        : path(std::move(folder))
        , texts_(path)
    {
    }

    LocalizedTexts::Text text(const QString& key)
    {
        const std::lock_guard lock(mutex_);
        return texts_.text(key);
    }

    std::optional<DynamicColor> color(const QString& name)
    {
        const std::lock_guard lock(mutex_);
        if (!colors_)
            colors_ = readColors(path + "/Colors.json"_L1);
        const auto found = colors_->constFind(name);
        return found == colors_->constEnd() ? std::nullopt : std::optional(*found);
    }

    QImage image(const ImageKey& key)
    {
        const std::lock_guard lock(mutex_);
        if (const QImage* kept = images_.object(key))
            return *kept;
        const QString base = path + "/Images/"_L1 + key.name;
        QImage image;
        for (const auto suffix : {".svg"_L1, ".png"_L1}) {
            // Checked first, since a reader of a missing file tries every format that it knows.
            if (image.isNull() && QFile::exists(base + suffix))
                image = readImage(base + suffix, key.size, key.devicePixelRatio);
        }
        images_.insert(key, new QImage(image), image.sizeInBytes() + imageOverhead);
        return image;
    }

    const QString path;

private:
    std::mutex mutex_;
    LocalizedTexts texts_;
    std::optional<Colors> colors_;
    QCache<ImageKey, QImage> images_{imageCacheSize};
};

Bundle::Bundle(const QString& folder)
    : contents_(std::make_shared<Contents>(folder))
{
}

Bundle Bundle::named(const QString& name)
{
    for (const auto& folder : dataFolders()) {
        const QFileInfo candidate(folder + u'/' + name + ".bundle"_L1);
        if (candidate.isDir())
            return Bundle(candidate.canonicalFilePath());
    }
    return Bundle({});
}

Bundle Bundle::required(const QString& name)
{
    Bundle bundle = named(name);
    if (bundle.path().isEmpty())
        qFatal("unable to find bundle named %s", qUtf8Printable(name));
    return bundle;
}

Bundle Bundle::main()
{
    if (!QCoreApplication::instance())
        return Bundle({});
    static const Bundle bundle = named(QFileInfo(QCoreApplication::applicationFilePath()).fileName());
    return bundle;
}

const QString& Bundle::path() const
{
    return contents_->path;
}

QString Bundle::localizedString(const QString& key) const
{
    return contents_->text(key).string;
}

QString Bundle::localizedString(const QString& key, const std::vector<Argument>& arguments) const
{
    return formatMessage(contents_->text(key), arguments);
}

QImage Bundle::image(const QString& name, QSizeF size, qreal devicePixelRatio) const
{
    if (path().isEmpty() || name.contains(u'/') || !(devicePixelRatio > 0))
        return {};
    return contents_->image({name, size, devicePixelRatio});
}

std::optional<DynamicColor> Bundle::color(const QString& name) const
{
    if (path().isEmpty())
        return std::nullopt;
    return contents_->color(name);
}

} // namespace quor::platform
