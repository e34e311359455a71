// SPDX-License-Identifier: MIT
#include "Platform/Linux/Strip/Strip.h"

#include "Platform/Linux/Strip/StripWindow.h"
#include "Platform/Services/Appearance.h"
#include "Platform/Services/StatusItem.h"
#include "Platform/Views/StatusBarButton.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace quor::platform {

namespace {

constexpr int barThickness = 22;
constexpr double widestItem = 4096;
constexpr int itemPadding = 4; // on each side; even, so that it is whole in device pixels at a scale of 1.5

struct BarColors {
    QRgb background;
    QRgb text;
};
constexpr BarColors lightBar{0xffefeff1, 0xff1d1d1f};
constexpr BarColors darkBar{0xff1e1e20, 0xfff5f5f7};

const BarColors& barColors(const Appearance& appearance)
{
    return appearance.effectiveAppearance() == ColorScheme::dark ? darkBar : lightBar;
}

int widthOf(const StatusItem& item)
{
    // In this order of arguments a width that is not a number becomes the limit.
    const int content = int(std::ceil(std::min(widestItem, item.width())));
    // Even an item without an image can be seen and pressed.
    return std::max(content, barThickness - 2 * itemPadding) + 2 * itemPadding;
}

QList<QRect> otherScreens(const QScreen& screen)
{
    QList<QRect> others;
    for (const auto* other : QGuiApplication::screens()) {
        if (other != &screen)
            others.append(other->geometry());
    }
    return others;
}

} // namespace

Strip::Strip(Appearance& appearance)
    : appearance_(appearance)
    , appearanceChanges_(appearance.observe([this] { applyAppearance(); }))
    , window_(std::make_unique<StripWindow>())
{
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &Strip::followScreen);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &Strip::layOut);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &Strip::layOut);
    applyAppearance();
    followScreen(QGuiApplication::primaryScreen());
}

Strip::~Strip()
{
    Q_ASSERT(items_.empty());
}

double Strip::thickness() const
{
    return barThickness;
}

void Strip::attach(StatusItem& item)
{
    auto& button = item.button();
    button.setTintColor(barColors(appearance_).text);
    button.setParent(window_.get());
    button.show();
    items_.push_back(&item);
    layOut();
}

void Strip::detach(StatusItem& item)
{
    std::erase(items_, &item);
    item.button().hide();
    item.button().setParent(nullptr);
    layOut();
    // Queued, in case another item follows: window managers can leave a window hidden that is hidden and
    // shown again at once.
    QMetaObject::invokeMethod(this, &Strip::hideIfEmpty, Qt::QueuedConnection);
}

void Strip::hideIfEmpty()
{
    if (items_.empty())
        window_->hide();
}

void Strip::widthChanged(StatusItem&)
{
    layOut();
}

void Strip::followScreen(QScreen* screen)
{
    for (auto& change : screenChanges_)
        disconnect(change);
    if (screen)
        screenChanges_ = {connect(screen, &QScreen::geometryChanged, this, &Strip::layOut),
            connect(screen, &QScreen::logicalDotsPerInchChanged, this, &Strip::layOut)};
    layOut();
}

void Strip::applyAppearance()
{
    const auto& colors = barColors(appearance_);
    window_->setBackground(colors.background);
    for (auto* item : items_)
        item->button().setTintColor(colors.text);
}

void Strip::layOut()
{
    auto* screen = QGuiApplication::primaryScreen();
    if (items_.empty() || !screen)
        return;
    int width = 0;
    for (const auto* item : items_)
        width += widthOf(*item);
    const double scale = screen->devicePixelRatio();
    window_->place(*screen, stripFrame(screen->geometry(), scale, width, barThickness));
    window_->reserve(stripStrut(screen->geometry(), scale, barThickness, otherScreens(*screen)));
    for (const auto* item : items_) {
        const int itemWidth = widthOf(*item);
        width -= itemWidth;
        item->button().setGeometry(width, 0, itemWidth, barThickness);
    }
    window_->appear();
}

} // namespace quor::platform
