// Key files as the walk of a program reads them: a warm read against a look-up in a hash table with its key at hand,
// and the parse against splitting the same bytes into lines. Counters hold the ratios.
#include "platform/KeyText.h"
#include "platform/ProfileStrings.h"
#include "platform/TextFile.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <unistd.h>
#include <unordered_map>
#include <vector>

namespace
{
namespace fs = std::filesystem;

constexpr std::size_t BufferSize = 256;
constexpr int ReadsPerRound = 100'000;

struct Question {
    std::string Section;
    std::string Key;
};

double SecondsOf(void (*work)(const void*), const void* argument)
{
    const auto start = std::chrono::steady_clock::now();
    work(argument);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// A table of the usual size: 40 blocks of 8 lines.
std::vector<Question> TableQuestions()
{
    std::vector<Question> questions;
    for (int block = 1; block <= 40; ++block) {
        for (int line = 1; line <= 8; ++line) {
            questions.push_back({"PartProgram_Block" + std::to_string(block), "LINE" + std::to_string(line)});
        }
    }
    return questions;
}

std::string TableText(const std::vector<Question>& questions)
{
    std::string text;
    for (const Question& question : questions) {
        if (question.Key == "LINE1") {
            text += "[" + question.Section + "]\r\n";
        }
        text += question.Key + "=G01 X*part_x Y*part_y ; " + question.Section + "\r\n";
    }
    return text;
}

struct ReadRound {
    std::string Path;
    std::vector<Question> Questions;
    std::unordered_map<std::string, std::string> Table; ///< by section + key
    std::vector<std::string> Names;
};

void ReadWarm(const void* argument)
{
    const auto& round = *static_cast<const ReadRound*>(argument);
    for (std::size_t i = 0; i < ReadsPerRound; ++i) {
        const Question& question = round.Questions[i % round.Questions.size()];
        benchmark::DoNotOptimize(
            FindProfileString(round.Path, question.Section, question.Key, "", BufferSize).size());
    }
}

void ReadBare(const void* argument)
{
    const auto& round = *static_cast<const ReadRound*>(argument);
    for (std::size_t i = 0; i < ReadsPerRound; ++i) {
        benchmark::DoNotOptimize(round.Table.find(round.Names[i % round.Names.size()])->second.size());
    }
}

void WarmRead(benchmark::State& state)
{
    ReadRound round;
    round.Questions = TableQuestions();
    round.Path =
        (fs::temp_directory_path() / ("korvanta-table-" + std::to_string(getpid()) + ".ini")).string();
    std::ofstream(round.Path, std::ios::binary) << TableText(round.Questions);
    fs::last_write_time(round.Path, fs::file_time_type::clock::now() - std::chrono::hours(1));
    for (const Question& question : round.Questions) {
        round.Names.push_back(question.Section + question.Key);
        round.Table[round.Names.back()] = "G01 X*part_x Y*part_y ; " + question.Section;
    }
    double warm = 0.0;
    double bare = 0.0;
    BeginSteadyReads();
    for (auto unused : state) {
        const double seconds = SecondsOf(ReadWarm, &round);
        state.SetIterationTime(seconds);
        warm += seconds;
        bare += SecondsOf(ReadBare, &round);
    }
    EndSteadyReads();
    state.counters["times_bare_lookup"] = warm / bare;
    state.counters["ns_per_read"] = 1e9 * warm / (static_cast<double>(state.iterations()) * ReadsPerRound);
    fs::remove(round.Path);
}
BENCHMARK(WarmRead)->UseManualTime()->Unit(benchmark::kMillisecond);

void ParseAll(const void* argument)
{
    benchmark::DoNotOptimize(ParseKeyText(*static_cast<const std::string*>(argument)).Keys.size());
}

void SplitAll(const void* argument)
{
    std::string_view rest = *static_cast<const std::string*>(argument);
    std::string_view line;
    std::size_t lines = 0;
    while (NextLine(rest, line)) {
        ++lines;
    }
    benchmark::DoNotOptimize(lines);
}

/// The ratio must not grow with the file: the parse is linear.
void Parse(benchmark::State& state)
{
    std::string text;
    for (std::int64_t section = 0; section < state.range(0); ++section) {
        text += "[Section" + std::to_string(section) + "]\r\n";
        for (int key = 0; key < 20; ++key) {
            text += "Key" + std::to_string(key) + " = some value of a setting\r\n";
        }
    }
    double parse = 0.0;
    double split = 0.0;
    for (auto unused : state) {
        const double seconds = SecondsOf(ParseAll, &text);
        state.SetIterationTime(seconds);
        parse += seconds;
        split += SecondsOf(SplitAll, &text);
    }
    state.counters["times_bare_split"] = parse / split;
}
BENCHMARK(Parse)->Arg(100)->Arg(1000)->Arg(10000)->UseManualTime()->Unit(benchmark::kMillisecond);
} // namespace
