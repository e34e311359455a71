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

/// A window with a form of which a button has the focus, and that another render is about to take away.
struct Stage {
    explicit Stage(Mode mode)
        : renderer(mode, *content, false)
    {
        form.setDefaultButton(makeElement<FormButton>());
        labelled->setDetailElement(std::make_shared<Detail>(QSize(9, 9)));
        form.add(button);
        form.add(labelled);
        form.add(last);
        renderer.render(form);
        window->show();
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
        button->button()->setFocus();
        EXPECT_TRUE(button->button()->hasFocus());
    }
    ~Stage() { delete window; }

    QPointer<QWidget> window = new QWidget;
    QPointer<QWidget> content = new QWidget(window);
    TestForm form{Layout::leftHeaders, 0.6, QStringLiteral("Title")};
    std::shared_ptr<FormButton> button = makeElement<FormButton>();
    std::shared_ptr<ViewElement> labelled = makeViewElement<QLineEdit>(QStringLiteral("Label"));
    std::shared_ptr<ViewElement> last = makeViewElement<QLineEdit>(QString());
    FormViewRenderer renderer;
};

TEST_F(FormRenderer, AHandlerMayDeleteViewsDuringARender)
{
    const std::function<QWidget*(Stage&)> victims[] = {
        [](Stage& stage) { return stage.labelled->view(); },
        [](Stage& stage) { return stage.labelled->detailElement()->view(); },
        [](Stage& stage) { return stage.last->view(); },
        [](Stage& stage) { return stage.renderer.titleElements().front()->view(); },
        [](Stage& stage) { return dynamic_cast<FormButton&>(*stage.form.cancelButton()).button(); },
        [](Stage& stage) { return stage.content.data(); },
        [](Stage& stage) { return stage.window.data(); },
    };
    const std::function<void(Stage&)> changes[] = {
        [](Stage& stage) { stage.form.removeElement(*stage.button); },
        [](Stage& stage) {
            stage.form.setElements({stage.last, stage.labelled});
        },
        [](Stage& stage) { stage.form.setElements({}); },
        [](Stage& stage) { stage.form.setEnabled(false); },
        [](Stage& stage) { // its view comes from another place in the window
            stage.button->view()->setParent(stage.window);
            stage.button->view()->show();
            stage.button->button()->setFocus();
            stage.form.setElements({stage.button, stage.last, stage.labelled});
        },
    };
    for (const Mode mode : {Mode::normal, Mode::stickyHeaders}) {
        for (std::size_t change = 0; change < std::size(changes); ++change) {
            for (std::size_t victim = 0; victim < std::size(victims); ++victim) {
                if (change + 1 == std::size(changes) && victim + 1 == std::size(victims))
                    continue; // Qt does not survive the end of the view that is losing the focus
                SCOPED_TRACE(testing::Message() << int(mode) << ' ' << change << ' ' << victim);
                Stage stage(mode);
                changes[change](stage);
                stage.form.setNeedsRender(true);
                bool isDeleted = false;
                QObject::connect(
                    qApp, &QApplication::focusChanged, stage.window,
                    [&] {
                        isDeleted = true;
                        delete victims[victim](stage);
                    },
                    Qt::SingleShotConnection);
                stage.renderer.render(stage.form);
                EXPECT_TRUE(isDeleted);
                QCoreApplication::sendPostedEvents();
                stage.form.setEnabled(true);
                stage.form.setNeedsRender(true);
                stage.renderer.render(stage.form);
                QCoreApplication::sendPostedEvents();
            }
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
    for (const auto& element : {field, moved})
        EXPECT_EQ(element->view()->parentWidget(), &otherWindow);
    EXPECT_EQ(alsoMoved->view()->parentWidget(), &window) << "the render that ends last shows it";
    EXPECT_TRUE(waitFor([&] { return shown->view()->isVisible(); }));
}

} // namespace
