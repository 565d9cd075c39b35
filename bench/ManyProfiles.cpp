// Growth with the number of profiles: splitting, outline last, leads and move lists of a whole part, against one copy of
// its element table. A ratio that stays about level from row to row is linear growth.
#include "profile/Korvanta_ProfileCut.h"
#include "support/RecordingScreen.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <vector>

namespace
{
using Clock = std::chrono::steady_clock;

double Seconds(Clock::time_point since)
{
    return std::chrono::duration<double>(Clock::now() - since).count();
}

void AddSquare(double x, double y, double size)
{
    const double corners[5][2] = {{x, y}, {x + size, y}, {x + size, y + size}, {x, y + size}, {x, y}};
    for (int i = 0; i < 4; ++i) {
        AddElement(KindLine, corners[i][0], corners[i][1], 0.0, 0.0, 0.0, corners[i + 1][0],
                   corners[i + 1][1], 1);
    }
}

/// Squares in rows of 50, the large one first, so that the outline has to move behind all others.
void AddSquares(std::int64_t count)
{
    constexpr std::int64_t Columns = 50;
    AddSquare(-20.0, -20.0, 5000.0);
    for (std::int64_t i = 1; i < count; ++i) {
        AddSquare(static_cast<double>(i % Columns) * 60.0, static_cast<double>(i / Columns) * 30.0, 20.0);
    }
}

double CopySeconds()
{
    constexpr int Copies = 100;
    const Clock::time_point start = Clock::now();
    for (int i = 0; i < Copies; ++i) {
        std::vector<ProfileElement> copy = AppState.ElementTable;
        benchmark::DoNotOptimize(copy.data());
    }
    return Seconds(start) / Copies;
}

void ManyProfiles(benchmark::State& state)
{
    double order = 0.0;
    double leads = 0.0;
    double moves = 0.0;
    double copy = 0.0;
    std::vector<CutMove> list;
    for (auto unused : state) {
        StartCase();
        AppState.ConfigHeld = FlagOn;
        AppState.ExternalPathSense = -1;
        AppState.InternalPathSense = 1;
        AddSquares(state.range(0));
        const Clock::time_point start = Clock::now();
        NormaliseImport(ImportSides::Drawing, 0.0, 0.0);
        order += Seconds(start);
        copy += CopySeconds();
        InitLeadData();
        const Clock::time_point leadStart = Clock::now();
        for (std::int32_t p = 1; p <= AppState.ProfileCount; ++p) {
            LeadRecordArray records;
            BuildLeads(records, p);
        }
        leads += Seconds(leadStart);
        const Clock::time_point moveStart = Clock::now();
        for (std::int32_t p = 1; p <= AppState.ProfileCount; ++p) {
            std::int16_t side = 0;
            BuildCutMoves(list, p, side, 0.0);
        }
        moves += Seconds(moveStart);
        state.SetIterationTime(Seconds(start));
    }
    state.counters["order_copies"] = order / copy;
    state.counters["leads_copies"] = leads / copy;
    state.counters["moves_copies"] = moves / copy;
}
BENCHMARK(ManyProfiles)->RangeMultiplier(2)->Range(750, 6000)->UseManualTime()->Unit(benchmark::kMillisecond);
} // namespace
