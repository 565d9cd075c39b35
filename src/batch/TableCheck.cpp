#include "batch/TableCheck.h"

#include "config/PprValues.h"
#include "geometry/Orbalib.h"
#include "platform/Paths.h"
#include "post/Korvanta_PostProcessor.h"
#include "profile/Korvanta_ProfileCut.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace
{
constexpr std::size_t ProfilesListed = 10;
constexpr double HalfTurnAtMost = Pi + 1e-4; ///< a drawn half circle may be off by the rounding of its file

std::string Listed(const std::vector<std::int32_t>& profiles)
{
    std::string list = profiles.size() > 1 ? "profiles " : "profile ";
    for (std::size_t i = 0; i < std::min(profiles.size(), ProfilesListed); ++i) {
        list += (i > 0 ? ", " : "") + std::to_string(profiles[i]);
    }
    return list + (profiles.size() > ProfilesListed ? ", ..." : "");
}

double Sweep(const CutMove& arc, const CutMove& next)
{
    if (dpp(arc.X, arc.Y, next.X, next.Y) < Tolerance) {
        return 2.0 * Pi; // a shorter piece of an arc is cut as a straight one
    }
    return amparco(arc.CentreX, arc.CentreY, arc.X, arc.Y, next.X, next.Y, arc.Radius > 0.0 ? 1 : -1);
}

bool TurnsBeyondHalf(const std::vector<CutMove>& moves)
{
    for (std::size_t i = 1; i + 1 < moves.size(); ++i) {
        if (moves[i].Kind == KindArc && Sweep(moves[i], moves[i + 1]) > HalfTurnAtMost) {
            return true;
        }
    }
    return false;
}

/// A control steps aside along the first move. On a closed profile that must be a lead-in, or the first side comes out
/// slanted; an open one begins as its own drawing has it.
bool StartsStraight(const std::vector<CutMove>& moves, bool closed)
{
    return moves.size() > 2 && moves[1].Kind == KindLine && (!closed || moves[1].Phase == PhaseLeadIn) &&
           dpp(moves[1].X, moves[1].Y, moves[2].X, moves[2].Y) >= Tolerance;
}

struct ProfileFindings {
    std::vector<std::int32_t> LateWord;
    std::vector<std::int32_t> LongArcs;
    bool AnySide = false;
};

ProfileFindings LookAtProfiles()
{
    ProfileFindings found;
    const std::vector<ProfileRecord> kept = AppState.ProfileTable; // to build leads may change their records
    for (std::int32_t profile = 1; profile <= AppState.ProfileCount; ++profile) {
        std::vector<CutMove> moves;
        std::int16_t side = 0;
        BuildCutMoves(moves, profile, side, 0.0);
        const bool sided = side != 0 && AppState.NoKerfCodes == FlagOff;
        found.AnySide = found.AnySide || sided;
        const auto mark = static_cast<std::size_t>(EndMarkOf(profile));
        const bool closed = AppState.ElementTable[mark].GeoB != 0.0;
        if (sided && !StartsStraight(moves, closed)) {
            found.LateWord.push_back(profile);
        }
        if (TurnsBeyondHalf(moves)) {
            found.LongArcs.push_back(profile);
        }
    }
    AppState.ProfileTable = kept;
    return found;
}

void WarnOfMarks(std::vector<std::string>& warnings)
{
    if (AppState.MarkPointCount == 0) {
        return;
    }
    if (BlockLines("PartProgram_POINT").empty()) {
        warnings.emplace_back("the marking points aren't in the program: the table has no PartProgram_POINT");
    } else if (FindPprValue("PartProgram_CONFIG", "SUBPROGRAMS", "NO") == "YES") {
        warnings.emplace_back(
            "the marking points stand in the program once and not at each copy: sub-programs can't "
            "bring them along");
    }
}
} // namespace

std::vector<std::string> ProgramWarnings()
{
    std::vector<std::string> warnings;
    const std::string table = AppState.AppPath + "\\" + AppState.PprIniName;
    if (!FileExists(table)) {
        warnings.push_back("the post-processor table " + NativePath(table) +
                           " isn't there: the program has no words of a control");
    }
    const ProfileFindings found = LookAtProfiles();
    const bool wordInBlock = BlockHolds("PartProgram_StartCUT", "*KERF_ON");
    const bool wordBehindLeadIn = BlockHolds("PartProgram_EndLeadIn", "*KERF_ON");
    if (AppState.FirstMoveKerfOn == 0 && !wordInBlock && wordBehindLeadIn && found.AnySide) {
        warnings.emplace_back("the table turns compensation on behind the lead-in: the control steps aside "
                              "along the contour, and its first side comes out slanted");
    } else if (AppState.FirstMoveKerfOn == 0 && !wordInBlock && found.AnySide) {
        warnings.emplace_back(
            "the table writes no compensation: unless the control does it by other means, the part "
            "comes out a kerf smaller and its holes a kerf wider");
    }
    if (AppState.FirstMoveKerfOn != 0 && !wordInBlock && !found.LateWord.empty()) {
        warnings.push_back("the cut of " + Listed(found.LateWord) +
                           " doesn't begin with a straight lead-in: compensation comes late or not at all");
    }
    if (AppState.RadiusWord != "NULL" && !found.LongArcs.empty()) {
        warnings.push_back(
            "arcs of " + Listed(found.LongArcs) +
            " turn more than half a circle: a control that goes by the radius word takes the short way");
    }
    WarnOfMarks(warnings);
    return warnings;
}
