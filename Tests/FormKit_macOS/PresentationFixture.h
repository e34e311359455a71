// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Form.h"
#include "FormKit_macOS/Elements/FormButton.h"
#include "FormKit_macOS/FormViewFactory.h"
#include "FormKit_macOS/Presentation/FormContainerViewController.h"
#include "FormKit_macOS/Presentation/FormPopover.h"
#include "FormKit_macOS/Presentation/FormRenderViewController.h"
#include "FormKit_macOS/Presentation/FormWindow.h"
#include "Support/WaitFor.h"

#include <QLineEdit>
#include <QPlainTextEdit>

namespace quor::test {

template <class Widget>
class Input final : public formkit::FormBase {
public:
    using FormBase::FormBase;
    QWidget* view() const override { return widget_.get(); }
    std::vector<QWidget*> focusableViews() const override { return {view()}; }

private:
    platform::WidgetHandle<Widget> widget_ = platform::makeWidget<Widget>();
};

/// A form with a text field, a text of several lines, and a button whose click a test decides about.
class TestForm : public formkit::Form {
public:
    explicit TestForm(QString title, int fields = 1)
        : Form(std::move(title), std::make_shared<formkit::FormViewFactory>(), 300, 0.6)
    {
        for (int i = 0; i < fields; ++i)
            addElement(formkit::makeElement<Input<QLineEdit>>());
        addElement(text);
        addElement(button);
        addElement(cancelButton());
        button->setTitle(QStringLiteral("Button"));
        button->setButtonClickedHandler([this](formkit::FormElementButton&) { clicked(); });
    }
    QWidget& field() const { return *elements().front()->view(); }
    void prepareForDisplay() override { ++preparations; }

    std::shared_ptr<Input<QPlainTextEdit>> text = formkit::makeElement<Input<QPlainTextEdit>>();
    std::shared_ptr<formkit::FormButton> button = formkit::makeElement<formkit::FormButton>();
    platform::Callback<void()> clicked;
    int preparations = 0;
};

class OtherForm final : public TestForm {
public:
    using TestForm::TestForm;
};

} // namespace quor::test
