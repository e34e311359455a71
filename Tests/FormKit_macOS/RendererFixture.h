// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormDetailElement.h"
#include "FormKit_macOS/Rendering/FormViewRenderer.h"
#include "TestForm.h"

#include <QTest>

#include <gtest/gtest.h>

namespace quor::test {

class Detail final : public formkit::FormDetailElement {
public:
    explicit Detail(QSize size)
        : view_(platform::makeWidget<SizedView>(size))
    {
    }
    QWidget* view() const override { return view_.get(); }
    bool enabled() const override { return enabled_; }
    void setEnabled(bool enabled) override { enabled_ = enabled; }
    QString toolTip() const override { return {}; }
    void setToolTip(const QString&) override { }
    bool hasChanges() const override { return false; }
    void setHasChanges(bool) override { }
    ValueChanged valueChanged() const override { return {}; }
    void setValueChanged(ValueChanged) override { }

private:
    platform::WidgetHandle<SizedView> view_;
    bool enabled_ = true;
};

/// A form in a window of 400 by 300 pixels.
class FormRenderer : public testing::Test {
protected:
    void use(formkit::FormViewRenderer::RenderMode mode, bool showBackNavigation = false)
    {
        renderer = std::make_unique<formkit::FormViewRenderer>(mode, window, showBackNavigation);
    }
    void render(TestForm& form)
    {
        if (!renderer)
            use(formkit::FormViewRenderer::RenderMode::normal);
        form.setNeedsRender(true);
        renderer->render(form);
        if (!window.isVisible()) {
            window.resize(400, 300);
            window.show();
            window.activateWindow();
            EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        }
        QCoreApplication::sendPostedEvents();
    }
    std::vector<formkit::FormRowLabel*> labels() const
    {
        const auto found = window.findChildren<formkit::FormRowLabel*>();
        return {found.begin(), found.end()};
    }
    QRect rectOf(const formkit::FormElement& element) const
    {
        QWidget* const view = element.view();
        return {view->mapTo(&window, QPoint()), view->size()};
    }

    QWidget window;
    std::unique_ptr<formkit::FormViewRenderer> renderer;
};

inline std::shared_ptr<ViewElement> row(const QString& label, int height, int area = 0)
{
    return makeViewElement<SizedView>(label, QSize(50, height), area);
}

} // namespace quor::test
