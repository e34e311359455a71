// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormButton.h"
#include "FormKit_macOS/Elements/FormCheckBox.h"
#include "FormKit_macOS/Elements/FormRadioButton.h"
#include "FormKit_macOS/Elements/FormSeparator.h"
#include "FormKit_macOS/Elements/FormTitle.h"
#include "Platform/Views/KeyboardAccess.h"
#include "RendererFixture.h"

#include <QHBoxLayout>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

#include <cmath>

using namespace quor::formkit;
using namespace quor::test;
using Layout = Form::Layout;
using Mode = FormViewRenderer::RenderMode;

namespace {

TEST_F(FormRenderer, PlacesInputsBesideTheirLabels)
{
    TestForm form(Layout::leftHeaders, 0.6);
    const auto plain = form.add(row(QStringLiteral("Name"), 30));
    const auto detailed = form.add(row(QStringLiteral("Day"), 20));
    detailed->setDetailElement(std::make_shared<Detail>(QSize(16, 10)));
    const auto separator = form.add(makeElement<FormSeparator>());
    const auto title = form.add(makeElement<FormTitle>(FormTitle::TitleType::title, false));
    const auto wrapping = form.add(row({}, 1, 240 * 70));
    render(form);
    // The transparent separator of a form without a title: from 8 to 13.
    EXPECT_EQ(rectOf(*renderer->titleElements().at(0)), QRect(10, 8, 380, 5));
    EXPECT_EQ(rectOf(*plain), QRect(140, 21, 240, 30));
    EXPECT_EQ(rectOf(*detailed), QRect(140, 59, 214, 20));
    EXPECT_EQ(detailed->detailElement()->view()->geometry(), QRect(364, 64, 16, 10));
    EXPECT_EQ(rectOf(*separator), QRect(10, 87, 380, 15));
    EXPECT_EQ(rectOf(*title).topLeft(), QPoint(20, 110));
    EXPECT_EQ(rectOf(*title).width(), 360);
    EXPECT_EQ(rectOf(*wrapping), QRect(140, rectOf(*title).bottom() + 9, 240, 70));
    EXPECT_EQ(renderer->heightForWidth(400), rectOf(*wrapping).bottom() + 21);
    const auto found = labels();
    ASSERT_EQ(found.size(), 2U) << "none for the row without a label";
    EXPECT_EQ(found[0]->x(), 20);
    EXPECT_EQ(found[0]->width(), 110);
    EXPECT_EQ(found[0]->y() + *firstBaseline(*found[0]), 31);
    EXPECT_EQ(found[1]->y() + *firstBaseline(*found[1]), 69);

    window.setLayoutDirection(Qt::RightToLeft);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(rectOf(*plain), QRect(20, 21, 240, 30));
    EXPECT_EQ(rectOf(*detailed), QRect(46, 59, 214, 20));
    EXPECT_EQ(detailed->detailElement()->view()->x(), 20);
    EXPECT_EQ(found[0]->geometry().right(), 379);
}

TEST_F(FormRenderer, FullRowsHaveNoLabels)
{
    TestForm form(Layout::leftHeaders, 1.0);
    const auto plain = form.add(row(QStringLiteral("Name"), 30));
    const auto detailed = form.add(row(QStringLiteral("Day"), 20));
    detailed->setDetailElement(std::make_shared<Detail>(QSize(16, 10)));
    render(form);
    EXPECT_EQ(rectOf(*plain), QRect(20, 21, 360, 30));
    EXPECT_EQ(rectOf(*detailed), QRect(20, 59, 334, 20));
    EXPECT_TRUE(labels().empty());
}

/// Rows: l labelled, n without label, s separator, t title, c check box, r radio button.
std::shared_ptr<FormElement> rowOf(char kind)
{
    switch (kind) {
    case 's':
        return makeElement<FormSeparator>();
    case 't':
        return makeElement<FormTitle>(FormTitle::TitleType::title, false);
    case 'c':
        return makeElement<FormCheckBox>();
    case 'r':
        return makeElement<FormRadioButton>();
    default:
        return row(kind == 'l' ? QStringLiteral("Label") : QString(), 20);
    }
}

TEST_F(FormRenderer, RowsBelowTheirLabelsStandApartByTheirKinds)
{
    use(Mode::stickyHeaders); // which has no separator before the first row
    struct Case {
        const char* rows;
        std::vector<int> gaps; ///< above each row, above its label if it has one
    };
    const Case cases[] = {
        {"nn", {8, 16}},
        {"ll", {8, 16}},
        {"nl", {8, 16}},
        {"ln", {8, 16}},
        {"tn", {16, 4}},
        {"tt", {16, 4}},
        {"nt", {8, 16}},
        {"ct", {8, 16}},
        {"st", {8, 16}},
        {"sn", {8, 8}},
        {"sl", {8, 8}},
        {"cn", {8, 8}},
        {"cc", {8, 8}},
        {"cl", {8, 16}},
        {"rr", {8, 8}},
        {"rc", {8, 16}},
        {"ns", {8, 16}},
        {"tl", {16, 16}},
    };
    for (const Case& each : cases) {
        TestForm form(Layout::topHeaders);
        for (const char* kind = each.rows; *kind; ++kind)
            form.addElement(rowOf(*kind));
        render(form);
        std::vector<int> gaps;
        int bottom = 8; // of the top of the scroll view
        for (const auto& element : form.elements()) {
            int top = rectOf(*element).top();
            for (const FormRowLabel* const label : labels()) {
                if (const int y = label->mapTo(&window, QPoint()).y(); y >= bottom && y < top) {
                    EXPECT_EQ(y + label->height() + 4, top);
                    EXPECT_EQ(label->x(), 20);
                    top = y;
                }
            }
            gaps.push_back(top - bottom);
            bottom = rectOf(*element).bottom() + 1;
        }
        EXPECT_EQ(gaps, each.gaps) << each.rows;
    }
}

TEST_F(FormRenderer, KeepsSeparatorsApartAndNoticesListed)
{
    TestForm form;
    std::vector<std::shared_ptr<FormElement>> kept;
    for (const char kind : {'s', 's', 'h', 's', 'n', 's'}) {
        const auto element = rowOf(kind);
        element->setHidden(kind == 'h');
        form.addElement(element);
    }
    render(form);
    const auto& elements = form.elements();
    EXPECT_EQ(renderer->renderedElements(), (Form::Elements{elements[0], elements[4], elements[5]}));

    TestForm onlyNotices;
    onlyNotices.addNotice(QStringLiteral("Saved"), Qt::red);
    render(onlyNotices);
    EXPECT_EQ(renderer->renderedElements(), onlyNotices.noticeElements());
    EXPECT_EQ(onlyNotices.noticeElements()[0]->view()->parentWidget(), nullptr);
    EXPECT_EQ(elements[0]->view()->parentWidget(), nullptr);
    EXPECT_EQ(renderer->heightForWidth(400), 0);
}

TEST_F(FormRenderer, HeadingFollowsTitleAndBackNavigation)
{
    const auto size = [&](std::optional<QString> title, bool back, Mode mode) {
        renderer.reset();
        use(mode, back);
        TestForm form(Layout::leftHeaders, 0.6, std::move(title));
        form.setSubtitle(QStringLiteral("Subtitle"));
        form.add(row({}, 20));
        render(form);
        return renderer->titleElements().size();
    };
    EXPECT_EQ(size(QStringLiteral("Title"), false, Mode::normal), 3U);
    EXPECT_EQ(size({}, true, Mode::normal), 3U);
    EXPECT_EQ(
        std::dynamic_pointer_cast<FormTitle>(renderer->titleElements()[0])->text(), QStringLiteral("Back"));
    EXPECT_EQ(size({}, false, Mode::normal), 1U);
    EXPECT_EQ(size(QStringLiteral("Title"), false, Mode::stickyHeaders), 3U);
    EXPECT_EQ(size({}, false, Mode::stickyHeaders), 0U);
}

TEST_F(FormRenderer, StickyHeadingHoldsTheButtonsWhileTheRowsScroll)
{
    use(Mode::stickyHeaders);
    TestForm form(Layout::leftHeaders, 0.6, QStringLiteral("Title"));
    const auto button = makeElement<FormButton>();
    button->setTitle(QStringLiteral("Save"));
    form.setDefaultButton(button);
    form.add(button);
    for (int i = 0; i < 40; ++i)
        form.add(makeViewElement<QLineEdit>(QStringLiteral("Row")));
    render(form);
    auto* const cancel = dynamic_cast<FormButton&>(*form.cancelButton()).button();
    EXPECT_EQ(renderer->renderedElements().size(), 40U);
    EXPECT_EQ(button->button()->geometry().right(), 379);
    EXPECT_EQ(cancel->geometry().right() + 11, button->button()->x());
    const QRect title = rectOf(*renderer->titleElements()[0]);
    EXPECT_EQ(title.topLeft(), QPoint(20, 16));
    EXPECT_EQ(title.right() + 11, cancel->x());
    EXPECT_NEAR(button->button()->geometry().center().y(), title.center().y(), 1);
    const QRect separator = rectOf(*renderer->titleElements()[1]);
    EXPECT_EQ(separator, QRect(10, title.bottom() + 9, 380, 15));
    EXPECT_EQ(
        renderer->scrollView()->geometry(), QRect(0, separator.bottom() + 1, 400, 299 - separator.bottom()));

    QScrollBar* const bar = renderer->scrollView()->verticalScrollBar();
    bar->setValue(100);
    form.elements()[5]->setHidden(true);
    render(form);
    EXPECT_EQ(bar->value(), 100);
    form.elements().back()->view()->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(bar->value(), bar->maximum()) << "a control reached by keyboard is scrolled into view";
    form.addNotice(QStringLiteral("Wrong"), Qt::red);
    render(form);
    EXPECT_EQ(bar->value(), 0);
    bar->setValue(100);
    window.hide();
    form.setDefaultButton(form.cancelButton());
    render(form);
    EXPECT_EQ(bar->value(), 0) << "also if the form is shown only later";
    EXPECT_TRUE(cancel->isVisible()) << "one button may be both";
    form.setDefaultButton(button);
    render(form);

    TestForm untitled;
    untitled.setDefaultButton(button);
    untitled.add(button);
    untitled.add(row({}, 20));
    render(untitled);
    EXPECT_EQ(renderer->scrollView()->geometry(), QRect(0, 8, 400, 292));
    EXPECT_FALSE(button->button()->isVisible());
    EXPECT_EQ(button->button()->parentWidget(), button->view()) << "the button goes home";
    renderer.reset();
    EXPECT_EQ(renderer, nullptr);
    use(Mode::normal);
    render(untitled);
    EXPECT_TRUE(button->button()->isVisible());
}

TEST_F(FormRenderer, RenderKeepsFocusCaretAndSelection)
{
    TestForm form;
    const auto first = form.add(makeViewElement<QLineEdit>(QStringLiteral("First")));
    const auto second = form.add(makeViewElement<QLineEdit>(QStringLiteral("Second")));
    render(form);
    auto* const field = static_cast<QLineEdit*>(second->view());
    field->setText(QStringLiteral("12345"));
    field->setFocus();
    field->setSelection(1, 2);
    int focusChanges = 0;
    const QObject context; // ends the connection
    QObject::connect(qApp, &QApplication::focusChanged, &context, [&] { ++focusChanges; });
    first->setHidden(true);
    form.insertElement(row({}, 20), 0);
    render(form);
    EXPECT_EQ(focusChanges, 0);
    EXPECT_EQ(field->selectedText(), QStringLiteral("23"));
    first->setHidden(false);
    render(form);
    EXPECT_TRUE(first->view()->isVisible());
    EXPECT_EQ(focusChanges, 0);
    QInputMethodEvent composing(QStringLiteral("ni"), {});
    QApplication::sendEvent(field, &composing);
    const auto composed = [&] { return field->inputMethodQuery(Qt::ImCursorRectangle).toRectF().left(); };
    const double caret = composed();
    first->setHidden(true);
    form.setTitle(QStringLiteral("Title"));
    render(form);
    EXPECT_EQ(composed(), caret) << "the text that is being composed";
    QInputMethodEvent cancelled;
    QApplication::sendEvent(field, &cancelled);
    EXPECT_NE(composed(), caret);
    const auto last = form.add(makeViewElement<QLineEdit>(QStringLiteral("Last")));
    render(form);
    form.removeElement(*second);
    render(form);
    EXPECT_TRUE(last->view()->hasFocus()) << "the row after the one that left";
}

TEST_F(FormRenderer, SizesAreAskedOnceARow)
{
    TestForm form;
    std::vector<const SizedView*> views;
    views.reserve(4);
    for (int i = 0; i < 4; ++i)
        views.push_back(static_cast<SizedView*>(form.add(row(QStringLiteral("Row"), 20))->view()));
    render(form);
    for (const SizedView* const view : views)
        view->questions = 0;
    form.elements()[0]->setHidden(true);
    static_cast<SizedView*>(form.elements()[1]->view())->setHint({50, 30});
    render(form);
    window.resize(500, 300);
    EXPECT_GE(views[1]->questions, 1);
    EXPECT_EQ(views[2]->questions, 0);
    EXPECT_EQ(views[2]->y(), views[1]->y() + 38);
}

TEST_F(FormRenderer, LabelsNameAndFocusTheirInput)
{
    TestForm form;
    const auto element
        = form.add(makeViewElement<QLineEdit>(QStringLiteral("Salt & <b>pepper</b> ").repeated(9)));
    const auto other = form.add(makeViewElement<QLineEdit>(QStringLiteral("Other")));
    render(form);
    FormRowLabel* const label = labels().at(0);
    EXPECT_EQ(label->text().left(20), QStringLiteral("Salt & <b>pepper</b>"));
    EXPECT_EQ(element->view()->accessibleName(), label->text());
    EXPECT_EQ(label->height(), labels().at(1)->height()) << "one line";
    other->view()->setFocus();
    QTest::mouseClick(label, Qt::LeftButton);
    EXPECT_TRUE(element->view()->hasFocus());
    element->setLabel({});
    render(form);
    EXPECT_EQ(labels().size(), 1U);
    EXPECT_EQ(element->view()->accessibleName(), QString());
}

std::string tabOrder(QWidget& window, const std::map<QWidget*, char>& names)
{
    std::string order;
    for (std::size_t i = 0; i < names.size() + 1; ++i) {
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &window, Qt::Key_Tab);
        const auto found = names.find(QApplication::focusWidget());
        order += found == names.end() ? '?' : found->second;
        if (order.size() > 1 && order.front() == order.back())
            break;
    }
    return order;
}

