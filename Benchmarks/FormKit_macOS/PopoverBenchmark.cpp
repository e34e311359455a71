// SPDX-License-Identifier: MIT
#include "FieldElement.h"
#include "FormKit/Form.h"
#include "FormKit_macOS/FormViewFactory.h"
#include "FormKit_macOS/Presentation/FormContainerViewController.h"
#include "FormKit_macOS/Presentation/FormPopover.h"
#include "FormKit_macOS/Presentation/FormRenderViewController.h"
#include "Platform/Services/Appearance.h"
#include "Platform/Services/Application.h"
#include "Platform/Services/WindowServer.h"

#include <QApplication>
#include <QDialog>
#include <QFormLayout>
#include <QLineEdit>
#include <QLoggingCategory>

#include <benchmark/benchmark.h>

namespace {

using namespace quor;
using namespace quor::formkit;

constexpr int rows = 20;

class Desktop final : public platform::Application, public platform::WindowServer {
public:
    void terminate() override { }
    void activate(QWidget&) override { }
    [[nodiscard]] bool isCompositing() override { return false; }
    platform::Subscription observeCompositing(std::function<void()>) override { return {}; }
    void prepareMenuWindow(QWidget&) override { }
    [[nodiscard]] bool grabKeyboard(QWindow&) override { return false; }
    void releaseKeyboard(QWindow&) override { }
    [[nodiscard]] std::vector<QWindow*> orderedWindows() override { return {}; }
    [[nodiscard]] bool missesPresses() const override { return false; }
    [[nodiscard]] FormServices services() { return {*this, appearance_, *this}; }

private:
    platform::Appearance appearance_;
};

/// Becomes true when a window other than `known` has painted for the first time.
class FirstPaint final : public QObject {
public:
    explicit FirstPaint(const QWidget& known)
        : known_(known)
    {
        qApp->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* const widget = event->type() == QEvent::Paint ? qobject_cast<QWidget*>(watched) : nullptr;
        isPainted_ = isPainted_ || (widget && widget->window() != &known_);
        return false;
    }
    void wait() const
    {
        while (!isPainted_)
            QCoreApplication::processEvents();
    }

private:
    const QWidget& known_;
    bool isPainted_ = false;
};

QString labelOf(int row)
{
    return QStringLiteral("Field %1").arg(row);
}

/// The form and its elements are there; the controller makes its view.
void presentForm(benchmark::State& state)
{
    Desktop desktop;
    const auto factory = std::make_shared<FormViewFactory>();
    FormRenderViewController presenter(
        std::make_shared<Form>(std::nullopt, factory, 300, 0.6), false, desktop.services());
    QWidget window;
    window.resize(800, 600);
    presenter.view().setParent(&window);
    window.show();
    QCoreApplication::processEvents();
    for (auto _ : state) {
        state.PauseTiming();
        const auto form = std::make_shared<Form>(std::nullopt, factory, 300, 0.6);
        for (int row = 0; row < rows; ++row) {
            form->addElement(makeElement<FieldElement>());
            form->elements().back()->setLabel(labelOf(row));
        }
        auto container = std::make_shared<FormContainerViewController>(form, desktop.services());
        state.ResumeTiming();
        const FirstPaint paint(window);
        presenter.present(std::move(container), presenter.view(), false, platform::RectEdge::maxY);
        paint.wait();
        state.PauseTiming();
        presenter.closePopover();
        deleteWidgets();
        state.ResumeTiming();
    }
}
BENCHMARK(presentForm)->Unit(benchmark::kMillisecond);

/// The same widgets, which are there as well, in a bare dialog.
void showDialog(benchmark::State& state)
{
    QWidget window;
    window.resize(800, 600);
    window.show();
    QCoreApplication::processEvents();
    for (auto _ : state) {
        state.PauseTiming();
        std::vector<QLineEdit*> fields;
        fields.reserve(rows);
        for (int row = 0; row < rows; ++row)
            fields.push_back(new QLineEdit);
        state.ResumeTiming();
        const FirstPaint paint(window);
        auto dialog = std::make_unique<QDialog>(&window);
        auto* const layout = new QFormLayout(dialog.get());
        for (int row = 0; row < rows; ++row)
            layout->addRow(labelOf(row), fields[std::size_t(row)]);
        dialog->show();
        paint.wait();
        state.PauseTiming();
        dialog.reset();
        deleteWidgets();
        state.ResumeTiming();
    }
}
BENCHMARK(showDialog)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    // The offscreen platform warns about each window.
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
