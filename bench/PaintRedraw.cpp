// Redraw of the screens on the painting body: a keystroke in Angle to the finished picture, and a nest of 10,000 copies,
// against the window system's own painter drawing the contours and markers of the same copies: without smooth edges, lines
// of one pen in one call ("bare_ms", "ratio"), and with smooth edges ("smooth_bare_ms"). Processor time; pictures of
// 1024 x 768.
#include "config/Korvanta_Configuration.h"
#include "config/Korvanta_Utility.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "profile/Drawing.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "qt/PaintSurface.h"
#include "shell/Korvanta_Interface.h"
#include "shell/ValueFields.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <vector>

namespace
{
constexpr int PictureWidth = 1024;
constexpr int PictureHeight = 768;
constexpr int NestSide = 100;

/// Processor time: others may work on the machine meanwhile.
double MillisecondsSince(std::clock_t start)
{
    return 1e3 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

void AddLineTo(double& x, double& y, double nextX, double nextY)
{
    GeoLine line{};
    std::int16_t err = 0;
    r_pp(line, {0, x, y, 0}, {0, nextX, nextY, 0}, err);
    AddElement(KindLine, x, y, line[1], line[2], line[3], nextX, nextY, 1);
    x = nextX;
    y = nextY;
}

/// A closed contour of `corners` lines about a point, every second corner at half the radius; an end mark behind.
void AddStar(double centreX, double centreY, double radius, int corners, std::int16_t endKind)
{
    double x = centreX + radius;
    double y = centreY;
    for (int i = 1; i <= corners; ++i) {
        const double angle = -2 * Pi * (i % corners) / corners;
        const double reach = i % 2 == 0 ? radius : radius / 2;
        AddLineTo(x, y, centreX + reach * std::cos(angle), centreY + reach * std::sin(angle));
    }
    AddElement(endKind, x, y, 0, -2 * radius * radius, 0, 0, 0, 0);
}

void StartPart()
{
    ResetAppState();
    ResetFields();
    HoldConfigWrites();
    WriteConfig("CONFIG", "KERFPOSDRAW", "5");
}

void FinishPart(Picture picture, double ratio)
{
    MeasureProfiles(FlagOn);
    ComputeBounds();
    InitLeadData();
    SaveShadow();
    AppState.Redraw = RedrawScene;
    AppState.TextCutting[FieldAngle].Change = CuttingFieldChanged;
    ResizeSurface(picture, QSize(PictureWidth, PictureHeight), ratio);
}

/// 1,000 elements: a star of 40 around 24 stars of 40.
void MakeLargePart()
{
    StartPart();
    for (int i = 0; i < 24; ++i) {
        AddStar(80.0 * (i % 6), 80.0 * (i / 6), 30, 40, KindEnd); // NOLINT(bugprone-integer-division): a row
    }
    AddStar(200, 120, 700, 40, KindOuterEnd);
    AppState.ScreenState = ScreenCutting;
    FinishPart(Picture::Tecno, 1.0);
}

/// 50 elements: a star of 30 around two of 10, `NestSide` times in both directions.
void MakeNest(double ratio, std::int32_t currentProfile)
{
    StartPart();
    AddStar(80, 100, 10, 10, KindEnd);
    AddStar(120, 100, 10, 10, KindEnd);
    AddStar(100, 100, 100, 30, KindOuterEnd);
    AppState.ScreenState = ScreenNesting;
    AppState.CurrentProfile = currentProfile;
    FinishPart(Picture::Nesting, ratio);
    const double width = (AppState.MaxX - AppState.MinX + 10) * NestSide + 1;
    const double height = (AppState.MaxY - AppState.MinY + 10) * NestSide + 1;
    AppState.TextNesting[FieldSheetX].Text = FormatNumber(width, 0, 0);
    AppState.TextNesting[FieldSheetY].Text = FormatNumber(height, 0, 0);
    AppState.TextNesting[FieldGapX].Text = "10";
    AppState.TextNesting[FieldGapY].Text = "10";
    AppState.TextNesting[FieldNestType].Text = "1";
}

/// The bare work: the strokes of every copy by the painter. Milliseconds.
double PaintBare(Picture picture, int columns, int rows, bool smooth)
{
    const PartStrokes strokes = CollectPart(FlagOn);
    QImage image = SurfaceImage(picture).copy();
    const double scaleX = 1.0 / AppState.UnitsPerPixelX;
    const double scaleY = 1.0 / AppState.UnitsPerPixelY;
    const auto start = std::clock();
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, smooth);
    std::vector<QLineF> lines;
    for (int copy = 0; copy < columns * rows; ++copy) {
        const double x = copy / rows * (AppState.PartSizeX + 10) - AppState.ViewLeft;
        const double y = copy % rows * (AppState.PartSizeY + 10) - AppState.ViewTop;
        for (std::size_t i = 0; i < strokes.size(); ++i) {
            const PartStroke& stroke = strokes[i];
            lines.emplace_back((x + stroke.X1) * scaleX, (y + stroke.Y1) * scaleY, (x + stroke.X2) * scaleX,
                               (y + stroke.Y2) * scaleY);
            const bool last = i + 1 == strokes.size() || strokes[i + 1].Pen.Rgb != stroke.Pen.Rgb ||
                              strokes[i + 1].Pen.Width != stroke.Pen.Width;
            if (last) {
                painter.setPen(QPen(QColor::fromRgb(stroke.Pen.Rgb), stroke.Pen.Width));
                painter.drawLines(lines.data(), static_cast<int>(lines.size()));
                lines.clear();
            }
        }
    }
    painter.end();
    benchmark::DoNotOptimize(image.constBits());
    return MillisecondsSince(start);
}

/// Runs `work` to the finished picture, and the bare work beside it.
template <typename Work>
void Compare(benchmark::State& state, Picture picture, int columns, int rows, const Work& work)
{
    double spent = 0.0;
    double bare = 0.0;
    double smooth = 0.0;
    for (auto _ : state) {
        const auto start = std::clock();
        work();
        benchmark::DoNotOptimize(SurfaceImage(picture).constBits());
        const double time = MillisecondsSince(start);
        state.SetIterationTime(time / 1e3);
        spent += time;
        bare += PaintBare(picture, columns, rows, false);
        smooth += state.iterations() <= 3 ? PaintBare(picture, columns, rows, true) : 0.0;
    }
    const auto runs = static_cast<double>(state.iterations());
    state.counters["bare_ms"] = bare / runs;
    state.counters["smooth_bare_ms"] = smooth / std::min(runs, 3.0);
    state.counters["ratio"] = spent / bare;
}

void KeystrokeInAngle(benchmark::State& state)
{
    MakeLargePart();
    int angle = 0;
    Compare(state, Picture::Tecno, 1, 1, [&angle] {
        angle = (angle + 7) % 360;
        SetText(AppState.TextCutting[FieldAngle], std::to_string(angle));
    });
}
BENCHMARK(KeystrokeInAngle)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(50);

/// Arguments: pixel ratio in halves, current profile (3, the outline, is thick in every copy).
void NestOf10000(benchmark::State& state)
{
    MakeNest(static_cast<double>(state.range(0)) / 2, static_cast<std::int32_t>(state.range(1)));
    Compare(state, Picture::Nesting, NestSide, NestSide, [] { RedrawScene(FlagOn); });
    state.counters["copies"] = AppState.CopiesDrawn;
}
BENCHMARK(NestOf10000)
    ->ArgNames({"halves", "current"})
    ->Args({2, 1})
    ->Args({2, 3})
    ->Args({4, 1})
    ->Args({4, 3})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);

/// The painting alone: the strokes of the copies, without fit, sheet and overlay.
void StrokesOfNest(benchmark::State& state)
{
    MakeNest(1.0, 1);
    RedrawScene(FlagOn);
    Compare(state, Picture::Nesting, NestSide, NestSide, [] {
        const PartStrokes strokes = CollectPart(FlagOn);
        SurfaceClear(Picture::Nesting);
        for (int i = 0; i < NestSide; ++i) {
            for (int j = 0; j < NestSide; ++j) {
                DrawStrokes(Picture::Nesting, strokes, i * (AppState.PartSizeX + 10),
                            j * (AppState.PartSizeY + 10));
            }
        }
    });
}
BENCHMARK(StrokesOfNest)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
