// Reading a drawing of 100,000 entities, to the last record handed out, against reading the same file and splitting it into
// lines. Two drawings: records as bare as a writer may make them, and records with all that the large writers add.
#include "import/DrawingReader.h"
#include "platform/TextFile.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

namespace
{

constexpr int EntityCount = 100'000;
constexpr double Limit = 4.0;

struct DrawingText {
    bool Rich = false;
    std::string Text;
    int Handle = 0x100;
    std::mt19937 Random{20261120};

    double Number()
    {
        return std::uniform_real_distribution<double>(0.0, 4000.0)(Random);
    }
    void Group(int code, const char* value)
    {
        char group[64];
        Text.append(group, static_cast<std::size_t>(
                               std::snprintf(group, sizeof group, "%3d\r\n%s\r\n", code, value)));
    }
    void Group(int code, double value)
    {
        char text[40];
        std::snprintf(text, sizeof text, Rich ? "%.15g" : "%.6f", value);
        Group(code, text);
    }
    void Head(const char* type, const char* subclass)
    {
        Group(0, type);
        if (Rich) {
            char handle[16];
            std::snprintf(handle, sizeof handle, "%X", ++Handle);
            Group(5, handle);
            Group(330, "1F");
            Group(100, "AcDbEntity");
        }
        Group(8, "CUT");
        if (Rich) {
            Group(62, "     7");
            Group(370, "    25");
            Group(100, subclass);
        }
    }
};

void AddLine(DrawingText& drawing)
{
    drawing.Head("LINE", "AcDbLine");
    for (const int code : {10, 20, 30, 11, 21, 31}) {
        drawing.Group(code, code % 10 == 1 || code < 30 ? drawing.Number() : 0.0);
    }
}

void AddRound(DrawingText& drawing, bool full)
{
    drawing.Head(full ? "CIRCLE" : "ARC", "AcDbCircle");
    drawing.Group(10, drawing.Number());
    drawing.Group(20, drawing.Number());
    drawing.Group(30, 0.0);
    drawing.Group(40, drawing.Number() / 100.0 + 1.0);
    if (!full) {
        drawing.Group(50, drawing.Number() / 20.0);
        drawing.Group(51, drawing.Number() / 20.0 + 5.0);
    }
}

void AddPolyline(DrawingText& drawing)
{
    drawing.Head("LWPOLYLINE", "AcDbPolyline");
    drawing.Group(90, "     6");
    drawing.Group(70, "     1");
    for (int i = 0; i < 6; ++i) {
        drawing.Group(10, drawing.Number());
        drawing.Group(20, drawing.Number());
        if (i % 3 == 0) {
            drawing.Group(42, 0.41421356237309503);
        }
    }
}

std::string DrawingOf(bool rich)
{
    DrawingText drawing;
    drawing.Rich = rich;
    drawing.Group(0, "SECTION");
    drawing.Group(2, "ENTITIES");
    for (int i = 0; i < EntityCount; ++i) {
        const int kind = i % 20;
        if (kind < 12) {
            AddLine(drawing);
        } else if (kind < 18) {
            AddRound(drawing, kind % 2 == 0);
        } else {
            AddPolyline(drawing);
        }
    }
    drawing.Group(0, "ENDSEC");
    drawing.Group(0, "EOF");
    return drawing.Text;
}

int CountRecord(const DxfEntity& /*entity*/, void* context)
{
    ++*static_cast<std::int64_t*>(context);
    return 0;
}

std::int64_t ReadDrawingFile(const std::string& path)
{
    std::int64_t records = 0;
    Drawing* const drawing = DXFCreate(path);
    if (drawing != nullptr) {
        DXFEnum(drawing, 0, CountRecord, &records);
        DXFClose(drawing);
    }
    return records;
}

std::size_t SplitFile(const std::string& path)
{
    std::string content;
    if (!ReadWholeFile(path, content)) {
        return 0;
    }
    std::string_view rest = content;
    std::string_view line;
    std::size_t lines = 0;
    while (NextLine(rest, line)) {
        benchmark::DoNotOptimize(line);
        ++lines;
    }
    return lines;
}

/// Processor time: other programs on the machine don't count.
template <typename Work> double Seconds(Work work)
{
    const std::clock_t start = std::clock();
    benchmark::DoNotOptimize(work());
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

/// Argument: 0 bare, 1 rich. The ratio is of the best times, taken in turn.
void ReadAgainstSplitting(benchmark::State& state)
{
    const std::string path = (std::filesystem::temp_directory_path() / "korvanta_bench_drawing.dxf").string();
    std::ofstream(path, std::ios::binary) << DrawingOf(state.range(0) != 0);
    double read = 1e9;
    double split = 1e9;
    for (auto _ : state) {
        read = std::min(read, Seconds([&] { return ReadDrawingFile(path); }));
        state.PauseTiming();
        split = std::min(split, Seconds([&] { return SplitFile(path); }));
        state.ResumeTiming();
    }
    state.counters["records"] = static_cast<double>(ReadDrawingFile(path));
    state.counters["lines"] = static_cast<double>(SplitFile(path));
    state.counters["split_ms"] = split * 1e3;
    state.counters["read_ms"] = read * 1e3;
    state.counters["ratio"] = read / split;
    std::filesystem::remove(path);
    if (read > Limit * split) {
        state.SkipWithError("slower than the limit");
    }
}

} // namespace

BENCHMARK(ReadAgainstSplitting)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->MinTime(2.0);
