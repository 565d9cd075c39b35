// What the progress bar takes of a program run in the window: programs of about 100,000 and 1,000,000 lines with the bar
// moving and the window alive, against the same walk whose bar stands still. "shown_ms" is the bar's first picture.
// Processor time, the smallest of some runs; on no display.
#include "platform/Screen.h"
#include "post/Korvanta_PostProcessor.h"
#include "qt/PictureBoxes.h"
#include "qt/StationWindow.h"
#include "qt/TopWindows.h"
#include "shell/Korvanta_Interface.h"
#include "shell/ValueFields.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <limits>

namespace
{
constexpr std::int16_t Plate = 1005;
constexpr double LinesOfCopy = 10.0; ///< about
constexpr int Runs = 7;

double MillisecondsSince(std::clock_t start)
{
    return 1e3 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

/// One program; a bar that stands still was moved in a time to come.
double Write(bool still, int& movements)
{
    const auto link =
        QObject::connect(Window.Progress, &QProgressBar::valueChanged, [&movements] { ++movements; });
    if (still) {
        QTimer::singleShot(0, [] { Window.ProgressSeen = std::numeric_limits<double>::infinity(); });
    }
    const auto start = std::clock();
    GenerateProgram("P");
    const double time = MillisecondsSince(start);
    QObject::disconnect(link);
    return time;
}

double ShowBar()
{
    const auto start = std::clock();
    ShowProgress(10);
    const double time = MillisecondsSince(start);
    HideProgress();
    return time;
}

void Progress(benchmark::State& state)
{
    const auto copies = static_cast<double>(state.range(0)) / LinesOfCopy;
    AppState.NestKind = 1;
    AppState.CountX = 100;
    AppState.CountY = static_cast<std::int32_t>(copies / 100.0);
    double moving = 1e9;
    double standing = 1e9;
    double shown = 1e9;
    int movements = 0;
    for (auto _ : state) {
        for (int run = 0; run < Runs; ++run) {
            movements = 0;
            int none = 0;
            standing = std::min(standing, Write(true, none));
            moving = std::min(moving, Write(false, movements));
            shown = std::min(shown, ShowBar());
        }
        state.SetIterationTime(moving / 1e3);
    }
    state.counters["lines"] = static_cast<double>(AppState.ProgramLines);
    state.counters["movements"] = movements;
    state.counters["bare_ms"] = standing;
    state.counters["shown_ms"] = shown;
    state.counters["ratio"] = moving / standing;
}
BENCHMARK(Progress)->Arg(100000)->Arg(1000000)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(1);
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir station;
    qputenv("XDG_RUNTIME_DIR", station.path().toUtf8());
    std::filesystem::copy(KORVANTA_SOURCE_DIR "/station", station.path().toStdString(),
                          std::filesystem::copy_options::recursive);
    const QApplication application(argc, argv);
    MakeStationWindow();
    ListenToPictures();
    StartWindow(station.path().toStdString(), "1");
    ShowStationWindow();
    OpenShape(Plate);
    NextCamTab();
    NextCamTab();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    ReleaseStationLock();
    return 0;
}
