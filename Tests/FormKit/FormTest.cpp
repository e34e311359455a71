// SPDX-License-Identifier: MIT
#include "FormKit/Form.h"
#include "FormKit/Elements/FormElementButton.h"
#include "FormKit/Elements/FormElementHintText.h"
#include "FormKit/Elements/FormElementState.h"
#include "FormKit/FormDetailElement.h"
#include "FormKit/FormItem.h"
#include "FormKit/FormResource.h"
#include "FormKit_macOS/Elements/FormBase.h"
#include "FormKit_macOS/FormViewFactory.h"

#include <QLocale>
#include <QUrl>

#include <gtest/gtest.h>

#include <functional>

using namespace quor;
using namespace quor::formkit;
using namespace Qt::StringLiterals;

namespace {

class Row final : public FormBase {
public:
    using FormBase::FormBase;
    [[nodiscard]] QWidget* view() const override { return view_.get(); }
    [[nodiscard]] bool hasChanges() const override { return ++timesAsked, FormBase::hasChanges(); }

    mutable int timesAsked = 0;

private:
    platform::WidgetHandle<QWidget> view_ = platform::makeWidget<QWidget>();
};

class Detail final : public FormDetailElement {
public:
    [[nodiscard]] QWidget* view() const override { return view_.get(); }
    [[nodiscard]] bool enabled() const override { return enabled_; }
    void setEnabled(bool enabled) override { enabled_ = enabled; }
    [[nodiscard]] QString toolTip() const override { return {}; }
    void setToolTip(const QString& /*toolTip*/) override { }
    [[nodiscard]] bool hasChanges() const override { return false; }
    void setHasChanges(bool /*hasChanges*/) override { }
    [[nodiscard]] ValueChanged valueChanged() const override { return {}; }
    void setValueChanged(ValueChanged /*valueChanged*/) override { }

private:
    bool enabled_ = true;
    platform::WidgetHandle<QWidget> view_ = platform::makeWidget<QWidget>();
};

/// Writes down the events of a form, with the number of elements at the time.
struct Presenter : platform::Trackable {
    explicit Presenter(Form& form)
    {
        const char* const names[] = {"render", "close", "replace", "show", "present", "link"};
        for (int event = 0; event < 6; ++event) {
            form.add(
                *this,
                [name = names[event]](Presenter& self, Form& sender, const std::any& payload) {
                    self.events += name + (' ' + std::to_string(sender.elements().size()));
                    if (const auto* link = std::any_cast<QUrl>(&payload))
                        self.events += ' ' + link->toString().toStdString();
                    self.events += ';';
                },
                FormEvent(event));
        }
    }
    std::string taken() { return std::exchange(events, {}); }

