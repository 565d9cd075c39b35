// Development of every shape from its default values, parameters to cut-ready tables, against the bare work: adding the same
// records. And the largest pattern: R-35 with 7,996 holes.
// Targets: below 50 microseconds for shapes without patterns, below 20 milliseconds for the pattern.
#include "profile/Korvanta_ProfileCut.h"
#include "shapes/Korvanta_Develop.h"
#include "shapes/Korvanta_Parameters.h"
#include "shell/ValueFields.h"
#include "support/RecordingScreen.h"

#include <benchmark/benchmark.h>

#include <ctime>
#include <string>
#include <vector>

namespace
{
constexpr double PlainLimit = 50e-6;   ///< seconds, shapes without patterns
constexpr double PatternLimit = 20e-3; ///< seconds, R-35 with 2000 holes in a row and in a column

void Open(std::int16_t shapeId)
{
    StartCase();
    AppState.ShapeId = shapeId;
    ShowShapeParameters(shapeId, FlagOn);
}

/// Adds the records once more, as they stand.
void AddBare(const std::vector<ProfileElement>& records)
{
    ClearPart();
    for (std::size_t i = 1; i < records.size(); ++i) {
        const ProfileElement& r = records[i];
        AddElement(r.Kind, r.StartX, r.StartY, r.GeoA, r.GeoB, r.GeoC, r.EndX, r.EndY, r.Sense);
    }
}

/// Seconds of processor time (the machine may be busy with other work) that one call takes, over enough calls to be seen.
template <typename Work> double SecondsOf(int calls, const Work& work)
{
    const std::clock_t begin = std::clock();
    for (int i = 0; i < calls; ++i) {
        work();
    }
    return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC / calls;
}

/// The counters hold the records, the time over that of the bare work, and over the limit.
void MeasureDevelopment(benchmark::State& state, int calls, double limit)
{
    std::int16_t err = 0;
    for (auto _ : state) {
        DevelopShape(err);
    }
    if (err != 0) {
        state.SkipWithError("the shape wasn't developed");
        return;
    }
    const std::vector<ProfileElement> records = AppState.ElementTable;
    const double developed = SecondsOf(calls, [&] { DevelopShape(err); });
    const double bare = SecondsOf(calls, [&] { AddBare(records); });
    state.counters["records"] = AppState.ElementCount;
    state.counters["developed/bare"] = developed / bare;
    state.counters["developed/limit"] = developed / limit;
}

void Develop(benchmark::State& state, std::int16_t shapeId)
{
    Open(shapeId);
    MeasureDevelopment(state, 5000, PlainLimit);
}

/// Nx = Ny = the argument.
void DevelopPattern(benchmark::State& state)
{
    Open(FamilyRect + 35);
    const std::string count = std::to_string(state.range(0));
    SetText(AppState.ParamText[7], count);
    SetText(AppState.ParamText[8], count);
    MeasureDevelopment(state, 50, PatternLimit);
}
BENCHMARK(DevelopPattern)->Arg(250)->Arg(500)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond);

[[maybe_unused]] const bool AllShapes = [] {
    for (const ShapeRow& row : ShapeCatalogue()) {
        benchmark::RegisterBenchmark(row.Name, Develop, row.ShapeId)->Unit(benchmark::kMicrosecond);
    }
    return true;
}();
} // namespace
