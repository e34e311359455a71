// SPDX-License-Identifier: MIT
#include "Platform/Views/Table/TableView.h"

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QMouseEvent>
#include <QWindow>

#include <benchmark/benchmark.h>

namespace {

using namespace quor::platform;

/// Rows of labels of two heights, the one under the pointer selected, as in a menu.
class Labels final : public TableViewDataSource, public TableViewDelegate {
public:
    explicit Labels(int count)
        : count_(count)
    {
    }
    int numberOfRows(const TableView& /*table*/) const override { return count_; }
    int heightOfRow(const TableView& /*table*/, int row) const override { return row % 10 == 9 ? 10 : 22; }
    QWidget* viewForRow(TableView& table, int row) override
    {
        auto* label = qobject_cast<QLabel*>(table.makeView(QStringLiteral("label")));
        if (!label) {
            label = new QLabel;
            label->setObjectName(QStringLiteral("label"));
        }
        label->setText(QStringLiteral("Task number %1").arg(row));
        return label;
    }
    bool shouldSelectRow(const TableView& /*table*/, int row) const override { return row % 10 != 9; }
    void pointerDidHoverRow(TableView& table, int row) override
    {
        table.selectRowIndexes(TableViewRowSet(row), false);
    }

private:
    int count_;
};

/// A shown table, as high as a menu on a usual screen.
struct Scene {
    explicit Scene(int count)
        : rows(count)
    {
        table.setDataSource(&rows);
        table.setDelegate(&rows);
        table.resize(300, 440);
        table.show();
        table.reloadData();
        paint();
    }
    void paint()
    {
        table.render(&image);
        QCoreApplication::processEvents();
    }

    Labels rows;
    TableView table;
    QImage image{300, 440, QImage::Format_ARGB32_Premultiplied};
};

void firstPaint(benchmark::State& state)
{
    for (auto _ : state) {
        Scene scene(static_cast<int>(state.range(0)));
        benchmark::DoNotOptimize(scene.image.constBits());
    }
}
BENCHMARK(firstPaint)->Arg(20)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

/// The floor: a screenful of labels in a plain widget.
void firstPaintByHand(benchmark::State& state)
{
    for (auto _ : state) {
        QWidget window;
        window.resize(300, 440);
        for (int row = 0; row < 20; ++row) {
            auto* label = new QLabel(QStringLiteral("Task number %1").arg(row), &window);
            label->setGeometry(0, row * 22, 300, 22);
        }
        window.show();
        QImage image(300, 440, QImage::Format_ARGB32_Premultiplied);
        window.render(&image);
        QCoreApplication::processEvents();
        benchmark::DoNotOptimize(image.constBits());
    }
}
BENCHMARK(firstPaintByHand)->Unit(benchmark::kMicrosecond);

void reload(benchmark::State& state)
{
    Scene scene(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        scene.table.reloadData();
        scene.paint();
    }
}
BENCHMARK(reload)->Arg(20)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

void reloadOfOneHeight(benchmark::State& state)
{
    Scene scene(static_cast<int>(state.range(0)));
    scene.table.setUniformRowHeight(22);
    for (auto _ : state) {
        scene.table.reloadData();
        scene.paint();
    }
}
BENCHMARK(reloadOfOneHeight)->Arg(20)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

/// One move of the pointer to another row, up to the painted window.
void hover(benchmark::State& state)
{
    Scene scene(10'000);
    QWindow* window = scene.table.windowHandle();
    int y = 0;
    for (auto _ : state) {
        y = (y + 22) % 440;
        const QPointF point(50, y);
        QMouseEvent move(QEvent::MouseMove, point, scene.table.mapToGlobal(point), Qt::NoButton, Qt::NoButton,
            Qt::NoModifier);
        QCoreApplication::sendEvent(window, &move);
        QCoreApplication::processEvents();
    }
}
BENCHMARK(hover)->Unit(benchmark::kMicrosecond);

/// One arrow key; most scroll the list by a row.
void arrowKey(benchmark::State& state)
{
    Scene scene(10'000);
    for (auto _ : state) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
        QCoreApplication::sendEvent(&scene.table, &press);
        QCoreApplication::processEvents();
        if (scene.table.selectedRow() > 9'900)
            scene.table.walk(TableViewStep::first);
    }
}
BENCHMARK(arrowKey)->Unit(benchmark::kMicrosecond);

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
