// The whole road as an operator waits for it: korvanta-batch from its start to the finished program, against reading the
// same drawing and splitting it into lines. Counters: processor seconds and peak memory of one run, program lines.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <random>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace
{
namespace fs = std::filesystem;

void AddLineEntity(std::string& text, double x1, double y1, double x2, double y2)
{
    char line[256];
    std::snprintf(line, sizeof line,
                  "0\nLINE\n8\n0\n10\n%.6f\n20\n%.6f\n30\n0.0\n11\n%.6f\n21\n%.6f\n31\n0.0\n", x1, y1, x2,
                  y2);
    text += line;
}

/// Loose elements: contours of `sides` lines each, lines shuffled and half of them drawn backwards.
std::string LooseContours(int contours, int sides)
{
    std::vector<std::string> entities;
    std::mt19937 random(20261120);
    const int columns = static_cast<int>(std::ceil(std::sqrt(contours)));
    for (int c = 0; c < contours; ++c) {
        const double cx = 20.0 * (c % columns);
        const double cy = 20.0 * (c / columns); // NOLINT(bugprone-integer-division): a row
        for (int s = 0; s < sides; ++s) {
            const double a = 2.0 * std::numbers::pi * s / sides;
            const double b = 2.0 * std::numbers::pi * ((s + 1) % sides) / sides;
            std::string entity;
            if (random() % 2 == 0) {
                AddLineEntity(entity, cx + 8 * std::cos(a), cy + 8 * std::sin(a), cx + 8 * std::cos(b),
                              cy + 8 * std::sin(b));
            } else {
                AddLineEntity(entity, cx + 8 * std::cos(b), cy + 8 * std::sin(b), cx + 8 * std::cos(a),
                              cy + 8 * std::sin(a));
            }
            entities.push_back(std::move(entity));
        }
    }
    std::shuffle(entities.begin(), entities.end(), random);
    std::string text = "0\nSECTION\n2\nENTITIES\n";
    for (const std::string& entity : entities) {
        text += entity;
    }
    return text + "0\nENDSEC\n0\nEOF\n";
}

/// A rectangular plate with `holes` circles.
std::string Plate(int holes)
{
    std::string text = "0\nSECTION\n2\nENTITIES\n";
    AddLineEntity(text, 0, 0, 2000, 0);
    AddLineEntity(text, 2000, 0, 2000, 1000);
    AddLineEntity(text, 2000, 1000, 0, 1000);
    AddLineEntity(text, 0, 1000, 0, 0);
    for (int i = 0; i < holes; ++i) {
        char line[128];
        std::snprintf(line, sizeof line, "0\nCIRCLE\n8\n0\n10\n%d\n20\n%d\n30\n0.0\n40\n20.0\n",
                      50 + 95 * (i % 20), 50 + 95 * (i / 20));
        text += line;
    }
    return text + "0\nENDSEC\n0\nEOF\n";
}

struct RunFigures {
    double ProcessorSeconds = 0.0;
    double PeakMegabytes = 0.0;
};

RunFigures RunBatch(const fs::path& folder, const fs::path& drawing)
{
    const pid_t child = fork();
    if (child == 0) {
        const std::string program = KORVANTA_BINARY_DIR "/bin/korvanta-batch";
        execl(program.c_str(), program.c_str(), "--quiet", "--station", folder.c_str(), "--out",
              folder.c_str(), "--program", "ROAD", drawing.c_str(), static_cast<char*>(nullptr));
        std::_Exit(127);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        std::fprintf(stderr, "korvanta-batch failed on %s\n", drawing.c_str());
        std::exit(1);
    }
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
    };
    return {seconds(usage.ru_utime) + seconds(usage.ru_stime), static_cast<double>(usage.ru_maxrss) / 1024.0};
}

/// Seconds for reading the drawing and splitting it into lines, the bare work of any reader.
double BareSeconds(const fs::path& drawing)
{
    const auto start = std::clock();
    std::ifstream file(drawing, std::ios::binary);
    std::string content((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    std::size_t lines = 0;
    for (std::size_t at = 0; (at = content.find('\n', at)) != std::string::npos; ++at) {
        ++lines;
    }
    benchmark::DoNotOptimize(lines);
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

void MeasureRoad(benchmark::State& state, const std::string& drawingText)
{
    const fs::path folder = fs::temp_directory_path() / ("korvanta-road-" + std::to_string(getpid()));
    fs::create_directories(folder);
    fs::copy_file(KORVANTA_SOURCE_DIR "/station/Korvanta_MSG.TXT", folder / "Korvanta_MSG.TXT",
                  fs::copy_options::overwrite_existing);
    const fs::path drawing = folder / "ROAD.DXF";
    std::ofstream(drawing, std::ios::binary) << drawingText;
    double road = 0.0;
    double bare = 0.0;
    double peak = 0.0;
    for (auto unused : state) {
        const RunFigures figures = RunBatch(folder, drawing);
        state.SetIterationTime(figures.ProcessorSeconds);
        road += figures.ProcessorSeconds;
        bare += BareSeconds(drawing);
        peak = std::max(peak, figures.PeakMegabytes);
    }
    state.counters["cpu_s"] = road / static_cast<double>(state.iterations());
    state.counters["peak_MB"] = peak;
    state.counters["times_bare_read"] = road / bare;
    fs::remove_all(folder);
}

void LooseElements(benchmark::State& state)
{
    MeasureRoad(state, LooseContours(2000, 14));
}
BENCHMARK(LooseElements)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);

void PlateWithHoles(benchmark::State& state)
{
    MeasureRoad(state, Plate(200));
}
BENCHMARK(PlateWithHoles)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);
} // namespace
