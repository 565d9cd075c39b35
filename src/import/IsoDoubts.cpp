#include "import/IsoDoubts.h"

#include "config/Korvanta_Utility.h"
#include "geometry/Orbalib.h"

#include <cmath>
#include <string>

namespace
{
constexpr double DwellCode = 4;
constexpr double RelativeCode = 91;

void AddDoubt(std::int64_t line, const std::string& what)
{
    ++AppState.ImportDoubtCount;
    if (AppState.ImportDoubts.size() < MaxDoubts) {
        AppState.ImportDoubts.push_back({line, what});
    }
}

/// The centre words that the line doesn't have: "", "I", "J" or "I and J".
std::string MissingWords(std::string_view line)
{
    const bool hasI = Contains(line, "I");
    const bool hasJ = Contains(line, "J");
    return hasI && hasJ ? "" : hasI ? "J" : hasJ ? "I" : "I and J";
}

/// A missing word takes the value of an earlier line, of an arc its absolute centre: as a distance that is wrong unless it is 0.
bool TakesForeignDistance(std::string_view line, const IsoMove& move)
{
    const bool foreignI = !Contains(line, "I") && std::fabs(move.I - move.StartX) > MaxArcMiss;
    const bool foreignJ = !Contains(line, "J") && std::fabs(move.J - move.StartY) > MaxArcMiss;
    return foreignI || foreignJ;
}

void NoteArc(std::string_view line, std::int64_t number, const IsoMove& move, bool incrementalCentre)
{
    const double miss = std::fabs(dpp(move.EndX, move.EndY, move.I, move.J) - std::fabs(move.Radius));
    const std::string missing = MissingWords(line);
    if (miss > MaxArcMiss) {
        AddDoubt(number, "the arc ends " + FormatNumber(miss) + " beside its circle" +
                             (missing.empty() ? "" : ": it has no " + missing));
    } else if (incrementalCentre && TakesForeignDistance(line, move)) {
        AddDoubt(number, "the arc has no " + missing + " and takes that of an earlier line");
    }
}
} // namespace

void NoteDoubts(std::string_view line, std::int64_t number, const IsoMove& move, bool incrementalCentre)
{
    if (HoldsGCode(line, RelativeCode)) {
        AddDoubt(number, "G91 isn't read, the coordinates count as absolute");
    }
    if (HoldsGCode(line, DwellCode)) {
        if (move.StartX != move.EndX || move.StartY != move.EndY) {
            AddDoubt(number, "the dwell G04 is read as a move");
        }
    } else if (move.Code == 2 || move.Code == 3) {
        NoteArc(line, number, move, incrementalCentre);
    }
}
