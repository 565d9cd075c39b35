// Any bytes as an ISO program: read, made a part, turned, and given its cut moves. The first byte chooses between
// absolute and relative centres.
#include "import/Korvanta_IsoIn.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "support/RecordingScreen.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace
{
namespace fs = std::filesystem;

void Require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

/// A folder with a table for each way of giving centres.
std::string MakeStation()
{
    const fs::path folder = fs::temp_directory_path() / ("korvanta_fuzz_iso_" + std::to_string(getpid()));
    fs::create_directories(folder);
    std::ofstream(folder / "PPR.ini") << "[PartProgram_CONFIG]\nINC_CENTER=YES\n";
    return folder.string();
}

void WriteProgram(const std::string& path, const std::uint8_t* data, std::size_t size)
{
    std::remove(path.c_str()); // rewriting in place waits for the disk on some file systems
    std::FILE* file = std::fopen(path.c_str(), "wb");
    Require(file != nullptr);
    Require(std::fwrite(data, 1, size, file) == size);
    std::fclose(file);
}

void CheckMoves()
{
    InitLeadData();
    ApplyTransform(30.0, 1, 1.5, FlagOff);
    std::vector<CutMove> moves;
    for (std::int32_t profile = 1; profile <= AppState.ProfileCount; ++profile) {
        std::int16_t side = 0;
        BuildCutMoves(moves, profile, side, 1.0);
        for (std::size_t i = 1; i < moves.size(); ++i) {
            Require(std::isfinite(moves[i].X) && std::isfinite(moves[i].Y));
            Require(std::isfinite(moves[i].CentreX) && std::isfinite(moves[i].CentreY));
        }
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::string station = MakeStation();
    if (size == 0) {
        return 0;
    }
    StartCase();
    AppState.AppPath = station;
    AppState.PprIniName = data[0] % 2 == 0 ? "none.ini" : "PPR.ini";
    const std::string path = station + "/part.iso";
    WriteProgram(path, data + 1, size - 1);
    const bool imported = ImportIso(path);
    Require(AppState.ElementCount <= MaxElements);
    Require(imported == (AppState.ElementCount > 0));
    Require(std::isfinite(AppState.TotalCutLength));
    if (imported) {
        CheckMoves();
    }
    return 0;
}
