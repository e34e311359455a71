// SPDX-License-Identifier: MIT
//
// One update of the status item, from the notification to the finished image. The floor is the least work
// that such an update needs: read five files and paint the same pill, with all contents known in advance.
#include "BenchmarkDesktop.h"
#include "HelperMenubarManager.h"
#include "InterAppCommBridge/GroupStorage.h"
#include "ToolKit/Drawing/Text/SystemFont.h"
#include "View/StatusItem/MenubarStatusItemRenderer.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QTemporaryDir>
#include <QWindow>

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quor;

namespace {

constexpr int records = 64; // used in turn, so that each update changes the image

// Each record has half an hour more of work than the one before.
double progressOf(int record)
{
    return record / double(records);
}
double secondsOf(int record)
{
    return progressOf(record) * 8 * 3600;
}

// A data folder for each record, so that no file is written within the measured time.
class Suites final {
public:
    Suites()
    {
        for (int record = 0; record < records; ++record) {
            const QByteArray folder = QFile::encodeName(folder_.filePath(QString::number(record)));
            QDir().mkpath(QFile::decodeName(folder));
            folders_[std::size_t(record)] = folder;
            use(record);
            MenubarStatusItemData data;
            data.expectedWorkingTime = 8 * 3600;
            data.inactiveTotalTimeToday = secondsOf(record);
            data.taskName = u"Design work"_s;
            data.menuBarShowActiveTask = true;
            data.menuBarShowDayProgress = true;
            data.menuBarShowDailyTotal = true;
            const GroupStorage storage;
            storage.setTimerData(data);
            storage.setAction({});
            storage.setShowWorkingDays(false);
            storage.setWorkingDayLengthSeconds(28800);
            storage.setShowDurationInPercent(false);
        }
    }
    void use(int record) const { qputenv("XDG_DATA_HOME", folders_[std::size_t(record)]); }

private:
    QTemporaryDir folder_;
    std::array<QByteArray, records> folders_;
};

QScreen& screenOfScale(double scale)
{
    for (QScreen* screen : QGuiApplication::screens()) {
        if (screen->devicePixelRatio() == scale)
            return *screen;
    }
    qFatal("no screen of that scale");
}

void update(benchmark::State& state)
{
    const Suites suites;
    suites.use(0);
    BenchmarkDesktop desktop;
    const helper::HelperMenubarManager manager(desktop.services());
    QScreen& screen = screenOfScale(double(state.range(0)));
    desktop.window().windowHandle()->setScreen(&screen);
    desktop.window().move(screen.geometry().topLeft());
    QApplication::processEvents();
    int record = 0;
    for ([[maybe_unused]] const auto _ : state) {
        suites.use(record);
        desktop.notify();
        record = (record + 1) % records;
    }
    const auto& pill = manager.statusItem()->button().image().pixels;
    if (pill.devicePixelRatio() != double(state.range(0)))
        state.SkipWithError("drawn for another scale");
}

// Five files for each record, in the folder of the suite.
class FiveFiles final {
public:
    FiveFiles()
    {
        for (int record = 0; record < records; ++record) {
            const QDir folder(folder_.filePath(u"%1/QX77Z4012M.com.quor-app/Preferences"_s.arg(record)));
            folder.mkpath(u"."_s);
            for (QByteArray& path : paths_[std::size_t(record)]) {
                const QString name = folder.filePath(
                    u"workingDayLength%1"_s.arg(&path - paths_[std::size_t(record)].data()));
                QFile file(name);
                (void)file.open(QFile::WriteOnly);
                file.write(QByteArray(500, 'x'));
                path = QFile::encodeName(name);
            }
        }
    }
    void read(int record) const
    {
        std::array<char, 512> content;
        for (const QByteArray& path : paths_[std::size_t(record)]) {
            const int file = ::open(path.constData(), O_RDONLY | O_CLOEXEC);
            benchmark::DoNotOptimize(::read(file, content.data(), content.size()));
            ::close(file);
        }
    }

private:
    QTemporaryDir folder_;
    std::array<std::array<QByteArray, 5>, records> paths_;
};

struct Texts {
    QString task;
    QString time;
};

QImage blank(QSizeF size, double scale)
{
    QImage image((size * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    return image;
}

// The cut-outs are painted into a mask that is punched out at once: half the time of punching each.
QImage paintedByHand(const QFont& font, const Texts& texts, double progress, double scale)
{
    const QFontMetricsF metrics(font);
    const double taskWidth = std::ceil(metrics.horizontalAdvance(texts.task));
    const double timeWidth = std::ceil(metrics.horizontalAdvance(texts.time));
    const QSizeF size(7 + 10 + 5 + taskWidth + 4 + 2 + timeWidth + 4 + 7, 16);

    QImage mask = blank(size, scale);
    QPainter painter(&mask);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF ring(7 + 1.25, 3 + 1.25, 7.5, 7.5);
    painter.setPen(QPen(Qt::white, 2.3, Qt::SolidLine, Qt::RoundCap));
    painter.drawEllipse(ring);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.setPen(QPen(QColor(255, 255, 255, 102), 2.5, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(ring, 90 * 16, int(-progress * 360 * 16));
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(QPointF(24, 12), texts.task);
    painter.drawText(QPointF(24 + taskWidth + 6, 12), texts.time);
    painter.end();

    QImage pill = blank(size, scale);
    painter.begin(&pill);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(QRectF(QPointF(), size), 8, 8);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.drawImage(0, 0, mask);
    return pill;
}

void filesAndPillByHand(benchmark::State& state)
{
    const FiveFiles files;
    const QFont font = toolkit::monospacedDigitFont(11, QFont::Medium);
    std::array<Texts, records> texts;
    for (int record = 0; record < records; ++record) {
        const int minutes = int(secondsOf(record) / 60);
        texts[std::size_t(record)] = {u"Design work"_s,
            u"%1:%2"_s.arg(minutes / 60, 2, 10, QChar(u'0')).arg(minutes % 60, 2, 10, QChar(u'0'))};
    }
    int record = 0;
    for ([[maybe_unused]] const auto _ : state) {
        files.read(record);
        benchmark::DoNotOptimize(
            paintedByHand(font, texts[std::size_t(record)], progressOf(record), double(state.range(0))));
        record = (record + 1) % records;
    }
}

BENCHMARK(filesAndPillByHand)->ArgName("scale")->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);
BENCHMARK(update)->ArgName("scale")->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);

// Two screens without a display, one of them of twice the scale.
QByteArray platformWithScreens(const QTemporaryDir& folder)
{
    const QString path = folder.filePath(u"screens.json"_s);
    QFile file(path);
    (void)file.open(QFile::WriteOnly);
    file.write(R"({"synchronousWindowSystemEvents": false, "windowFrameMargins": false, "screens": [
        {"name": "plain", "x": 0, "y": 0, "width": 800, "height": 600,
         "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
        {"name": "double", "x": 800, "y": 0, "width": 1600, "height": 1200,
         "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 2}]})");
    return "offscreen:configfile=" + QFile::encodeName(path);
}

} // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir folder;
    qputenv("QT_QPA_PLATFORM", platformWithScreens(folder));
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
