// The simulation on the painting body: the whole run of a nest of 100 parts, walk, blocks and pace included, against the
// window system's own painter drawing the strokes of the same steps: trail, head off, head on ("painter_us", "ratio"), and
// against the same strokes on the drawing seam ("seam_us", "seam_ratio"). Processor time of a step; nobody waits here.
// Picture of 1024 x 768.
#include "config/Korvanta_Configuration.h"
#include "config/Korvanta_Utility.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "post/Korvanta_PostProcessor.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "profile/Strokes.h"
#include "qt/PaintSurface.h"
#include "shell/ValueFields.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPainter>

#include <ctime>
#include <vector>

namespace
{
constexpr int PictureWidth = 1024;
constexpr int PictureHeight = 768;
constexpr double StepPixels = 5.0; ///< at speed 25

struct Step {
    double X;
    double Y;
};

/// Processor time: others may work on the machine meanwhile.
double MicrosecondsSince(std::clock_t start)
{
    return 1e6 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

void AddSide(double x1, double y1, double x2, double y2)
{
    GeoLine line{};
    std::int16_t err = 0;
    r_pp(line, {0, x1, y1, 0}, {0, x2, y2, 0}, err);
    AddElement(KindLine, x1, y1, line[1], line[2], line[3], x2, y2, 1);
}

/// A plate of 100 x 70, ten times ten.
void MakeNest(const char* headType)
{
    ResetAppState();
    ResetFields();
    HoldConfigWrites();
    // Steps as long as at speed 25, at a pace that no machine keeps: the run is never ahead of it, and pauses by its frames.
    WriteConfig("SETUP", "SIMSPEED", "30000");
    WriteConfig("SETUP", "SIM_DEFRAG", "6000");
    WriteConfig("SETUP", "HEADTYPE", headType);
    AddSide(0, 0, 0, 70);
    AddSide(0, 70, 100, 70);
    AddSide(100, 70, 100, 0);
    AddSide(100, 0, 0, 0);
    AddElement(KindOuterEnd, 0, 0, 0, -14000, 0, 0, 0, 0);
    MeasureProfiles(FlagOn);
    ComputeBounds();
    InitLeadData();
    SaveShadow();
    AppState.ScreenState = ScreenNesting;
    AppState.Redraw = RedrawScene;
    for (const auto& [field, text] :
         {std::pair{FieldSheetX, "1100"}, {FieldSheetY, "800"}, {FieldNestType, "1"}}) {
        AppState.TextNesting[static_cast<std::size_t>(field)].Text = text;
    }
    ResizeSurface(Picture::Nesting, QSize(PictureWidth, PictureHeight), 1.0);
    RedrawScene(FlagOn);
}

/// The way of the head, about as long as that of the run: rows over the sheet.
std::vector<Step> StepsOver(int count)
{
    std::vector<Step> steps;
    const double step = StepPixels * AppState.UnitsPerPixelX;
    double x = AppState.ViewLeft;
    double y = AppState.ViewTop + AppState.ViewHeight / 2;
    for (int i = 0; i < count; ++i) {
        x += step;
        if (x > AppState.ViewLeft + AppState.ViewWidth) {
            x = AppState.ViewLeft;
            y += step;
        }
        steps.push_back({x, y});
    }
    return steps;
}

bool SmallCross()
{
    return AppState.SimHeadCross != FlagOff;
}

/// Microseconds of all steps by the painter.
double PaintBare(const std::vector<Step>& steps)
{
    QImage image = SurfaceImage(Picture::Nesting).copy();
    const double scaleX = 1.0 / AppState.UnitsPerPixelX;
    const double scaleY = 1.0 / AppState.UnitsPerPixelY;
    const QPen red(Qt::red, 3);
    const QPen white(Qt::white, 1);
    const auto start = std::clock();
    QPainter painter(&image);
    const auto head = [&](QPointF at) {
        const double reach = SmallCross() ? 15.0 : 1e4;
        painter.setPen(white);
        painter.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
        painter.drawLine(QPointF(std::max(0.0, at.x() - reach), at.y()),
                         QPointF(std::min<double>(PictureWidth, at.x() + reach), at.y()));
        painter.drawLine(QPointF(at.x(), std::max(0.0, at.y() - reach)),
                         QPointF(at.x(), std::min<double>(PictureHeight, at.y() + reach)));
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    };
    QPointF before;
    for (const Step& step : steps) {
        const QPointF at((step.X - AppState.ViewLeft) * scaleX, (step.Y - AppState.ViewTop) * scaleY);
        head(before);
        painter.setPen(red);
        painter.drawLine(before, at);
        head(at);
        before = at;
    }
    painter.end();
    benchmark::DoNotOptimize(image.constBits());
    return MicrosecondsSince(start);
}

/// The same on the seam.
double DrawBare(const std::vector<Step>& steps)
{
    const auto start = std::clock();
    AppState.SimHeadX = steps.front().X;
    AppState.SimHeadY = steps.front().Y;
    for (const Step& step : steps) {
        DrawSimulationHead(Picture::Nesting);
        SurfaceSetPen(Picture::Nesting, {ColourRed, 3, false, false});
        DrawLine(Picture::Nesting, AppState.SimHeadX, AppState.SimHeadY, step.X, step.Y);
        AppState.SimHeadX = step.X;
        AppState.SimHeadY = step.Y;
        DrawSimulationHead(Picture::Nesting);
    }
    benchmark::DoNotOptimize(SurfaceImage(Picture::Nesting).constBits());
    return MicrosecondsSince(start);
}

void SimulationOf100(benchmark::State& state)
{
    MakeNest(state.range(0) == 0 ? "0" : "1");
    // Each side takes its whole steps and one more; with the leads and the ways between the parts.
    const double way = 100 * (2 * (100.0 + 70.0) + 15.0 + 110.0);
    const int count = static_cast<int>(way / (StepPixels * AppState.UnitsPerPixelX));
    double run = 0.0;
    double painter = 0.0;
    double seam = 0.0;
    for (auto _ : state) {
        const auto start = std::clock();
        GenerateProgram("SIMULA");
        const double time = MicrosecondsSince(start);
        state.SetIterationTime(time / 1e6);
        run += time;
        const std::vector<Step> steps = StepsOver(count);
        painter += PaintBare(steps);
        seam += DrawBare(steps);
    }
    const double all = static_cast<double>(state.iterations()) * count;
    state.counters["steps"] = count;
    state.counters["step_us"] = run / all;
    state.counters["painter_us"] = painter / all;
    state.counters["seam_us"] = seam / all;
    state.counters["ratio"] = run / painter;
    state.counters["seam_ratio"] = run / seam;
}
BENCHMARK(SimulationOf100)
    ->ArgName("cross_hair")
    ->Arg(0)
    ->Arg(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
