// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/WarningAlert.h"

#include "Platform/Concurrency/MainQueue.h"
#include "Platform/Lifetime/WhileAlive.h"
#include "Platform/Services/WindowServer.h"

#include <QApplication>
#include <QPushButton>
#include <QWindow>

#include <algorithm>
#include <utility>

using namespace std::chrono_literals;

namespace quor::toolkit {

namespace {

bool canHoldSheet(const QWidget* window)
{
    if (!window)
        return false; // no widget's window
    const bool isOrdinary = window->windowType() == Qt::Window || window->windowType() == Qt::Dialog;
    return isOrdinary && window->isVisible() && !window->testAttribute(Qt::WA_X11NetWmWindowTypeDock)
        && !(window->windowFlags() & Qt::WindowDoesNotAcceptFocus);
}

/// Returns the visible windows, the frontmost first as far as the order is known.
QWidgetList visibleWindows(platform::WindowServer* windowServer)
{
    QWidgetList windows;
    if (windowServer)
        for (const QWindow* window : windowServer->orderedWindows())
            windows += QWidget::find(window->winId());
    return windows + QApplication::topLevelWidgets();
}

QWidget* sheetWindow(const AlertContent& content)
{
    if (content.window)
        return content.window->window();
    if (QWidget* key = QApplication::activeWindow())
        return key;
    if (const QWidget* focus = QApplication::focusWidget())
        return focus->window();
    const QWidgetList windows = visibleWindows(content.windowServer);
    const auto first = std::find_if(windows.begin(), windows.end(), canHoldSheet);
    return first == windows.end() ? nullptr : *first;
}

QIcon iconOf(const AlertContent& content)
{
    constexpr QSizeF largest(64, 64); // device-independent pixels
    for (const auto& bundle : {content.images, std::optional(platform::Bundle::main())}) {
        const QImage image
            = bundle ? bundle->image(content.iconName, largest, qApp->devicePixelRatio()) : QImage();
        if (!image.isNull())
            return QPixmap::fromImage(image);
    }
    return QIcon::fromTheme(content.iconName);
}

} // namespace

WarningAlert::WarningAlert(QObject* parent)
    : QObject(parent)
{
}

WarningAlert::~WarningAlert()
{
    (void)forget();
}

void WarningAlert::show(const AlertContent& content, Handler handler)
{
    QWidget* window = sheetWindow(content);
    const Handler previous = forget();
    completeHandler = std::move(handler);
    auto* alert = new Alert(window);
    alert_ = alert;
    fill(content);
    alert->ended = [this](int tag) { finish(tag); };
    connect(alert, &QObject::destroyed, this, [this] {
        alert_ = nullptr;
        (void)forget();
    });
    if (content.modal) {
        alert->exec();
        return;
    }
    alert->setWindowModality(window ? Qt::WindowModal : Qt::ApplicationModal);
    alert->show();
}

void WarningAlert::fill(const AlertContent& content)
{
    alert_->setAlertIcon(iconOf(content));
    alert_->setMessageText(content.message);
    alert_->setInformativeText(content.informativeText);
    alert_->setAccessoryView(content.accessoryView);
    alert_->addButton(content.buttonTitle, 0);
    for (std::size_t index = 0; index < content.otherTitles.size(); ++index) {
        QPushButton* button = alert_->addButton(content.otherTitles[index], static_cast<int>(index) + 1);
        const bool acts = index < content.targets.size() && index < content.actions.size()
            && content.targets[index] && content.actions[index];
        if (acts)
            connect(button, &QPushButton::clicked, content.targets[index], content.actions[index]);
    }
    if (content.cancelTitle)
        alert_->addButton(*content.cancelTitle, Alert::cancelTag);
}

void WarningAlert::finish(int tag)
{
    isEnding_ = true;
    if (!completeHandler)
        return;
    const auto report = [this, alert = alert_, handler = completeHandler, tag] {
        const QPointer self(this);
        handler(tag == 0, tag);
        if (self && alert && alert_ == alert)
            (void)forget();
    };
    // The handler may open a window, which must not appear while the sheet is still there.
    (void)platform::MainQueue::after(300ms, platform::whileAlive(*this, report));
}

void WarningAlert::close()
{
    if (!alert_ || isEnding_)
        return;
    // The handler may own this object, so it is destroyed last.
    const Handler handler = forget();
}

WarningAlert::Handler WarningAlert::forget()
{
    isEnding_ = false;
    if (Alert* alert = std::exchange(alert_, nullptr)) {
        disconnect(alert, nullptr, this, nullptr);
        alert->dismiss();
        alert->setAccessoryView(nullptr);
        alert->deleteLater(); // this may be called by a click on one of its buttons
    }
    return std::exchange(completeHandler, nullptr);
}

} // namespace quor::toolkit
