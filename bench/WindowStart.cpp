// Start of the station to its first picture, against the start of an empty window of the same library; and the memory
// that the station takes with a nest of 10,000 copies on the screen. Each is a process of its own, on no display: this
// program once more.
#include "nesting/Korvanta_CutTecnology.h"
#include "qt/PictureBoxes.h"
#include "qt/StationWindow.h"
#include "qt/TopWindows.h"
#include "shell/FieldEvents.h"
#include "shell/KeyCodes.h"
#include "shell/Korvanta_Interface.h"
#include "shell/ValueFields.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace
{
constexpr std::int16_t Flange = 2003; ///< with its bore, 48 holes and its outline: 50 elements
constexpr std::size_t FlangeHoleSize = 3;
constexpr std::size_t FlangeHoles = 4;

/// Largest memory of this process so far, in MB.
double PeakMemory()
{
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.starts_with("VmHWM:")) {
            return std::stod(line.substr(6)) / 1024;
        }
    }
    return 0.0;
}

int RunBare(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QWidget window;
    window.resize(1024, 768);
    window.show();
    QApplication::processEvents();
    return window.grab().isNull() ? 1 : 0;
}

void ShowLargeNest()
{
    OpenShape(Flange);
    SetText(AppState.ParamText[FlangeHoleSize], "3");
    SetText(AppState.ParamText[FlangeHoles], "48");
    NextCamTab();
    NextCamTab();
    for (const NestingField field : {FieldSheetX, FieldSheetY}) {
        SetText(AppState.TextNesting[field], "*100");
        ValueFieldKey(AppState.TextNesting, field, KeyEnter, 0);
    }
}

int RunStation(int argc, char** argv, const std::string& folder, bool nest)
{
    const QApplication application(argc, argv);
    QApplication::setStyle("Fusion");
    MakeStationWindow();
    ListenToPictures();
    StartWindow(folder, "1");
    ShowStationWindow();
    QApplication::processEvents();
    bool drawn = !Window.Main->grab().isNull();
    if (nest) {
        ShowLargeNest();
        drawn = !Window.Main->grab().isNull();
        std::printf("%d %d %.1f\n", AppState.CopiesDrawn, AppState.ElementCount - AppState.ProfileCount,
                    PeakMemory());
    }
    ReleaseStationLock();
    return drawn ? 0 : 1;
}

/// A station folder and a runtime folder of its own for the processes.
struct Surroundings {
    QTemporaryDir Folder;

    Surroundings()
    {
        std::filesystem::copy(std::filesystem::path(KORVANTA_SOURCE_DIR) / "station",
                              Folder.path().toStdString(), std::filesystem::copy_options::recursive);
        qputenv("XDG_RUNTIME_DIR", Folder.path().toUtf8());
    }
};

/// Seconds of a process in a part of this program, and what it wrote.
double RunChild(const Surroundings& in, const QString& part, QByteArray& output)
{
    QProcess child;
    QElapsedTimer clock;
    clock.start();
    child.start(QCoreApplication::applicationFilePath(), {part, in.Folder.path()});
    child.waitForFinished(-1);
    const double seconds = static_cast<double>(clock.nsecsElapsed()) * 1e-9;
    output = child.readAllStandardOutput();
    return child.exitCode() == 0 ? seconds : -1.0;
}

void StartToFirstPicture(benchmark::State& state)
{
    const Surroundings in;
    QByteArray output;
    double station = 0.0;
    double bare = 0.0;
    for (auto _ : state) {
        station = RunChild(in, "station", output);
        bare = RunChild(in, "bare", output);
        if (station < 0 || bare < 0) {
            state.SkipWithError("a start failed");
            return;
        }
    }
    state.counters["ms"] = 1e3 * station;
    state.counters["bare_ms"] = 1e3 * bare;
    state.counters["ratio"] = station / bare;
}
BENCHMARK(StartToFirstPicture)->Unit(benchmark::kMillisecond)->Iterations(5);

void MemoryOfLargeNest(benchmark::State& state)
{
    const Surroundings in;
    QByteArray output;
    for (auto _ : state) {
        if (RunChild(in, "nest", output) < 0) {
            state.SkipWithError("the nest failed");
            return;
        }
    }
    const QList<QByteArray> words = output.simplified().split(' ');
    if (words.size() == 3) {
        state.counters["copies"] = words[0].toDouble();
        state.counters["elements"] = words[1].toDouble();
        state.counters["MB"] = words[2].toDouble();
    }
}
BENCHMARK(MemoryOfLargeNest)->Unit(benchmark::kMillisecond)->Iterations(1);
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const std::string part = argc > 2 ? argv[1] : "";
    if (part == "bare") {
        return RunBare(argc, argv);
    }
    if (part == "station" || part == "nest") {
        return RunStation(argc, argv, argv[2], part == "nest");
    }
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
