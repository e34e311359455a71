// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Appearance.h"
#include "Platform/Services/Application.h"
#include "Platform/Services/Clock.h"
#include "Platform/Services/DistributedNotificationCenter.h"
#include "Platform/Services/EventMonitors.h"
#include "Platform/Services/PlatformServices.h"
#include "Platform/Services/StatusBar.h"
#include "Platform/Services/StatusItemHost.h"
#include "Platform/Services/WindowServer.h"
#include "Platform/Services/Workspace.h"
#include "Platform/Views/StatusBarButton.h"

#include <QWidget>

/// A desktop without a bus: one window as status bar, and notifications that are handed over by hand.
class BenchmarkDesktop final : public quor::platform::Application,
                               public quor::platform::DistributedNotificationCenter,
                               public quor::platform::EventMonitors,
                               public quor::platform::StatusItemHost,
                               public quor::platform::Workspace {
public:
    [[nodiscard]] quor::platform::PlatformServices services()
    {
        return {*this, clock_, *this, *this, statusBar_, appearance_, *this, windowServer_};
    }
    [[nodiscard]] QWidget& window() { return window_; }

    /// As if a notification had arrived.
    void notify() { handler_({}); }

    void terminate() override { }
    void activate(QWidget&) override { }
    void post(const QString&) override { }
    ObserverToken addObserver(const QString&, Handler handler) override
    {
        handler_ = std::move(handler);
        return {};
    }
    void removeObserver(ObserverToken) override { }
    [[nodiscard]] std::optional<Token> addGlobalMonitor(quor::platform::EventMask, GlobalHandler) override
    {
        return {};
    }
    [[nodiscard]] std::optional<Token> addLocalMonitor(quor::platform::EventMask, LocalHandler) override
    {
        return {};
    }
    void removeMonitor(Token) override { }
    [[nodiscard]] double thickness() const override { return 22; }
    void attach(quor::platform::StatusItem& item) override
    {
        item.button().setParent(&window_);
        item.button().show();
        window_.show();
    }
    void detach(quor::platform::StatusItem& item) override { item.button().setParent(nullptr); }
    void widthChanged(quor::platform::StatusItem& item) override
    {
        item.button().setGeometry(0, 0, int(item.width()) + 8, 22);
    }
    [[nodiscard]] std::optional<std::vector<quor::platform::RunningApplication>>
    runningApplications() const override
    {
        return {};
    }
    [[nodiscard]] std::optional<quor::platform::RunningApplication> frontmostApplication() const override
    {
        return {};
    }
    void activate(const quor::platform::RunningApplication&) override { }

private:
    struct WindowServer final : quor::platform::WindowServer {
        [[nodiscard]] bool isCompositing() override { return false; }
        quor::platform::Subscription observeCompositing(std::function<void()>) override { return {}; }
        void prepareMenuWindow(QWidget&) override { }
        [[nodiscard]] bool grabKeyboard(QWindow&) override { return true; }
        void releaseKeyboard(QWindow&) override { }
        [[nodiscard]] std::vector<QWindow*> orderedWindows() override { return {}; }
        [[nodiscard]] bool missesPresses() const override { return false; }
    };

    quor::platform::SystemClock clock_;
    quor::platform::Appearance appearance_;
    quor::platform::StatusBar statusBar_{*this};
    WindowServer windowServer_;
    QWidget window_;
    Handler handler_;
};