TEST_F(FormRenderer, TabGoesThroughTheRowsInTheirOrder)
{
    TestForm form;
    const auto last = makeViewElement<QLineEdit>(QString());
    const auto button = makeElement<ViewElement>(std::unique_ptr<QWidget>(std::make_unique<QPushButton>()));
    const auto first = makeViewElement<QLineEdit>(QString());
    auto container = std::make_unique<QWidget>();
    auto* const inner = new QLineEdit;
    auto* const extra = new QPushButton;
    auto* const layout = new QHBoxLayout(container.get());
    layout->addWidget(extra);
    layout->addWidget(inner);
    const auto compound = makeElement<ViewElement>(std::unique_ptr<QWidget>(std::move(container)));
    compound->focusable = {inner};
    for (const auto& element : {first, button, compound, last})
        form.add(element);
    render(form);
    EXPECT_EQ(renderer->firstFocusableView(), first->view());
    const std::map<QWidget*, char> names
        = {{first->view(), 'f'}, {button->view(), 'b'}, {inner, 'i'}, {extra, 'x'}, {last->view(), 'l'}};
    last->view()->setFocus();
    EXPECT_EQ(tabOrder(window, names), "fbixlf");
    quor::platform::setFullKeyboardAccessEnabled(false);
    render(form);
    EXPECT_EQ(tabOrder(window, names), "ilfi");
    button->focusable = {button->view()};
    render(form);
    EXPECT_TRUE(button->view()->focusPolicy() & Qt::TabFocus) << "it is listed now";
    button->focusable.clear();
    quor::platform::setFullKeyboardAccessEnabled(true);
    form.setElements({last, compound, button, first});
    render(form);
    last->view()->setFocus();
    EXPECT_EQ(tabOrder(window, names), "ixbfli");
    first->view()->setEnabled(false);
    form.setElements({first, last});
    render(form);
    EXPECT_EQ(renderer->firstFocusableView(), last->view());
}

