// The dimensioned drawing of a shape: a change of the focused field to the finished picture, against the window system's
// painter drawing as many smooth lines and the same letters on an image as large; and reading a shape's items from the
// file, against reading its bytes. Processor time; pictures of 770 x 620 (a window of 1024 x 768) and of 1650 x 880.
// Targets: below 10 ms for the redraw, below 2 ms for the file.
#include "platform/TextFile.h"
#include "qt/PaintSurface.h"
#include "shapes/DimensionDrawing.h"
#include "shapes/Korvanta_Parameters.h"
#include "shapes/PictureRecords.h"
#include "shell/MsgBox_Unicode.h"
#include "shell/ValueFields.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPainter>

#include <ctime>
#include <string>
#include <utility>
#include <vector>

namespace
{
constexpr double RedrawLimit = 10e-3; ///< seconds
constexpr double ReadLimit = 2e-3;
constexpr int LinesOfDimension = 8; ///< two extension lines, two halves with two barbs each

/// Seconds of processor time that one call takes.
template <typename Work> double SecondsOf(int calls, const Work& work)
{
    const std::clock_t begin = std::clock();
    for (int i = 0; i < calls; ++i) {
        work();
    }
    return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC / calls;
}

void Open(std::int16_t shapeId, QSize size)
{
    ResetAppState();
    ResetFields();
    AppState.AppPath = KORVANTA_BINARY_DIR;
    std::string catalogue;
    if (ReadWholeFile(KORVANTA_SOURCE_DIR "/station/Korvanta_MSG.TXT", catalogue)) {
        ReadCatalogue(catalogue);
    }
    ResizeSurface(Picture::Param, size, 1.0);
    ShowShapeParameters(shapeId, FlagOn);
}

/// As many lines, and the letters, on an image of that size.
void DrawBare(QImage& image)
{
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (std::size_t i = 1; i < AppState.PictureItems.size(); ++i) {
        const PictureItem& item = AppState.PictureItems[i];
        const QLineF line(item.X1, item.Y1, item.X2, item.Y2);
        for (int k = 0; k < (item.ItemKind == ItemDimension ? LinesOfDimension : 1); ++k) {
            painter.drawLine(line.translated(k, k));
        }
        if (item.ItemKind == ItemDimension) {
            painter.drawText(QPointF(item.X1, item.Y1), QString::fromStdString(item.Label));
        }
    }
}

void Redraw(benchmark::State& state, std::int16_t shapeId, QSize size)
{
    Open(shapeId, size);
    std::int16_t field = 1;
    const auto change = [&] {
        field = static_cast<std::int16_t>(3 - field);
        HighlightParameter(field);
        benchmark::DoNotOptimize(SurfaceImage(Picture::Param).constBits());
    };
    for (auto _ : state) {
        change();
    }
    QImage image(size, QImage::Format_RGB32);
    const double redraw = SecondsOf(200, change);
    state.counters["redraw/bare"] = redraw / SecondsOf(200, [&] { DrawBare(image); });
    state.counters["redraw/limit"] = redraw / RedrawLimit;
}

void ReadFile(benchmark::State& state)
{
    Open(1001, QSize(770, 620));
    std::string bytes;
    for (auto _ : state) {
        LoadPictureItems(1039);
    }
    const double read = SecondsOf(2000, [] { LoadPictureItems(1039); });
    const double bare = SecondsOf(2000, [&] {
        ReadWholeFile(KORVANTA_BINARY_DIR "/Korvanta.DBG", bytes);
        benchmark::DoNotOptimize(bytes.data());
    });
    state.counters["records"] = static_cast<double>(bytes.size() / PictureRecordLength);
    state.counters["read/bare"] = read / bare;
    state.counters["read/limit"] = read / ReadLimit;
}
BENCHMARK(ReadFile)->Unit(benchmark::kMicrosecond);
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    for (const auto& [name, shape] : std::vector<std::pair<std::string, std::int16_t>>{{"R-01", 1001},
                                                                                       {"R-32", 1032},
                                                                                       {"R-35", 1035},
                                                                                       {"R-41", 1041},
                                                                                       {"C-24", 2024},
                                                                                       {"H-02", 3002}}) {
        for (const QSize size : {QSize(770, 620), QSize(1650, 880)}) {
            benchmark::RegisterBenchmark((name + "/" + std::to_string(size.width())).c_str(), Redraw, shape,
                                         size)
                ->Unit(benchmark::kMicrosecond);
        }
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
