// Any bytes as an ISO program: read, made a part, turned, and given its cut moves. The first byte chooses between
// absolute and relative centres.
#include "FuzzFiles.h"

#include "import/Korvanta_IsoIn.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "support/RecordingScreen.h"

#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

namespace
{
/// A folder with a table for each way of giving centres.
std::string MakeStation()
{
    const std::string folder = MakeFuzzFolder("iso");
    WriteBytes(folder + "/PPR.ini", "[PartProgram_CONFIG]\nINC_CENTER=YES\n");
    return folder;
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

/// Names behind which there is no program.
void CheckRefused(const char* name)
{
    Require(!ImportIso(name) && AppState.ElementCount == 0 && !AppState.ImportFailure.empty());
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
    WriteBytes(path, {reinterpret_cast<const char*>(data) + 1, size - 1});
    const bool imported = ImportIso(path);
    Require(AppState.ElementCount <= MaxElements);
    Require(imported == (AppState.ElementCount > 0));
    Require(std::isfinite(AppState.TotalCutLength));
    if (imported) {
        CheckMoves();
    }
    CheckRefused(" ");
    CheckRefused("/nowhere/part.iso");
    return 0;
}