TEST_F(FormRenderer, EveryRatioKeepsInputsBetweenTheMargins)
{
    const std::pair<double, QRect> cases[] = {
        {0.5, {180, 21, 200, 20}},
        {0.95, {20, 21, 360, 20}},
        {0, {380, 21, 0, 20}},
        {-1, {380, 21, 0, 20}},
        {std::nan(""), {380, 21, 0, 20}},
        {1e-300, {380, 21, 0, 20}},
        {1e300, {20, 21, 360, 20}},
    };
    for (const auto& [ratio, rect] : cases) {
        renderer.reset();
        use(Mode::normal);
        TestForm form(Layout::leftHeaders, ratio);
        const auto input = form.add(row(QStringLiteral("Label"), 20));
        window.setMinimumSize(1, 1); // else the layout would set it
        window.resize(400, 300);
        render(form);
        EXPECT_EQ(rectOf(*input), rect) << ratio;
        EXPECT_LE(window.layout()->minimumSize().width(), 1000) << ratio;
    }
}

TEST_F(FormRenderer, DisabledFormDisablesItsRows)
{
    TestForm form;
    const auto element = form.add(row({}, 20));
    element->setDetailElement(std::make_shared<Detail>(QSize(10, 10)));
    const auto field = form.add(makeViewElement<QLineEdit>(QStringLiteral("Label")));
    form.setEnabled(false);
    EXPECT_TRUE(element->enabled());
    render(form);
    EXPECT_FALSE(element->enabled());
    EXPECT_FALSE(element->detailElement()->enabled());
    EXPECT_FALSE(labels().at(0)->isEnabled());
    for (const bool isEnabled : {true, false, true}) {
        field->setEnabled(isEnabled);
        field->view()->setEnabled(!isEnabled);
        EXPECT_EQ(labels().at(0)->isEnabled(), isEnabled) << "an input can be off in a row that is not";
    }
    form.setEnabled(true);
    EXPECT_TRUE(element->enabled());
}

} // namespace
