// Jobs against the bare work: saving and loading one of 5,000 elements without its program against writing and reading the
// same bytes, and the list of 5,000 jobs against reading the names of their folder.
// Targets: below 50 milliseconds for a save and for a load, below 100 for the list.
#include "jobfiles/JobFiles.h"
#include "platform/SafeFile.h"
#include "platform/TextFile.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shell/InputLists.h"
#include "support/RecordingScreen.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <dirent.h>
#include <filesystem>
#include <fstream>
#include <string>

namespace
{
namespace fs = std::filesystem;

constexpr int Elements = 5000;
constexpr int Jobs = 5000;
constexpr double FileLimit = 50e-3; ///< seconds
constexpr double ListLimit = 100e-3;

/// A folder of its own for the run.
struct Station {
    std::string Path;

    Station()
    {
        std::string name = (fs::temp_directory_path() / "korvanta_bench_XXXXXX").string();
        Path = ::mkdtemp(name.data()) == nullptr ? "." : name;
        StartCase();
        AppState.NestingPath = Path + "/NEST/";
        fs::create_directories(Path + "/NEST/DATA");
    }
    ~Station()
    {
        fs::remove_all(Path);
    }
    Station(const Station&) = delete;
    Station& operator=(const Station&) = delete;
};

/// Squares side by side, with their end marks 5,000 elements.
void MakePart()
{
    ClearPart();
    for (int square = 0; square < Elements / 5; ++square) {
        const double x = 12.0 * square;
        const double corners[][2] = {{x, 0}, {x, 10}, {x + 10, 10}, {x + 10, 0}, {x, 0}};
        for (int i = 0; i < 4; ++i) {
            AddElement(KindLine, corners[i][0], corners[i][1], 0, 0, 0, corners[i + 1][0], corners[i + 1][1],
                       1);
        }
        AddElement(square + 1 < Elements / 5 ? KindEnd : KindOuterEnd, x, 0, 0, -100, 0, 0, 0, 0);
    }
    MeasureProfiles(FlagOn);
    InitLeadData();
}

/// What SaveJob does behind the program.
void SaveWithoutProgram()
{
    WriteJobHeader("JOB.nst");
    WriteCuttingSection("JOB.nst");
    WriteNestingSection("JOB.nst");
    WritePostInputSection("JOB.nst");
    PutJobText("JOB.nst");
    WriteJobPreview("JOB");
    WriteDrawingElements("JOB.nst");
    WriteDrawingProfiles("JOB.nst");
}

/// Seconds that one call takes by the clock on the wall: a save waits for its disk.
template <typename Work> double SecondsOf(int calls, const Work& work)
{
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < calls; ++i) {
        work();
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count() / calls;
}

void Report(benchmark::State& state, double seconds, double bare, double limit)
{
    state.counters["ratio"] = seconds / bare;
    state.counters["of_limit"] = seconds / limit;
}

constexpr int Calls = 20;

void Save(benchmark::State& state)
{
    const Station station;
    MakePart();
    for (auto _ : state) {
        SaveWithoutProgram();
    }
    std::string text;
    std::string drawing;
    std::string picture;
    ReadWholeFile(AppState.NestingPath + "JOB.nst", text);
    ReadWholeFile(AppState.NestingPath + "DATA/JOB.drw", drawing);
    ReadWholeFile(AppState.NestingPath + "DATA/JOB.bmp", picture);
    const auto put = [](const std::string& name, const std::string& bytes, bool settle = true) {
        WriteSecondName(AppState.NestingPath + name, bytes);
        PutInPlace(AppState.NestingPath + name, settle);
    };
    const double bare = SecondsOf(Calls, [&] {
        put("BARE.nst", text);
        put("DATA/BARE.bmp", picture, false);
        put("DATA/BARE.drw", drawing);
    });
    Report(state, SecondsOf(Calls, SaveWithoutProgram), bare, FileLimit);
}
BENCHMARK(Save)->Unit(benchmark::kMillisecond)->UseRealTime();

void Load(benchmark::State& state)
{
    const Station station;
    MakePart();
    SaveWithoutProgram();
    for (auto _ : state) {
        LoadJob("JOB");
    }
    if (AppState.ElementCount != Elements) {
        state.SkipWithError("the job wasn't loaded");
        return;
    }
    std::string bytes;
    const double bare = SecondsOf(Calls, [&] {
        ReadWholeFile(AppState.NestingPath + "JOB.nst", bytes);
        ReadWholeFile(AppState.NestingPath + "DATA/JOB.drw", bytes);
    });
    Report(state, SecondsOf(Calls, [] { LoadJob("JOB"); }), bare, FileLimit);
}
BENCHMARK(Load)->Unit(benchmark::kMillisecond)->UseRealTime();

void ListJobs(benchmark::State& state)
{
    const Station station;
    for (int job = 0; job < Jobs; ++job) {
        std::ofstream(AppState.NestingPath + "PLATE_" + std::to_string(job * 7919 % Jobs) + ".nst")
            << "[0000]";
    }
    for (auto _ : state) {
        FillJobList("");
    }
    if (AppState.Lists[TabPrograms].Items.size() != Jobs) {
        state.SkipWithError("the jobs weren't listed");
        return;
    }
    const double bare = SecondsOf(Calls, [] {
        DIR* const folder = ::opendir(AppState.NestingPath.c_str());
        int names = 0;
        while (::readdir(folder) != nullptr) {
            ++names;
        }
        ::closedir(folder);
        benchmark::DoNotOptimize(names);
    });
    Report(state, SecondsOf(Calls, [] { FillJobList(""); }), bare, ListLimit);
}
BENCHMARK(ListJobs)->Unit(benchmark::kMillisecond)->UseRealTime();
} // namespace
