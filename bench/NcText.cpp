// The text of a program: a 100 x 100 nest of a part with 20 profiles, about 2 million lines, against a loop that formats
// the same numbers with std::to_chars and writes the same bytes. Counters: the ratio, and by how much memory at its peak
// grows from 100 copies to 10,000 (the recorder of the progress bar alone takes some 0.5 MB of that).
#include "post/Korvanta_PostProcessor.h"
#include "post/Verification.h"
#include "profile/Korvanta_ProfileCut.h"
#include "support/RecordingScreen.h"

#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/resource.h>
#include <unistd.h>

namespace
{
namespace fs = std::filesystem;

constexpr int Profiles = 20;
constexpr double Origin = 5.0;
constexpr double PitchX = 110.0;
constexpr double PitchY = 90.0;

/// The table of a plain control: rapid and ignition ahead of each cut, everything off behind it.
constexpr const char* Table = "[PartProgram_StartCUT]\nLINE1=_*RAPID_MOVE\nLINE2=_M07\n"
                              "[PartProgram_EndCUT]\nLINE1=_*KERF_OFF\nLINE2=_M08\n";

void AddSide(double x1, double y1, double x2, double y2)
{
    GeoLine line{};
    std::int16_t err = 0;
    r_pp(line, {0.0, x1, y1, 0.0}, {0.0, x2, y2, 0.0}, err);
    AddElement(KindLine, x1, y1, line[1], line[2], line[3], x2, y2, 1);
}

/// Twenty squares of 10 with the lead of a new part: straight piece and quarter arc.
void BuildPart()
{
    ClearPart();
    for (int p = 0; p < Profiles; ++p) {
        const double x = 20.0 * (p % 5) + 5.0;
        const double y = 20.0 * static_cast<double>(p / 5) + 5.0;
        AddSide(x, y, x + 10, y);
        AddSide(x + 10, y, x + 10, y + 10);
        AddSide(x + 10, y + 10, x, y + 10);
        AddSide(x, y + 10, x, y);
        const std::int16_t kind = p + 1 < Profiles ? KindEnd : KindOuterEnd;
        AddElement(kind, x, y, 0.0, 100.0, 2.0, x, y, 1);
    }
    ComputeBounds();
    MeasureProfiles(FlagOn);
    InitLeadData();
    for (std::size_t p = 1; p <= Profiles; ++p) {
        ProfileRecord& record = AppState.ProfileTable[p];
        record.Side = 1.0;
        record.LeadPosition = 5.0;
        record.LeadInLength = 2.0;
        record.LeadInRadius = 1.0;
    }
}

void LayOut(std::int32_t columns, std::int32_t rows)
{
    AppState.NestKind = 1;
    AppState.CountX = columns;
    AppState.CountY = rows;
    AppState.PartSizeX = AppState.MaxX - AppState.MinX;
    AppState.PartSizeY = AppState.MaxY - AppState.MinY;
    AppState.GapX = PitchX - AppState.PartSizeX;
    AppState.GapY = PitchY - AppState.PartSizeY;
    AppState.TextNesting[FieldKerf].Text = "5";
    AppState.TextNesting[FieldGapX].Text = "0";
    AppState.TextNesting[FieldGapY].Text = "0";
}

/// What the bare loop knows of one copy: text, then a number that moves with the copy, or the line number.
struct Piece {
    std::string Text;
    char Number = 0; ///< 'X', 'Y', 'N', 0 for none
    double Value = 0.0;
};

/// Cuts the lines of the first copy into pieces.
std::vector<Piece> PiecesOf(const std::string& lines)
{
    std::vector<Piece> pieces;
    std::string text;
    for (std::size_t at = 0; at < lines.size();) {
        const char c = lines[at++];
        text += c;
        const bool moves = c == 'X' || c == 'I' || c == 'Y' || c == 'J';
        if (!moves && c != 'N') {
            continue;
        }
        double value = 0.0;
        const char* const end = std::from_chars(lines.data() + at, lines.data() + lines.size(), value).ptr;
        at = static_cast<std::size_t>(end - lines.data());
        const char number = c == 'N' ? 'N' : (c == 'X' || c == 'I' ? 'X' : 'Y');
        pieces.push_back({text, number, value - (c == 'N' ? 0.0 : Origin)});
        text.clear();
    }
    pieces.push_back({text});
    return pieces;
}

struct BareProgram {
    std::FILE* File = nullptr;
    std::string Buffer;
    int LineNumber = 10;

