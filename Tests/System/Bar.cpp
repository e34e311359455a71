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
// Longer than the window manager and the X server take to put a change on the screen.
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
    constexpr int hair = 12;
    const auto near = [](int a, int b) { return std::abs(a - b) <= hair; };
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
