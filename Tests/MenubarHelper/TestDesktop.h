// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Appearance.h"
#include "Platform/Services/Application.h"
#include "Platform/Services/DistributedNotificationCenter.h"
#include "Platform/Services/PlatformServices.h"
#include "Platform/Services/StatusBar.h"
#include "Platform/Services/StatusItemHost.h"
#include "Platform/Services/Workspace.h"
#include "Platform/Views/StatusBarButton.h"

#include "Support/TemporaryDataHome.h"
#include "Support/TestClock.h"
#include "Support/TestEventMonitors.h"
#include "Support/TestWindowServer.h"

#include <QCoreApplication>
#include <QFile>
#include <QPointer>
#include <QWidget>

#include <map>
#include <optional>

namespace quor::test {

/// A desktop that records what the helper does in `steps`. Posts arrive at once, and are recorded together
/// with the action that the suite contains at that moment.
class TestDesktop final : public platform::Application,
                          public platform::DistributedNotificationCenter,
                          public platform::StatusItemHost,
                          public platform::Workspace {
public:
    static constexpr double barThickness = 22;

    TestDesktop()
    {
        window.setGeometry(40, 40, 300, int(barThickness));
        window.show();
    }
    /// Windows that were to be deleted later use the services until then.
    ~TestDesktop() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    [[nodiscard]] platform::PlatformServices services()
    {
        return {*this, clock, *this, *this, statusBar, appearance, eventMonitors, windowServer};
    }

    void terminate() override { steps += QStringLiteral("terminate"); }
    void activate(QWidget& shown) override
    {
        steps += QStringLiteral("activate window");
        activated = &shown;
        shown.activateWindow();
    }

    void post(const QString& name) override
    {
        QFile action(home.path(QStringLiteral("QX77Z4012M.com.quor-app/Preferences/action")));
        steps
            += name + u' ' + (action.open(QFile::ReadOnly) ? QString::fromUtf8(action.readAll()) : QString());
        const auto observersThen = observers;
        for (const auto& [token, observer] : observersThen) {
            if (observer.first == name && observers.contains(token))
                observer.second({name});
        }
    }
    [[nodiscard]] ObserverToken addObserver(const QString& name, Handler handler) override
    {
        steps += QStringLiteral("observe ") + name;
        const ObserverToken token{++lastToken};
        observers[token] = {name, std::move(handler)};
        return token;
    }
    void removeObserver(ObserverToken token) override
    {
        steps += QStringLiteral("forget ") + observers[token].first;
        observers.erase(token);
    }

    [[nodiscard]] double thickness() const override { return barThickness; }
    void attach(platform::StatusItem& item) override
    {
        items += &item;
        item.button().setParent(&window);
        widthChanged(item);
        item.button().show();
    }
    void detach(platform::StatusItem& item) override
    {
        items.removeOne(&item);
        item.button().hide();
        item.button().setParent(nullptr);
    }
    void widthChanged(platform::StatusItem& item) override
    {
        item.button().setGeometry(9, 0, int(item.width()) + 8, int(barThickness));
    }

    [[nodiscard]] std::optional<std::vector<platform::RunningApplication>>
    runningApplications() const override
    {
        return running;
    }
    [[nodiscard]] std::optional<platform::RunningApplication> frontmostApplication() const override
    {
        return frontmost;
    }
    void activate(const platform::RunningApplication& application) override
    {
        steps += QStringLiteral("activate ") + application.bundleIdentifier;
        frontmost = application;
    }

    TemporaryDataHome home;
    TestClock clock;
    TestEventMonitors eventMonitors;
    TestWindowServer windowServer;
    platform::Appearance appearance;
    QWidget window;
    QList<platform::StatusItem*> items;
    QStringList steps;
    std::vector<platform::RunningApplication> running{{QStringLiteral("com.quor-app.Quor3-macOS")}};
    std::optional<platform::RunningApplication> frontmost; ///< as set by the test, or by the last activation
    QPointer<QWidget> activated;
    std::map<ObserverToken, std::pair<QString, Handler>> observers;
    std::uint64_t lastToken = 0;
    platform::StatusBar statusBar{*this};
};

} // namespace quor::test
