// Chaining 30,000 loose elements of 1,500 contours, against the plain search of the same run; and the worst drawings:
// all elements at one point, and a grid of crossing lines.
#include "support/PartTables.h"
#include "support/PlainOrdering.h"
#include "support/RecordingScreen.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <random>

namespace
{
constexpr int Contours = 1500;
constexpr int Corners = 20;

using Table = std::vector<ProfileElement>;

/// The elements of a raw table in random order, about half of them turned.
Table Shuffled(Table table)
{
    std::mt19937 random(1);
    std::shuffle(table.begin() + 1, table.end(), random);
    for (ProfileElement& element : table) {
        if (element.Kind != 0 && random() % 2 == 0) {
            PlainTurn(element);
        }
    }
    return table;
}

Table LooseContours()
{
    StartCase();
    for (int c = 0; c < Contours; ++c) {
        const double x = 100.0 * (c % 50);
        const double y = 100.0 * static_cast<double>(c / 50);
        for (int k = 0; k < Corners; ++k) {
            const double from = 2.0 * Pi * k / Corners;
            const double to = 2.0 * Pi * ((k + 1) % Corners) / Corners;
            PutLine(x + 40.0 * std::cos(from), y + 40.0 * std::sin(from), x + 40.0 * std::cos(to),
                    y + 40.0 * std::sin(to));
        }
    }
    return Shuffled(AppState.ElementTable);
}

Table OneStar()
{
    StartCase();
    for (int i = 0; i < Contours * Corners; ++i) {
        const double angle = 2.0 * Pi * i / (Contours * Corners);
        PutLine(0.015 * (i % 3), 0.0, 5000.0 * std::cos(angle), 5000.0 * std::sin(angle));
    }
    return Shuffled(AppState.ElementTable);
}

Table DenseGrid()
{
    StartCase();
    for (int i = 0; i < Contours * Corners; ++i) { // pieces of 0.02 in a field of 3.5 x 3.5
        const double x = 0.02 * (i % 173);
        const double y = 0.02 * static_cast<double>(i / 173);
        PutLine(x, y, x + (i % 2 == 0 ? 0.02 : 0.0), y + (i % 2 == 0 ? 0.0 : 0.02));
    }
    return Shuffled(AppState.ElementTable);
}

void Load(const Table& table)
{
    AppState.ElementTable = table;
    AppState.ElementCount = static_cast<std::int32_t>(table.size()) - 1;
}

double SecondsOf(void (*chain)(), const Table& table)
{
    Load(table);
    const std::clock_t start = std::clock(); // processor time: the machine may be busy with other work
    chain();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

/// The counters hold the plain search's time over the fast one's, and 1 for an equal result.
void ChainTable(benchmark::State& state, Table (*makeTable)())
{
    const Table loose = makeTable();
    double fastest = 1e9;
    for (auto _ : state) {
        const double seconds = SecondsOf(ChainElements, loose);
        state.SetIterationTime(seconds);
        fastest = std::min(fastest, seconds);
    }
    const Table fast = AppState.ElementTable;
    const double plain = SecondsOf(PlainChainElements, loose);
    state.counters["plain/fast"] = plain / fastest;
    state.counters["equal"] = FirstDifference(fast, AppState.ElementTable) == 0 ? 1.0 : 0.0;
    if (FirstDifference(fast, AppState.ElementTable) != 0) {
        state.SkipWithError("the fast result is not the plain one");
    }
}
} // namespace

BENCHMARK_CAPTURE(ChainTable, contours, LooseContours)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ChainTable, star, OneStar)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ChainTable, grid, DenseGrid)->UseManualTime()->Unit(benchmark::kMillisecond);
