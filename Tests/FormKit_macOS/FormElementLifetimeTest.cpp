// SPDX-License-Identifier: MIT
#include "ElementFixture.h"
#include "FormKit_macOS/Controls/BackButton.h"
#include "FormKit_macOS/Controls/Segment.h"
#include "FormKit_macOS/Elements/FormButton.h"
#include "FormKit_macOS/Elements/FormButtonSelection.h"
#include "FormKit_macOS/Elements/FormCheckBox.h"
#include "FormKit_macOS/Elements/FormHintText.h"
#include "FormKit_macOS/Elements/FormRadioButton.h"
#include "FormKit_macOS/Elements/FormSeparator.h"
#include "FormKit_macOS/Elements/FormStateView.h"
#include "FormKit_macOS/Elements/FormTitle.h"
#include "Support/WaitFor.h"

#include <QLineEdit>

using namespace quor::formkit;
using namespace Qt::StringLiterals;
using quor::test::FormElements;
using quor::test::waitFor;

namespace {

/// Makes an element of each kind, and does to it what calls its handler.
struct Ending {
    const char* name;
    std::function<std::shared_ptr<FormElement>(std::function<void()> handler)> make;
    std::function<void(QWidget& view)> operate;
};

TEST_F(FormElements, ElementsMayEndInTheirHandlers)
{
    const auto clickChild = [](auto* child) { click(child, child->rect().center()); };
    const auto pressLink = [](QWidget& view) {
        auto* const text = view.findChild<ResizeTextView*>();
        auto& links = text ? *text : static_cast<ResizeTextView&>(view);
        click(links.viewport(), linkPlace(links));
    };
    const auto link = u"[Link](https://example.org)"_s;
    const std::vector<Ending> endings{
        {"button",
            [](auto handler) {
                auto button = makeElement<FormButton>();
                button->setTitle(u"Button"_s);
                button->setButtonClickedHandler([handler](FormElementButton&) { handler(); });
                return button;
            },
            [&](QWidget& view) { clickChild(view.findChild<LargerButton*>()); }},
        {"selection",
            [](auto handler) {
                auto selection = makeElement<FormButtonSelection>();
                selection->setButtons({{1, u"One"_s}, {2, u"Two"_s}});
                selection->setValueChanged([handler](FormElement&) { handler(); });
                return selection;
            },
            [&](QWidget& view) { clickChild(view.findChildren<Segment*>().last()); }},
        {"check box",
            [](auto handler) {
                auto box = makeElement<FormCheckBox>();
                box->setTitle(u"Box"_s);
                box->setValueChanged([handler](FormElement&) { handler(); });
                return box;
            },
            [&](QWidget& view) {
                click(view.findChild<ResizeTextView*>()->viewport(), {3, 3});
            }},
        {"link of a check box",
            [&](auto handler) {
                auto box = makeElement<FormCheckBox>();
                box->setTitle(link);
                box->setLinkClicked([handler](const QUrl&) { handler(); });
                return box;
            },
            pressLink},
        {"radio button",
            [](auto handler) {
                auto radio = makeElement<FormRadioButton>();
                radio->setValueChanged([handler](FormElement&) { handler(); });
                return radio;
            },
            [](QWidget& view) {
                click(&static_cast<ToggleRow&>(view).box(), {5, 5});
            }},
        {"hint",
            [&](auto handler) {
                auto hint = makeElement<FormHintText>();
                hint->setParseMarkdown(true);
                hint->setValue(link);
                hint->setLinkClicked([handler](const QUrl&) { handler(); });
                return hint;
            },
            pressLink},
        {"state",
            [](auto handler) {
                auto state = makeElement<FormStateView>();
                state->setButtonTitle(u"Close"_s);
                state->setAction(handler);
                return state;
            },
            [&](QWidget& view) { clickChild(view.findChild<LargerButton*>()); }},
        {"title",
            [](auto handler) {
                auto title = makeElement<FormTitle>(FormTitle::TitleType::title, true);
                title->setBackButtonHandler(handler);
                return title;
            },
            [&](QWidget& view) { clickChild(view.findChild<BackButton*>()); }},
    };
    show();
    for (const auto& ending : endings) {
        std::shared_ptr<FormElement> element;
        int calls = 0;
        element = ending.make([&] {
            ++calls;
            form_->removeElement(*element);
            form_ = std::make_shared<Form>(std::nullopt, std::make_shared<FormViewFactory>(), 300, 0.6);
            element.reset();
        });
        form_->addElement(element);
        const QPointer<QWidget> view = element->view();
        layout_->insertWidget(0, view);
        ASSERT_TRUE(waitFor([&] { return view->isVisible(); }));
        layout_->activate();
        ending.operate(*view);
        EXPECT_EQ(calls, 1) << ending.name;
        EXPECT_EQ(element, nullptr);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(view.isNull()) << ending.name;
    }
}

TEST_F(FormElements, ElementsOutliveAParentThatDeletesTheirViews)
{
    const FormViewFactory factory;
    const auto button = factory.button();
    const auto box = factory.checkBox();
    const auto hint = factory.hintText();
    const auto selection = factory.buttonSelection();
    const auto state = factory.state();
    const auto separator = factory.separator();
    {
        QWidget parent;
        for (const auto& element : std::initializer_list<std::shared_ptr<FormElement>>{
                 button, box, hint, selection, state, separator})
            element->view()->setParent(&parent);
    }
    button->setTitle(u"a"_s);
    button->setShowProgress(true);
    button->setAlignment(FormTextAlignment::right);
    button->setEnabled(false);
    box->setTitle(u"a"_s);
    box->setValue(true);
    hint->setValue(u"a"_s);
    hint->setAlignment(FormTextAlignment::center);
    selection->setButtons({{1, u"a"_s}});
    selection->setSelectedTag(1);
    state->setTitle(u"a"_s);
    state->setEnabled(false);
    separator->setTransparent(true);
    EXPECT_EQ(button->title() + box->title() + hint->value() + state->title(), u"aaaa"_s);
}

TEST_F(FormElements, AHandlerMayEndAnElementThatIsBeingHidden)
{
    layout_->addWidget(new QLineEdit); // to which the focus goes
    for (const bool isButton : {true, false}) {
        std::shared_ptr<FormElement> element;
        if (isButton)
            element = add<FormButton>();
        else
            element = add<FormCheckBox>();
        if (!window_.isVisible())
            show();
        element->view()->show();
        auto* const control = element->view()->findChild<QAbstractButton*>();
        control->setFocus();
        ASSERT_TRUE(control->hasFocus());
        form_->removeElement(*element);
        QObject::connect(
            qApp, &QApplication::focusChanged, control, [&] { element.reset(); }, Qt::SingleShotConnection);
        FormElement& hidden = *element;
        hidden.setHidden(true);
        EXPECT_EQ(element, nullptr);
    }
}

} // namespace
