// A step through the list of the jobs to the painted preview, against loading and painting the same picture alone. In this
// process, on no display.
#include "qt/PictureBoxes.h"
#include "qt/StationWindow.h"
#include "qt/TopWindows.h"
#include "qt/WindowEvents.h"
#include "shell/InputLists.h"
#include "shell/Korvanta_Interface.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QTemporaryDir>

#include <ctime>
#include <filesystem>

namespace
{
constexpr int Jobs = 200;
const QSize PreviewSize(120, 155);

QString PreviewFile(const QTemporaryDir& folder, int job)
{
    return folder.filePath(QString("NEST/DATA/JOB%1.bmp").arg(job, 3, 10, QChar('0')));
}

/// A station with jobs whose previews all differ.
void MakeStation(const QTemporaryDir& folder)
{
    const std::filesystem::path path = folder.path().toStdString();
    std::filesystem::copy(std::filesystem::path(KORVANTA_SOURCE_DIR) / "station", path,
                          std::filesystem::copy_options::recursive);
    std::filesystem::create_directories(path / "NEST/DATA");
    for (int job = 0; job < Jobs; ++job) {
        QFile text(folder.filePath(QString("NEST/JOB%1.nst").arg(job, 3, 10, QChar('0'))));
        static_cast<void>(text.open(QIODevice::WriteOnly));
        QImage picture(PreviewSize, QImage::Format_RGB888);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        painter.drawLine(0, 0, PreviewSize.width(), job);
        painter.end();
        picture.save(PreviewFile(folder, job), "BMP");
    }
}

double MillisecondsSince(std::clock_t start)
{
    return 1e3 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

void PaintPreview()
{
    QImage seen(PreviewSize, QImage::Format_RGB32);
    PictureBox(Picture::Preview)->render(&seen);
    benchmark::DoNotOptimize(seen.bits());
}

/// The picture alone, loaded and painted.
void PaintBare(const QString& file)
{
    QImage seen(PreviewSize, QImage::Format_RGB32);
    const QPixmap picture(file);
    QPainter painter(&seen);
    painter.drawPixmap(0, 0, picture);
    benchmark::DoNotOptimize(seen.bits());
}

void PreviewOfASelection(benchmark::State& state)
{
    const QTemporaryDir folder;
    qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8());
    MakeStation(folder);
    MakeStationWindow();
    ListenToPictures();
    StartWindow(folder.path().toStdString(), "1");
    ShowStationWindow();
    RunEvent([] { SelectInputTab(TabPrograms); });
    double ours = 0.0;
    double bare = 0.0;
    for (auto _ : state) {
        std::clock_t start = std::clock();
        for (int job = 1; job < Jobs; ++job) {
            RunEvent([] { MoveListCursor("Dw"); });
            PaintPreview();
        }
        ours = MillisecondsSince(start) / (Jobs - 1);
        start = std::clock();
        for (int job = 1; job < Jobs; ++job) {
            PaintBare(PreviewFile(folder, job));
        }
        bare = MillisecondsSince(start) / (Jobs - 1);
        for (int job = 1; job < Jobs; ++job) {
            RunEvent([] { MoveListCursor("Up"); });
        }
    }
    if (AppState.PreviewJob != "JOB000") {
        state.SkipWithError("the selection didn't move");
    }
    state.counters["ms"] = ours;
    state.counters["bare_ms"] = bare;
    state.counters["ratio"] = ours / bare;
    ReleaseStationLock();
}
BENCHMARK(PreviewOfASelection)->Unit(benchmark::kMillisecond)->Iterations(5);
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setStyle("Fusion");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