    void Copy(const std::vector<Piece>& pieces, double x, double y)
    {
        char number[64];
        for (const Piece& piece : pieces) {
            Buffer += piece.Text;
            std::to_chars_result end{number, {}};
            if (piece.Number == 'N') {
                end = std::to_chars(number, number + sizeof number, LineNumber);
                LineNumber += 10;
            } else if (piece.Number != 0) {
                end = std::to_chars(number, number + sizeof number,
                                    piece.Value + (piece.Number == 'X' ? x : y), std::chars_format::fixed, 3);
            }
            Buffer.append(number, end.ptr);
        }
        if (Buffer.size() > 60000) {
            std::fwrite(Buffer.data(), 1, Buffer.size(), File);
            Buffer.clear();
        }
    }
};

void WriteBare(const fs::path& path, const std::vector<Piece>& pieces)
{
    BareProgram program;
    program.File = std::fopen(path.c_str(), "wb");
    for (std::int32_t row = 0; row < AppState.CountY; ++row) {
        for (std::int32_t i = 0; i < AppState.CountX; ++i) {
            const std::int32_t column = row % 2 == 0 ? i : AppState.CountX - 1 - i;
            program.Copy(pieces, Origin + column * PitchX, Origin + row * PitchY);
        }
    }
    std::fwrite(program.Buffer.data(), 1, program.Buffer.size(), program.File);
    std::fclose(program.File);
}

std::string ReadBytes(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

template <typename Work> double SecondsOf(Work work)
{
    const std::clock_t start = std::clock(); // processor time: the machine may be busy with other work
    work();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

/// Most memory that the process has used so far.
double PeakMegabytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

void Prepare(const fs::path& folder)
{
    fs::create_directories(folder);
    StartCase();
    AppState.AppPath = folder.string();
    AppState.NcPath = folder.string() + "\\";
    AppState.PprIniName = "PPR.ini";
    std::ofstream(folder / "PPR.ini", std::ios::binary) << Table;
    BuildPart();
}

void NcText(benchmark::State& state)
{
    const fs::path folder = fs::temp_directory_path() / ("korvanta-nctext-" + std::to_string(getpid()));
    Prepare(folder);
    LayOut(1, 1);
    GenerateProgram("ONE");
    const std::vector<Piece> pieces = PiecesOf(ReadBytes(folder / "ONE"));
    LayOut(10, 10);
    GenerateProgram("SMALL");
    LayOut(100, 100);
    double program = 1e9;
    double bare = 1e9;
    const double peak = PeakMegabytes();
    double nestPeak = 0.0;
    for (auto unused : state) {
        const double seconds = SecondsOf([] { GenerateProgram("NEST"); });
        Screen.Calls = {};
        nestPeak = PeakMegabytes();
        state.SetIterationTime(seconds);
        program = std::min(program, seconds);
        bare = std::min(bare, SecondsOf([&] { WriteBare(folder / "BARE", pieces); }));
    }
    state.counters["lines"] = static_cast<double>(AppState.ProgramLines);
    state.counters["times_bare"] = program / bare;
    state.counters["peak_grown_MB"] = nestPeak - peak;
    if (ReadBytes(folder / "NEST") != ReadBytes(folder / "BARE")) {
        state.SkipWithError("the bare loop writes other bytes");
    }
    fs::remove_all(folder);
}

/// The same program read back and compared with the part, against writing it. Memory must not grow with the nest.
void VerifyText(benchmark::State& state)
{
    const fs::path folder = fs::temp_directory_path() / ("korvanta-verify-" + std::to_string(getpid()));
    Prepare(folder);
    std::ofstream(folder / "PPR.ini", std::ios::binary | std::ios::app)
        << "[PartProgram_CONFIG]\nINC_CENTER=YES\n";
    ProgramFile.KeepSum = true;
    LayOut(10, 10);
    GenerateProgram("SMALL");
    if (VerifyProgram().Outcome != VerifyOutcome::Same) {
        state.SkipWithError("the program isn't its part");
        return;
    }
    LayOut(100, 100);
    double program = 1e9;
    double verify = 1e9;
    double grown = 0.0;
    for (auto unused : state) {
        program = std::min(program, SecondsOf([] { GenerateProgram("NEST"); }));
        Screen.Calls = {};
        const double peak = PeakMegabytes();
        Verification found;
        const double seconds = SecondsOf([&found] { found = VerifyProgram(); });
        grown = std::max(grown, PeakMegabytes() - peak);
        state.SetIterationTime(seconds);
        verify = std::min(verify, seconds);
        if (found.Outcome != VerifyOutcome::Same) {
            state.SkipWithError("the program isn't its part");
        }
    }
    state.counters["lines"] = static_cast<double>(AppState.ProgramLines);
    state.counters["times_writing"] = verify / program;
    state.counters["peak_grown_MB"] = grown;
    ProgramFile.KeepSum = false;
    fs::remove_all(folder);
}
} // namespace

BENCHMARK(VerifyText)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(NcText)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);
