// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/MenuBarCustomMenu.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWindow>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;
using namespace quor;
using namespace quor::helper;

namespace {

enum class Script { latin, han, arabic };

/// Rows as a tracker sends them: the search field, some headings, tasks of many lengths. No row reaches the
/// greatest width, as measuring stops there.
std::vector<MenuEntry> rowsOf(int count, Script script = Script::latin)
{
    std::vector<MenuEntry> rows{{MenuEntry::Search{}}};
    const std::array latin{u"Design"_s, u"Review of the plan"_s, u"Customer call"_s, u"Bookkeeping"_s};
    const std::array han{u"設計作業"_s, u"計画確認会議"_s, u"顧客電話"_s, u"帳簿記入"_s};
    const std::array arabic{u"تصميم"_s, u"مراجعة الخطة"_s, u"مكالمة العميل"_s, u"محاسبة"_s};
    const auto& texts = script == Script::latin ? latin : script == Script::han ? han : arabic;
    while (int(rows.size()) < count) {
        const auto index = rows.size();
        if (index % 50 == 1) {
            rows.push_back({MenuEntry::Separator{}});
            continue;
        }
        MenuEntry::Entry entry;
        entry.label = u"%1 %2"_s.arg(texts[index % texts.size()]).arg(index * 7919 % 10'000);
        entry.isTitle = index % 50 == 2;
        entry.action = {MenuEntry::Entry::Action::Start{QString::number(index)}};
        rows.push_back({entry});
    }
    return rows;
}

/// A menu in a shown window.
struct Scene {
    explicit Scene(std::vector<MenuEntry> rows)
    {
        menu.dataList = std::move(rows);
        menu.reload();
        menu.show();
        paint();
    }
    /// Paints pending changes now instead of some milliseconds later.
    void paint()
    {
        QCoreApplication::processEvents();
        QEvent paintNow(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(&menu, &paintNow);
    }
    void send(QEvent& event, QObject& receiver)
    {
        QCoreApplication::sendEvent(&receiver, &event);
        paint();
    }

    platform::SystemClock clock;
    MenuBarCustomMenu menu{true, 300, clock};
};

/// From the decoded rows to the first paint, the menu's creation included.
void firstPaint(benchmark::State& state)
{
    const std::vector<MenuEntry> rows = rowsOf(int(state.range(0)), Script(state.range(1)));
    for ([[maybe_unused]] const auto _ : state) {
        state.PauseTiming();
        std::vector<MenuEntry> copy = rows;
        state.ResumeTiming();
        auto scene = std::make_unique<Scene>(std::move(copy));
        state.PauseTiming();
        scene.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(firstPaint)
    ->ArgNames({"rows", "script"})
    ->ArgsProduct({{20, 10'000, 100'000}, {int(Script::latin), int(Script::han), int(Script::arabic)}})
    ->Unit(benchmark::kMicrosecond);

/// New rows for a menu that is open.
void reload(benchmark::State& state)
{
    const std::vector<MenuEntry> rows = rowsOf(int(state.range(0)));
    Scene scene(rows);
    for ([[maybe_unused]] const auto _ : state) {
        scene.menu.reload();
        scene.paint();
    }
}
BENCHMARK(reload)->ArgName("rows")->Arg(20)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);

/// One move of the pointer to another row, up to the painted window.
void hover(benchmark::State& state)
{
    Scene scene(rowsOf(10'000));
    int y = 0;
    for ([[maybe_unused]] const auto _ : state) {
        y = (y + 22) % scene.menu.height();
        const QPointF point(50, y);
        QMouseEvent move(QEvent::MouseMove, point, scene.menu.mapToGlobal(point), Qt::NoButton, Qt::NoButton,
            Qt::NoModifier);
        scene.send(move, *scene.menu.windowHandle());
    }
}
BENCHMARK(hover)->Unit(benchmark::kMicrosecond);

/// One arrow key in the search field; most scroll the list by a row.
void arrowKey(benchmark::State& state)
{
    Scene scene(rowsOf(10'000));
    for ([[maybe_unused]] const auto _ : state) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
        scene.send(press, scene.menu.searchView());
        if (scene.menu.tableView().selectedRow() > 9'900)
            scene.menu.tableView().walk(platform::TableViewStep::first);
    }
}
BENCHMARK(arrowKey)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen"); // measure our code, not the X server
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
