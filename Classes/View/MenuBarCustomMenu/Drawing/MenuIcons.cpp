// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/Drawing/MenuIcons.h"

#include "View/MenuBarCustomMenu/MenuResources.h"

#include <QCache>
#include <QIcon>

#include <algorithm>

namespace quor::helper::MenuIcons {

using platform::TemplateImage;

namespace {

constexpr int cacheSize = 128; // icons
constexpr qsizetype longestFileName = 255;

struct Key {
    QString name;
    QString theme;
    int height = 0;
    qreal devicePixelRatio = 1;

    friend bool operator==(const Key&, const Key&) = default;
    friend size_t qHash(const Key& key, size_t seed = 0)
    {
        return qHashMulti(seed, key.name, key.theme, key.height, key.devicePixelRatio);
    }
};

/// Returns whether the name can be that of a file in a folder. Qt warns about other names, and a path would
/// lead out of the folder.
bool isFileName(const QString& name)
{
    const auto isOdd = [](QChar unit) { return unit == u'/' || unit.category() == QChar::Other_Control; };
    return !name.isEmpty() && name.size() <= longestFileName && std::none_of(name.begin(), name.end(), isOdd);
}

bool hasColors(const QImage& image)
{
    constexpr int tolerance = 16;
    // Premultiplied, since rounding distorts the colour of pixels that are nearly transparent.
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < pixels.height(); ++y) {
        const auto* const line = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
        const bool isColored = std::any_of(line, line + pixels.width(), [](QRgb pixel) {
            const auto [least, most] = std::minmax({qRed(pixel), qGreen(pixel), qBlue(pixel)});
            return most - least > tolerance;
        });
        if (isColored)
            return true;
    }
    return false;
}

TemplateImage load(const Key& key)
{
    const QSizeF room(largestAspectRatio * key.height, key.height);
    const QImage own = menuResources().image(key.name, room, key.devicePixelRatio);
    if (!own.isNull())
        return {own, true};
    const QIcon desktop = QIcon::fromTheme(key.name);
    if (desktop.isNull())
        return {};
    const QImage pixels = desktop.pixmap({key.height, key.height}, key.devicePixelRatio).toImage();
    return {pixels, !pixels.isNull() && !hasColors(pixels)};
}

} // namespace

TemplateImage icon(const QString& name, int height, qreal devicePixelRatio)
{
    static QCache<Key, TemplateImage> known(cacheSize);
    if (!isFileName(name))
        return {};
    const Key key{name, QIcon::themeName(), height, devicePixelRatio};
    if (const TemplateImage* found = known.object(key))
        return *found;
    TemplateImage loaded = load(key);
    known.insert(key, new TemplateImage(loaded));
    return loaded;
}

} // namespace quor::helper::MenuIcons