    std::string events;
};

class FormTest : public testing::Test {
protected:
    std::shared_ptr<Form> form_
        = std::make_shared<Form>(u"Title"_s, std::make_shared<FormViewFactory>(), 300, 0.6);
    Presenter presenter_{*form_};
    std::shared_ptr<Row> first_ = makeElement<Row>();
    std::shared_ptr<Row> second_ = makeElement<Row>();
};

TEST_F(FormTest, StartsWithACancelButtonThatCloses)
{
    EXPECT_TRUE(form_->enabled() && form_->needsRender() && form_->elements().empty());
    EXPECT_EQ(form_->defaultButton(), nullptr);
    EXPECT_FALSE(form_->hasChanges());
    EXPECT_EQ(form_->cancelButton()->title(), u"Cancel"_s);
    const auto clicked = form_->cancelButton()->buttonClickedHandler();
    const auto button = form_->cancelButton();
    clicked(*button);
    EXPECT_EQ(presenter_.taken(), "close 0;");
    form_.reset();
    clicked(*button);
    QLocale::setDefault(QLocale(u"de"_s));
    EXPECT_EQ(FormResource::localizedString(u"FormCloseButtonTitle"_s), u"Schließen"_s);
    QLocale::setDefault(QLocale(u"en"_s));
    EXPECT_DEATH(
        (void)platform::Bundle::required(u"Cabinet_None"_s), "unable to find bundle named Cabinet_None");
}

TEST_F(FormTest, AsksForARenderBeforeTheListChanges)
{
    const auto outsider = makeElement<Row>();
    const std::pair<std::function<void()>, std::string> cases[] = {
        {[&] { form_->setTitle(u"Title"_s); }, "render 0;"},
        {[&] { form_->setSubtitle({}); }, "render 0;"},
        {[&] { form_->setNeedsRender(false); }, ""},
        {[&] { form_->setDefaultButton(first_); }, ""},
        {[&] { form_->addElement(first_); }, "render 0;"},
        {[&] { form_->insertElement(second_, *outsider); }, ""},
        {[&] { form_->insertElement(nullptr, 0); }, ""},
        {[&] { form_->insertElement(second_, *first_); }, "render 1;"},
        {[&] { form_->insertElement(outsider, 1); }, "render 2;"},
        {[&] { outsider->setHidden(true); }, "render 3;"},
        {[&] { outsider->setHidden(true); }, ""},
        {[&] { form_->removeElement(*outsider); }, "render 3;"},
        {[&] { outsider->setHidden(false); }, ""},
        {[&] { form_->addNotice(u"n"_s, Qt::red); }, "render 2;"},
        {[&] { form_->addStateNotice(u"t"_s, u"m"_s); }, "render 2;"},
        {[&] { form_->removeAllNotices(); }, "render 2;"},
        {[&] {
             form_->setElements({first_, nullptr});
         },
            ""},
    };
    for (const auto& [change, events] : cases) {
        change();
        EXPECT_EQ(presenter_.taken(), events) << "case " << &events - &cases[0].second;
    }
    EXPECT_EQ(form_->elements(), Form::Elements{first_});
    EXPECT_EQ(first_->form(), form_.get());
    EXPECT_EQ(outsider->form(), nullptr);
    form_.reset();
    EXPECT_EQ(first_->form(), nullptr);
    first_->setHidden(true);
    EXPECT_TRUE(first_->isHidden() && first_->view()->isHidden());
}

TEST_F(FormTest, EveryEntryOfAnElementIsRemovedEvenByItsLastOwner)
{
    form_->setElements({first_, second_, first_});
    const std::weak_ptr<Row> last = first_;
    Row& removed = *first_;
    first_.reset();
    form_->removeElement(removed);
    EXPECT_EQ(form_->elements(), Form::Elements{second_});
    EXPECT_TRUE(last.expired());
    form_->insertElement(makeElement<Row>(), 99);
    EXPECT_EQ(form_->elements().size(), 2U);
}

TEST_F(FormTest, ATargetOfItsEventsMayEndTheForm)
{
    const std::function<void(Form&)> changes[] = {
        [&](Form& form) { form.addElement(makeElement<Row>()); },
        [&](Form& form) { form.insertElement(makeElement<Row>(), *first_); },
        [&](Form& form) { form.removeElement(*first_); },
        [&](Form& form) { form.setEnabled(true); },
        [&](Form& form) { form.addNotice(u"n"_s, Qt::red); },
        [&](Form& form) { form.removeAllNotices(); },
        [&](Form& form) { first_->setHidden(!first_->isHidden()), (void)form; },
    };
    for (const auto& change : changes) {
        form_ = std::make_shared<Form>(u"Title"_s, std::make_shared<FormViewFactory>(), 300, 0.6);
        form_->addElement(first_);
        form_->add(
            presenter_, [&](Presenter&, Form&, const std::any&) { form_.reset(); },
            FormEvent::internalNeedsRender);
        change(*form_);
        EXPECT_EQ(form_, nullptr) << &change - changes;
    }
}

TEST_F(FormTest, ChangesAreAskedForInOrder)
{
    const auto third = makeElement<Row>();
    form_->setElements({first_, second_, third});
    second_->setHasChanges(true);
    EXPECT_TRUE(form_->hasChanges());
    EXPECT_EQ(third->timesAsked, 0) << "the walk ends at the first change";
    form_->resetChanges();
    EXPECT_FALSE(form_->hasChanges());
    int calls = 0;
    first_->setValueChanged([&](FormElement&) { ++calls; });
    form_->removeValueChanged(*first_);
    first_->valueChanged()(*first_);
    EXPECT_EQ(calls, 0);
}

TEST_F(FormTest, EnablingRestoresWhatWasEnabledBefore)
{
    const auto detail = std::make_shared<Detail>();
    second_->setDetailElement(detail);
    form_->addElement(first_);
    form_->addElement(second_);
    const auto render = [&] { // as the presenters do it
        for (const auto& element : form_->elements())
            element->setEnabled(element->enabled() && form_->enabled());
        detail->setEnabled(detail->enabled() && form_->enabled());
    };
    const auto states = [&] {
        return std::vector<bool>{first_->enabled(), second_->enabled(), detail->enabled()};
    };
    first_->setEnabled(false);
    form_->setEnabled(false);
    render();
    EXPECT_EQ(states(), (std::vector{false, false, false}));
    form_->setEnabled(true);
    EXPECT_EQ(states(), (std::vector{false, true, true}));

    form_->setEnabled(false);
    render();
    const auto added = makeElement<Row>();
    form_->addElement(added);
    form_->setEnabled(true);
    EXPECT_EQ(states(), (std::vector{false, false, false})) << "the list is another one";
    EXPECT_TRUE(added->enabled());
}

TEST_F(FormTest, NoticesAreShownAboveTheElements)
{
    form_->addNotice(u"[help](https://example.org/a)"_s, QColor(1, 2, 3));
    int actions = 0;
    form_->addStateNotice(u"Offline"_s, u"No network"_s, [&] { ++actions; });
    form_->addStateNotice(u"Gone"_s, {});
    ASSERT_EQ(form_->noticeElements().size(), 3U);
    const auto notice = std::dynamic_pointer_cast<FormElementHintText>(form_->noticeElements()[0]);
    ASSERT_TRUE(notice);
    EXPECT_TRUE(notice->parseMarkdown());
    EXPECT_EQ(notice->textColor(), QColor(1, 2, 3));
    const auto state = [&](std::size_t index) {
        return std::dynamic_pointer_cast<FormElementState>(form_->noticeElements()[index]);
    };
    EXPECT_EQ(state(1)->title() + u'|' + state(1)->message() + u'|' + state(1)->buttonTitle(),
        u"Offline|No network|Close"_s);
    presenter_.events.clear();
    notice->linkClicked()(QUrl(u"https://example.org/a"_s));
    state(1)->action()();
    EXPECT_EQ(presenter_.taken(), "link 0 https://example.org/a;");
    EXPECT_EQ(actions, 1);
    state(2)->action()();
    EXPECT_EQ(presenter_.taken(), "close 0;");
    const auto close = state(2)->action();
    form_.reset();
    notice->linkClicked()(QUrl(u"https://example.org/b"_s));
    close();
    EXPECT_EQ(presenter_.taken(), "");
}

TEST(FormBase, HasAnIdentityAndAView)
{
    const auto one = makeElement<FormBase>();
    EXPECT_NE(one->id(), makeElement<FormBase>()->id());
    EXPECT_NE(one->view(), one->view());
    one->setHidden(true);
    one->setHidden(false);
    EXPECT_FALSE(one->view()->isVisible()) << "a view without a parent would be a window";
}

TEST(FormItem, IsComparedByNameAndValueUnlessItIsASeparator)
{
    const FormItem separator;
    EXPECT_TRUE(separator.isSeparator());
    EXPECT_EQ(separator, FormItem(separator));
    EXPECT_NE(separator, FormItem());
    EXPECT_EQ(FormItem(u"a"_s, 7), FormItem(u"a"_s, u"7"_s, false, 3, QColor(Qt::red)));
    EXPECT_NE(FormItem(u"a"_s, 7), FormItem(u"a"_s, 8));
    EXPECT_NE(FormItem(u"a"_s, 7), FormItem(u"b"_s, 7));
    EXPECT_FALSE(FormItem(u"Heading"_s, QString(), false).isSeparator());
}

} // namespace
