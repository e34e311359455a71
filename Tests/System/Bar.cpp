// SPDX-License-Identifier: MIT
#include "System/Bar.h"

#include "Support/WaitFor.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>

#include <cstdlib>

namespace quor::test {

namespace {

constexpr int thickness = 22;
// A picture that stays the same for this long is complete: the window manager and the X server need less time
// to show a change.
constexpr std::chrono::milliseconds rest(250);

} // namespace

QImage shownItem()
{
    QScreen* screen = QGuiApplication::primaryScreen();
    const int width = screen->size().width();
    const QImage bar
        = screen->grabWindow(0, 0, 0, width, thickness).toImage().convertToFormat(QImage::Format_RGB32);
    int left = width;
    while (left > 0 && bar.pixel(left - 1, 0) != qRgb(0, 0, 0))
        --left;
    return left == width ? QImage() : bar.copy(left, 0, width - left, thickness);
}

int countOf(const QColor& color, const QImage& picture)
{
    constexpr int tolerance = 12;
    const auto near = [](int one, int other) { return std::abs(one - other) <= tolerance; };
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            count += near(qRed(pixel), color.red()) && near(qGreen(pixel), color.green())
                && near(qBlue(pixel), color.blue());
        }
    }
    return count;
}

QImage nextItem(const QImage& before, std::chrono::milliseconds limit)
{
    QImage last = before;
    QElapsedTimer atRest;
    const bool settled = waitFor(
        [&] {
            const QImage now = shownItem();
            if (now != last)
                atRest.start();
            last = now;
            return !now.isNull() && now != before && atRest.elapsed() > rest.count();
        },
        limit);
    return settled ? last : QImage();
}

bool shows(const QImage& item)
{
    return waitFor([&] { return shownItem() == item; });
}

} // namespace quor::test
