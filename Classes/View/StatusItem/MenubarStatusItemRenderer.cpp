// SPDX-License-Identifier: MIT
#include "View/StatusItem/MenubarStatusItemRenderer.h"

#include "Platform/Services/Appearance.h"
#include "Platform/Services/Clock.h"
#include "Platform/Services/StatusBar.h"
#include "Platform/Views/StatusBarButton.h"
#include "View/StatusItem/PillImage.h"

#include <QGuiApplication>
#include <QStringList>

#include <chrono>
#include <cmath>
#include <utility>

namespace quor::helper {

namespace {

double edgeInset(double thickness)
{
    return std::ceil(std::ceil(thickness - rawValue(HeightPadding::single)) * 0.5 * 0.8);
}

} // namespace

MenubarStatusItemRenderer::MenubarStatusItemRenderer(
    platform::StatusItem& statusItem, const platform::PlatformServices& services, MainScreen mainScreen)
    : statusItem_(statusItem)
    , services_(services)
    , mainScreen_(std::move(mainScreen))
    , bundle_(platform::Bundle::named(QStringLiteral("Quor")))
{
    clockUpdateTimer_.setInterval(std::chrono::seconds(60));
    connect(&clockUpdateTimer_, &QTimer::timeout, this, &MenubarStatusItemRenderer::update);
    const auto renderAgain = [this] {
        if (shown_)
            update();
    };
    connect(&statusItem_.button(), &platform::StatusBarButton::backingScaleChanged, this, renderAgain);
    appearanceChanges_ = services_.appearance.observe(renderAgain);
}

MenubarStatusItemRenderer::~MenubarStatusItemRenderer()
{
    stop();
}

void MenubarStatusItemRenderer::update()
{
    Drawing next = drawing();
    if (!shown_ || next.scale != shown_->scale || next.warningColor != shown_->warningColor
        || !looksLike(next.plan, shown_->plan))
        render(std::move(next));
    restartClock();
}

void MenubarStatusItemRenderer::stop()
{
    clockUpdateTimer_.stop();
    statusItem_.button().setForeground({});
    shown_.reset();
}

MenubarStatusItemRenderer::Drawing MenubarStatusItemRenderer::drawing() const
{
    const auto screen = mainScreen_();
    const bool hasNotch = screen && screen->auxiliaryTopLeftArea;
    return {statusItemPlan(data, services_.clock.now(), durationFormatter, hasNotch),
        statusItem_.button().devicePixelRatioF(), warningColor()};
}

QColor MenubarStatusItemRenderer::warningColor() const
{
    const platform::DynamicColor systemPink{QColor(255, 45, 85), QColor(255, 55, 95)};
    return bundle_.color(QStringLiteral("cellWarningColor"))
        .value_or(systemPink)
        .resolved(services_.appearance.effectiveAppearance());
}

void MenubarStatusItemRenderer::render(Drawing drawing)
{
    StatusItemPlan& plan = drawing.plan;
    if (shown_ && looksLike(plan.symbol, shown_->plan.symbol)) {
        // A step of the ring that is too small to see is not drawn. So small steps add up until they show.
        plan.symbol = shown_->plan.symbol;
        plan.overTime = shown_->plan.overTime;
    }
    if (!elements_)
        elements_.emplace(edgeInset(services_.statusBar.thickness()));
    elements_->arrange(plan, drawing.warningColor);
    heightPadding_ = plan.heightPadding.value_or(heightPadding_);
    const auto& stackView = elements_->stackView();
    const double width = std::ceil(stackView.fittingSize().width());
    const double height = std::ceil(services_.statusBar.thickness() - rawValue(heightPadding_));
    statusItem_.setImage({pillImage(stackView, QSizeF(width, height).toSize(), drawing.scale), true}, width);
    if (!shown_ || plan.symbol != shown_->plan.symbol || plan.overTime != shown_->plan.overTime
        || drawing.warningColor != shown_->warningColor)
        statusItem_.button().setForeground(
            [&stackView](QPainter& painter, QSizeF size) { stackView.drawTagged(painter, size, LiveTag); });
    describe(plan);
    shown_ = std::move(drawing);
}

void MenubarStatusItemRenderer::describe(const StatusItemPlan& plan)
{
    QStringList texts;
    for (const auto& text : {plan.taskText, plan.timeText}) {
        if (text && !text->isEmpty())
            texts += *text;
    }
    const QString name = texts.isEmpty() ? QGuiApplication::applicationDisplayName() : texts.join(u' ');
    if (statusItem_.button().accessibleName() != name)
        statusItem_.button().setAccessibleName(name);
}

void MenubarStatusItemRenderer::restartClock()
{
    if (!data.trackerActive && shown_->plan.clockFace)
        clockUpdateTimer_.start();
    else
        clockUpdateTimer_.stop();
}

} // namespace quor::helper
