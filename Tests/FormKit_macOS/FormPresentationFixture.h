// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Appearance.h"
#include "Platform/Services/Application.h"
#include "PresentationFixture.h"
#include "Support/TestWindowServer.h"

#include <QApplication>

#include <gtest/gtest.h>

namespace quor::test {

class NoApplication final : public platform::Application {
public:
    void terminate() override { }
    void activate(QWidget&) override { }
};

/// A window that shows a form, without animations.
class FormPresentationTest : public testing::Test {
protected:
    FormPresentationTest() { appearance.setDesktopAnimates(false); }
    ~FormPresentationTest() override { QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    void show()
    {
        container = std::make_shared<formkit::FormContainerViewController>(form, services);
        window = std::make_unique<formkit::FormWindow>(container);
        listen(*container);
        window->show();
        window->activateWindow();
        ASSERT_TRUE(waitFor([&] { return window->isActiveWindow() && QApplication::focusWidget(); }));
        ASSERT_TRUE(waitFor([&] { return QApplication::focusWidget() == &form->field(); }));
    }
    void listen(formkit::FormContainerViewController& sender)
    {
        using Container = formkit::FormContainerViewController;
        sender.add(
            *container, [this](auto&, auto&, const std::any&) { ++sizes; }, Container::Event::sizeChanged);
        sender.add(
            *container,
            [this](auto&, auto&, const std::any& payload) { ++closes, closePayload = payload.has_value(); },
            Container::Event::close);
    }
    formkit::FormRenderViewController& root() const { return *container->rootViewController(); }
    std::size_t depth() const { return container->formRenderViewControllers().size(); }
    // Waits until what the form has changed before this call is rendered.
    bool rendered(formkit::Form& changed) const
    {
        return waitFor([&] { return !changed.needsRender(); });
    }
    QWidget* popover() const { return root().activePopover() ? root().activePopover()->window() : nullptr; }

    platform::Appearance appearance;
    NoApplication application;
    TestWindowServer windowServer;
    formkit::FormServices services{application, appearance, windowServer};
    std::shared_ptr<TestForm> form = std::make_shared<TestForm>(QStringLiteral("Root"));
    std::shared_ptr<TestForm> second = std::make_shared<TestForm>(QStringLiteral("Second"), 5);
    std::shared_ptr<formkit::FormContainerViewController> container;
    std::unique_ptr<formkit::FormWindow> window;
    int sizes = 0;
    int closes = 0;
    bool closePayload = false;
};

} // namespace quor::test
