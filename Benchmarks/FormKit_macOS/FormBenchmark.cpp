// SPDX-License-Identifier: MIT
#include "FieldElement.h"
#include "FormKit/Form.h"
#include "FormKit_macOS/Elements/FormButton.h"
#include "FormKit_macOS/Elements/FormCheckBox.h"
#include "FormKit_macOS/Elements/FormHintText.h"
#include "FormKit_macOS/Elements/FormSeparator.h"
#include "FormKit_macOS/FormViewFactory.h"
#include "FormKit_macOS/Rendering/FormViewRenderer.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>

#include <benchmark/benchmark.h>

namespace {

using namespace quor::formkit;

constexpr int formWidth = 400;
constexpr double inputSizeRatio = 0.6;

/// Of ten rows, six are fields with a label, and one each a check box, a button, a text and a separator.
std::shared_ptr<FormElement> makeRow(int index)
{
    switch (index % 10) {
    case 6: {
        auto element = makeElement<FormCheckBox>();
        element->setTitle(QStringLiteral("Remind me"));
        return element;
    }
    case 7: {
        auto element = makeElement<FormButton>();
        element->setTitle(QStringLiteral("Add"));
        return element;
    }
    case 8: {
        auto element = makeElement<FormHintText>();
        element->setValue(QStringLiteral("Used when the task has no rate of its own."));
        return element;
    }
    case 9:
        return makeElement<FormSeparator>();
    default: {
        auto element = makeElement<FieldElement>();
        element->setLabel(QStringLiteral("Field %1").arg(index));
        return element;
    }
    }
}

std::shared_ptr<Form> makeForm(int rows)
{
    auto form = std::make_shared<Form>(
        std::nullopt, std::make_shared<FormViewFactory>(), formWidth, inputSizeRatio);
    for (int row = 0; row < rows; ++row)
        form->addElement(makeRow(row));
    return form;
}

/// A shown window with an empty container that scrolls.
class Window {
public:
    Window()
    {
        area_.setWidget(new QWidget);
        area_.setWidgetResizable(true);
        area_.resize(formWidth, 600);
        area_.show();
        QCoreApplication::processEvents();
    }
    [[nodiscard]] QWidget& container() { return *area_.widget(); }
    /// Until no widget in the window has to be placed any more.
    static void layOut() { QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest); }

private:
    QScrollArea area_;
};

bool isPlaced(const Form& form)
{
    const auto& elements = form.elements();
    return elements.back()->isHidden() || elements.back()->view()->y() > int(elements.size());
}

/// One first render: the views of the elements were never shown before, the labels are made.
void renderForm(benchmark::State& state, int shown, int hidden)
{
    for (auto _ : state) {
        state.PauseTiming();
        {
            const auto form = makeForm(shown + hidden);
            for (int row = shown; row < shown + hidden; ++row)
                form->elements()[std::size_t(row)]->setHidden(true);
            Window window;
            FormViewRenderer renderer(FormViewRenderer::RenderMode::normal, window.container(), false);
            state.ResumeTiming();
            renderer.render(*form);
            Window::layOut();
            state.PauseTiming();
            if (!isPlaced(*form))
                state.SkipWithError("the rows were not placed");
        }
        deleteWidgets();
        state.ResumeTiming();
    }
}

void render(benchmark::State& state)
{
    renderForm(state, int(state.range(0)), 0);
}
BENCHMARK(render)->ArgName("rows")->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);

/// A hidden row costs the walk over the elements only.
void renderWithHidden(benchmark::State& state)
{
    renderForm(state, int(state.range(0)), int(state.range(1)));
}
BENCHMARK(renderWithHidden)
    ->ArgNames({"shown", "hidden"})
    ->Args({1'000, 0})
    ->Args({1'000, 9'000})
    ->Unit(benchmark::kMillisecond);

/// The floor: the same views, and labels that are ready, too, get their parent and a place that was computed
/// before, and are shown.
void placeByHand(benchmark::State& state)
{
    struct Placement {
        QWidget* widget;
        QRect geometry;
    };
    for (auto _ : state) {
        state.PauseTiming();
        {
            const auto form = makeForm(int(state.range(0)));
            std::vector<std::unique_ptr<QLabel>> labels;
            std::vector<Placement> placements;
            int top = 8;
            for (const auto& element : form->elements()) {
                constexpr int left = 140;
                constexpr int width = 240;
                constexpr int gap = 8;
                const int height = element->view()->sizeHint().height();
                if (!element->label().isEmpty()) {
                    labels.push_back(std::make_unique<QLabel>(element->label()));
                    placements.push_back({labels.back().get(), {20, top, left - 30, 17}});
                }
                placements.push_back({element->view(), {left, top, width, height}});
                top += height + gap;
            }
            Window window;
            QWidget& container = window.container();
            state.ResumeTiming();
            for (const Placement& each : placements) {
                each.widget->setParent(&container);
                each.widget->setGeometry(each.geometry);
                each.widget->show();
            }
            container.setMinimumHeight(top);
            Window::layOut();
            state.PauseTiming();
            for (const Placement& each : placements)
                each.widget->setParent(nullptr);
        }
        deleteWidgets();
        state.ResumeTiming();
    }
}
BENCHMARK(placeByHand)->ArgName("rows")->Arg(1'000)->Unit(benchmark::kMillisecond);

/// A row in the middle goes or comes back.
void hideOneRow(benchmark::State& state)
{
    const auto form = makeForm(int(state.range(0)));
    Window window;
    FormViewRenderer renderer(FormViewRenderer::RenderMode::normal, window.container(), false);
    renderer.render(*form);
    Window::layOut();
    FormElement& row = *form->elements()[form->elements().size() / 2];
    for (auto _ : state) {
        row.setHidden(!row.isHidden());
        renderer.render(*form);
        Window::layOut();
    }
}
BENCHMARK(hideOneRow)->ArgName("rows")->Arg(1'000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen"); // measure our code, not the X server
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
