// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Form.h"
#include "FormKit_macOS/Controls/FirstBaseline.h"
#include "FormKit_macOS/Elements/FormBase.h"
#include "FormKit_macOS/FormViewFactory.h"

#include <QWidget>

namespace quor::test {

/// A view of a fixed size, or of a fixed area, with a baseline 10 pixels below its top. Counts how often it
/// is asked for its size.
class SizedView final : public QWidget, public formkit::FirstBaselineProvider {
public:
    explicit SizedView(QSize hint, int area = 0)
        : hint_(hint)
        , area_(area)
    {
        if (area_ > 0) {
            QSizePolicy policy = sizePolicy();
            policy.setHeightForWidth(true);
            setSizePolicy(policy);
        }
    }
    QSize sizeHint() const override
    {
        ++questions;
        return hint_;
    }
    QSize minimumSizeHint() const override { return hint_; }
    int heightForWidth(int width) const override { return area_ > 0 ? area_ / std::max(1, width) : -1; }
    int firstBaseline() const override { return 10; }
    void setHint(QSize hint)
    {
        hint_ = hint;
        updateGeometry();
    }

    mutable int questions = 0;

private:
    QSize hint_;
    int area_;
};

/// An element with the view that the test gives it.
class ViewElement final : public formkit::FormBase {
public:
    ViewElement(Construction construction, std::unique_ptr<QWidget> view)
        : FormBase(construction)
        , view_(std::move(view))
    {
    }
    QWidget* view() const override { return view_.get(); }
    std::vector<QWidget*> focusableViews() const override { return focusable; }

    std::vector<QWidget*> focusable;

private:
    platform::WidgetHandle<QWidget> view_;
};

template <class View, class... Arguments>
std::shared_ptr<ViewElement> makeViewElement(const QString& label, Arguments&&... arguments)
{
    auto element = formkit::makeElement<ViewElement>(
        std::unique_ptr<QWidget>(std::make_unique<View>(std::forward<Arguments>(arguments)...)));
    element->setLabel(label);
    if (!std::is_same_v<View, SizedView>)
        element->focusable = {element->view()};
    return element;
}

class TestForm final : public formkit::Form {
public:
    explicit TestForm(
        Layout layout = Layout::leftHeaders, double ratio = 0.6, std::optional<QString> title = {})
        : Form(std::move(title), std::make_shared<formkit::FormViewFactory>(), 400, ratio)
        , layout_(layout)
    {
    }
    Layout layout() const override { return layout_; }
    template <class Element>
    std::shared_ptr<Element> add(std::shared_ptr<Element> element)
    {
        addElement(element);
        return element;
    }

private:
    Layout layout_;
};

} // namespace quor::test
