// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormButton.h"
#include "RendererFixture.h"
#include "Support/WaitFor.h"

#include <QLineEdit>
#include <QScrollArea>

using namespace quor::formkit;
using namespace quor::test;
using Layout = Form::Layout;
using Mode = FormViewRenderer::RenderMode;

namespace {

TEST_F(FormRenderer, CopesWithElementsInTwoPlacesAndWithWhatEnds)
{
    TestForm form;
    const auto twice = form.add(row(QStringLiteral("Twice"), 20));
    form.add(twice);
    auto released = form.add(row(QStringLiteral("Released"), 20));
    render(form);
    EXPECT_EQ(labels().size(), 2U);
    EXPECT_EQ(renderer->heightForWidth(400), 13 + 2 * 28 + 20);

    QWidget otherWindow;
    auto otherRenderer = std::make_unique<FormViewRenderer>(Mode::stickyHeaders, otherWindow, true);
    {
        TestForm other;
        other.add(twice);
        otherRenderer->render(other);
    }
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(renderer->heightForWidth(400), 13 + 28 + 20) << "its view is in the other window now";
    otherRenderer.reset();
    ASSERT_NE(twice->view(), nullptr);
    render(form);
    EXPECT_TRUE(twice->view()->isVisible());

    delete released->view();
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(renderer->heightForWidth(400), 13 + 28 + 20);
    render(form);
    auto ended = std::make_unique<QWidget>();
    FormViewRenderer outliving(Mode::stickyHeaders, *ended, false);
    form.setNeedsRender(true);
    outliving.render(form);
    ended.reset();
    form.setNeedsRender(true);
    outliving.render(form);
    EXPECT_NE(twice->view(), nullptr) << "the views of elements survive";
    window.resize(0, 0);
    render(form);
}

TEST_F(FormRenderer, AHandlerMayEndTheRendererWhileItRenders)
{
    enum class Change { removal, emptying, disabling };
    struct Case {
        Mode mode;
        Change change;
    };
    for (const Change change : {Change::removal, Change::emptying, Change::disabling}) {
        for (const Case& each : {Case{Mode::normal, change}, Case{Mode::stickyHeaders, change}}) {
            TestForm form(Layout::leftHeaders, 0.6, QStringLiteral("Title"));
            const auto field = form.add(makeElement<FormButton>());
            const auto last = form.add(makeViewElement<QLineEdit>(QString()));
            form.setDefaultButton(field); // in the heading, if there is one
            auto view = std::make_unique<QWidget>();
            auto* const rendering = new FormViewRenderer(each.mode, *view, false);
            renderer.reset(rendering);
            rendering->render(form);
            view->show();
            view->activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
            field->button()->setFocus();
            const QObject context; // ends the connection
            QObject::connect(qApp, &QApplication::focusChanged, &context, [&] { renderer.reset(); });
            form.setEnabled(change != Change::disabling);
            if (change != Change::disabling) {
                form.setDefaultButton(nullptr);
                form.removeElement(*field);
            }
            if (change == Change::emptying)
                form.removeElement(*last);
            form.setNeedsRender(true);
            rendering->render(form);
            EXPECT_EQ(renderer, nullptr);
            EXPECT_TRUE(field->view() && last->view()) << "the views of elements survive";
        }
    }
}

TEST_F(FormRenderer, AFormIsRenderedLaterIfAHandlerAsksDuringARender)
{
    TestForm form;
    const auto field = form.add(makeViewElement<QLineEdit>(QString()));
    const auto moved = form.add(makeViewElement<QLineEdit>(QString()));
    const auto alsoMoved = form.add(makeViewElement<QLineEdit>(QString()));
    render(form);
    TestForm next;
    const auto shown = next.add(makeViewElement<QLineEdit>(QString()));
    struct Target : quor::platform::Trackable {
    } target;
    static_cast<Form&>(next).add(
        target, [&](Target&, Form&, const std::any&) { renderer->render(next); },
        FormEvent::internalNeedsRender);
    QWidget otherWindow;
    FormViewRenderer otherRenderer(Mode::normal, otherWindow, false);
    TestForm other;
    field->view()->setFocus();
    QObject::connect(
        qApp, &QApplication::focusChanged, &otherWindow,
        [&] {
            renderer->render(next);
            for (const auto& element : {field, moved, alsoMoved})
                other.add(element);
            otherRenderer.render(other);
        },
        Qt::SingleShotConnection);
    form.removeElement(*field);
    form.removeElement(*moved);
    renderer->render(form);
    for (const auto& element : {field, moved, alsoMoved})
        EXPECT_EQ(element->view()->parentWidget(), &otherWindow);
    EXPECT_TRUE(waitFor([&] { return shown->view()->isVisible(); }));
}

} // namespace
