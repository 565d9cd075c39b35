#include "post/Verification.h"

#include "config/Korvanta_Configuration.h"
#include "config/Korvanta_Utility.h"
#include "config/PprValues.h"
#include "geometry/Orbalib.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "platform/Paths.h"
#include "platform/SafeFile.h"
#include "post/ExpectedCuts.h"
#include "post/Korvanta_PostProcessor.h"
#include "post/ReadBack.h"
#include "post/VerifyTable.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{
/// Three decimals, the rest cut off after a nudge of a tenth of the last one: what may lie between a number and its text.
constexpr double LastDecimal = 0.001;
constexpr double Nudge = 0.0001;
/// Digits beyond the fifteenth, which texts of numbers don't hold.
constexpr double Slack = 1e-6;
/// Ends and centre of an arc, each cut off, and the tolerance within which ends count as one.
constexpr double SweepSlack = 2 * Tolerance;

/// What one run of the comparison carries from copy to copy.
struct Check {
    VerifyTable Table;
    ReadBack Program;
    FoundCut Found;
    bool Held = false; ///< Found waits to be compared
    std::vector<ExpectedCut> Cuts;
    std::int64_t CopyNr = 0;
    double CopyX = 0.0;
    double CopyY = 0.0;
    std::string Last; ///< name of the cut compared last
    Verification Result;
};

// --- numbers ----------------------------------------------------------------------------------------------

/// True when `found` may be the text of `expected`. No number is none.
bool IsTextOf(double found, double expected)
{
    const double size = std::fabs(expected);
    const double along = expected < 0.0 ? -found : found;
    return along >= size - LastDecimal - Slack && along <= size + Nudge + Slack;
}

bool IsTextOf(double foundX, double foundY, double x, double y)
{
    return IsTextOf(foundX, x) && IsTextOf(foundY, y);
}

std::string Text(double value)
{
    return std::isfinite(value) ? FormatNumber(value, 1, -3) : "no number";
}

std::string PointText(double x, double y)
{
    return "X " + Text(x) + " Y " + Text(y);
}

/// Sweep from start to end, above 0 and up to a full turn: the same point is one.
double Sweep(const IsoMove& arc)
{
    if (arc.StartX == arc.EndX && arc.StartY == arc.EndY) {
        return 2 * Pi;
    }
    const double from = std::atan2(arc.StartY - arc.J, arc.StartX - arc.I);
    const double to = std::atan2(arc.EndY - arc.J, arc.EndX - arc.I);
    const double sweep = arc.Code == 3 ? to - from : from - to;
    return sweep > 0.0 ? sweep : sweep + 2 * Pi;
}

// --- differences --------------------------------------------------------------------------------------------

void Differ(Check& check, const std::string& text)
{
    ++check.Result.DifferenceCount;
    if (check.Result.Differences.size() < DifferencesNamed) {
        check.Result.Differences.push_back(text);
    }
}

std::string CutName(const Check& check, std::size_t profile)
{
    return "copy " + std::to_string(check.CopyNr) + ", profile " + std::to_string(profile);
}

std::string LineName(std::int64_t line)
{
    return " (line " + std::to_string(line) + ")";
}

std::string MoveName(const ExpectedMove& move)
{
    return move.Phase == PhaseLeadIn    ? "lead-in"
           : move.Phase == PhaseLeadOut ? "lead-out"
                                        : "element " + std::to_string(move.Element);
}

const char* CodeName(std::int16_t code)
{
    return code == 1 ? "a straight move" : code == 2 ? "a clockwise arc" : "a counter-clockwise arc";
}

const char* SideName(std::int16_t side)
{
    return side > 0 ? "compensation left" : side < 0 ? "compensation right" : "no compensation";
}

std::string Pair(const std::string& what, const std::string& expected, const std::string& found)
{
    return what + expected + " expected, " + found + " found";
}

// --- one move -----------------------------------------------------------------------------------------------

/// Number behind the first `address`; not a number without it.
double NumberBehind(const std::string& text, const std::string& address)
{
    const std::size_t at = text.find(address);
    return at == std::string::npos ? std::numeric_limits<double>::quiet_NaN()
                                   : TextToNumber(std::string_view(text).substr(at + address.size()));
}

/// A coordinate that the line repeats for a second axis. Empty when it is right, or not asked for.
std::string WordDifference(const FoundMove& found, const std::string& address, double expected)
{
    if (address.empty()) {
        return {};
    }
    const double word = NumberBehind(found.Text, address);
    return IsTextOf(word, expected) ? "" : Pair(address + " ", Text(expected), Text(word));
}

/// The words of the centre as the line has them, and the sweep. Empty when they are right.
std::string ArcDifference(const Check& check, const ExpectedMove& move, const FoundMove& found)
{
    const bool relative = check.Program.IncrementalCentre;
    const double i = move.CentreX + (relative ? -move.StartX : check.CopyX);
    const double j = move.CentreY + (relative ? -move.StartY : check.CopyY);
    const double foundI = found.Iso.I - (relative ? found.Iso.StartX : 0.0);
    const double foundJ = found.Iso.J - (relative ? found.Iso.StartY : 0.0);
    if (!IsTextOf(foundI, foundJ, i, j)) {
        return Pair("centre ", "I " + Text(i) + " J " + Text(j), "I " + Text(foundI) + " J " + Text(foundJ));
    }
    const double turn = amparco(move.CentreX, move.CentreY, move.StartX, move.StartY, move.EndX, move.EndY,
                                move.Radius > 0.0 ? 1 : -1);
    const double foundTurn = Sweep(found.Iso);
    if (!(std::fabs(turn - foundTurn) * std::fabs(move.Radius) <= SweepSlack)) {
        return Pair("turn of ", Text(turn / Pi * 180), Text(foundTurn / Pi * 180) + " degrees");
    }
    for (const std::string& text :
         {WordDifference(found, check.Table.RadiusWord, std::fabs(move.Radius)),
          WordDifference(found, AppState.MirrorI, i), WordDifference(found, AppState.MirrorJ, j)}) {
        if (!text.empty()) {
            return text;
        }
    }
    return {};
}

/// Compensation is the profile's on the contour. Along a lead-in it may still begin, along a lead-out it may be over
/// where the table says so.
bool SideFits(const VerifyTable& table, const ExpectedMove& move, std::int16_t found)
{
    const std::int16_t expected = table.Sides ? move.Side : std::int16_t{0};
    const bool mayBeOff = move.Phase == PhaseLeadIn || (move.Phase == PhaseLeadOut && table.SideEndsEarly);
    return found == expected || (found == 0 && mayBeOff);
}

/// What is wrong with a move. Empty when nothing is.
std::string MoveDifference(const Check& check, const ExpectedMove& move, const FoundMove& found)
{
    if (found.Incremental) {
        return "its coordinates are read as increments (G91)";
    }
    if (found.Iso.Code != move.Code) {
        return Pair("", CodeName(move.Code), CodeName(found.Iso.Code));
    }
    const double x = check.CopyX + move.EndX;
    const double y = check.CopyY + move.EndY;
    if (!IsTextOf(found.Iso.EndX, found.Iso.EndY, x, y)) {
        return Pair("end at ", PointText(x, y), PointText(found.Iso.EndX, found.Iso.EndY));
    }
    if (!SideFits(check.Table, move, found.Iso.Side)) {
        return Pair("", SideName(check.Table.Sides ? move.Side : std::int16_t{0}), SideName(found.Iso.Side));
    }
    for (const std::string& text :
         {WordDifference(found, AppState.MirrorX, x), WordDifference(found, AppState.MirrorY, y)}) {
        if (!text.empty()) {
            return text;
        }
    }
    if (move.Code == 1) {
        return "";
    }
    return found.OtherCentre ? "its centre is read in the other way (G90.1, G91.1) than INC_CENTER tells"
                             : ArcDifference(check, move, found);
}

// --- one cut --------------------------------------------------------------------------------------------------

const FoundMove& FirstOf(const FoundCut& cut)
{
    return cut.Moves.front();
}

bool StartsAt(const Check& check, const ExpectedCut& cut)
{
    const IsoMove& first = FirstOf(check.Found).Iso;
    return IsTextOf(first.StartX, first.StartY, check.CopyX + cut.front().StartX,
                    check.CopyY + cut.front().StartY);
}

/// The moves in order. The first one that is wrong is told, since those behind it often follow from it.
bool CompareMoves(Check& check, const ExpectedCut& cut, const std::string& name)
{
    const std::vector<FoundMove>& found = check.Found.Moves;
    const std::string counts = found.size() == cut.size()
                                   ? ""
                                   : "; " + std::to_string(cut.size()) + " moves expected, " +
                                         std::to_string(found.size()) + " found";
    for (std::size_t i = 0; i < std::min(cut.size(), found.size()); ++i) {
        ++check.Result.Moves;
        const std::string text = MoveDifference(check, cut[i], found[i]);
        if (!text.empty()) {
            std::string difference = name + ", ";
            difference.append(MoveName(cut[i])).append(": ").append(text).append(counts);
            Differ(check, difference.append(LineName(found[i].Line)));
            return false;
        }
    }
    if (found.size() < cut.size()) {
        Differ(check, name + ", " + MoveName(cut[found.size()]) + ": it is missing" + counts +
                          LineName(found.back().Line));
    } else if (found.size() > cut.size()) {
        Differ(check, name + ": a move too many" + counts + LineName(found[cut.size()].Line));
    }
    return found.size() == cut.size();
}

/// Whether each of `words` stands among the words found, or with `wanted` off none of them.
void CompareWordsAt(Check& check, const std::vector<double>& words, const std::vector<double>& found,
                    bool wanted, const std::string& place)
{
    for (const double word : words) {
        if (HoldsMWord(found, word) != wanted) {
            const std::string number = (wanted ? "M" : "no M") + Trim(PlainNumber(word));
            Differ(check, Pair("", number, wanted ? "none" : "one").append(place));
        }
    }
}

/// The M words of the table around a cut: torch on behind the rapid, torch off ahead of the next one.
void CompareWords(Check& check, const std::string& name)
{
    const VerifyTable& table = check.Table;
    const FoundCut& found = check.Found;
    const std::string atStart = " the first move of " + name + LineName(FirstOf(found).Line);
    const std::string atEnd = " behind the last move of " + name + LineName(found.Moves.back().Line);
    CompareWordsAt(check, table.NotBehind, found.WordsEarly, false, " ahead of the rapid to" + atStart);
    CompareWordsAt(check, table.WordsAhead, found.WordsAhead, true, " between the rapid and" + atStart);
    CompareWordsAt(check, table.NotAhead, found.WordsAhead, false, " between the rapid and" + atStart);
    CompareWordsAt(check, table.NotBetween, found.WordsBetween, false, " between the moves of " + name);
    CompareWordsAt(check, table.WordsBehind, found.WordsBehind, true, atEnd);
    CompareWordsAt(check, table.NotBehind, found.WordsBehind, false, atEnd);
}

/// The marks ahead of the first cut of a copy; all rapids are absolute, without compensation.
void CompareRapids(Check& check, const std::string& name, bool first)
{
    const std::vector<FoundRapid>& rapids = check.Found.Rapids;
    for (const FoundRapid& rapid : rapids) {
        if (rapid.Side != 0 || rapid.Incremental) {
            Differ(check, (check.Last.empty() ? "ahead of the first cut" : "behind " + check.Last) +
                              (rapid.Side != 0 ? ": the rapid has compensation"
                                               : ": the rapid is read as increments (G91)") +
                              LineName(rapid.Line));
            break;
        }
    }
    const std::size_t marks =
        first && check.Table.Marks ? static_cast<std::size_t>(std::max(AppState.MarkPointCount, 0)) : 0;
    for (std::size_t i = 1; i <= marks; ++i) {
        const MarkPoint& mark = AppState.MarkPoints[i];
        const double x = check.CopyX + mark.X;
        const double y = check.CopyY + mark.Y;
        const std::string what = name.substr(0, name.find(',')) + ", mark " + std::to_string(i) + ": ";
        if (rapids.size() < marks + 1) {
            Differ(check, what + "it is missing or out of order");
            return;
        }
        const FoundRapid& rapid = rapids[rapids.size() - marks - 2 + i];
        if (!IsTextOf(rapid.X, rapid.Y, x, y)) {
            Differ(check, Pair(what, PointText(x, y), PointText(rapid.X, rapid.Y)) + LineName(rapid.Line));
            return;
        }
    }
}

/// The next cut of the program as `cut` of the copy at hand.
void CompareCut(Check& check, std::size_t profile, bool first)
{
    const ExpectedCut& cut = check.Cuts[profile];
    if (cut.empty()) {
        return;
    }
    const std::string name = CutName(check, profile);
    ++check.Result.Cuts;
    check.Held = check.Held || ReadCut(check.Program, check.Found);
    if (!check.Held) {
        Differ(check, name + (check.Program.Ended ? ": the program ends ahead of it"
                                                  : ": it is missing, the program has no further cut"));
        return;
    }
    check.Held = false;
    CompareRapids(check, name, first);
    if (StartsAt(check, cut)) {
        CompareMoves(check, cut, name);
        CompareWords(check, name);
    } else {
        const FoundMove& found = FirstOf(check.Found);
        Differ(check, Pair(name + ": pierced at ",
                           PointText(check.CopyX + cut.front().StartX, check.CopyY + cut.front().StartY),
                           PointText(found.Iso.StartX, found.Iso.StartY)) +
                          LineName(found.Line));
    }
    check.Last = name;
}

bool CompareCopy(double copyX, double copyY, void* context)
{
    Check& check = *static_cast<Check*>(context);
    check.CopyX = copyX;
    check.CopyY = copyY;
    ++check.CopyNr;
    for (std::size_t profile = 1; profile < check.Cuts.size(); ++profile) {
        CompareCut(check, profile, profile == 1);
    }
    return true;
}

// --- the whole program ------------------------------------------------------------------------------------

/// Cuts that nothing asks for, and the compensation at the end.
void CompareEnd(Check& check)
{
    std::int64_t tooMany = 0;
    std::string place;
    while (check.Held || ReadCut(check.Program, check.Found)) {
        check.Held = false;
        if (++tooMany == 1) {
            const FoundMove& found = FirstOf(check.Found);
            place = " from " + PointText(found.Iso.StartX, found.Iso.StartY) + LineName(found.Line);
        }
    }
    if (tooMany > 0) {
        Differ(check, "the program holds " + std::to_string(tooMany) + " cuts too many, the first" + place);
    }
    if (check.Program.Modal.Side != 0 ||
        (!check.Found.Rapids.empty() && check.Found.Rapids.front().Side != 0)) {
        Differ(check, "behind " + check.Last + ": compensation isn't ended up to the end of the program");
    }
}

/// The file against what was written: lines, their bytes, copies.
void CompareFile(Check& check)
{
    const std::int64_t lines = check.Program.Text.Lines;
    if (lines != AppState.ProgramLines) {
        Differ(check,
               Pair("the file: ", std::to_string(AppState.ProgramLines) + " lines", std::to_string(lines)));
    } else if (AppState.ProgramSum != 0 && AppState.ProgramSum != check.Program.Sum) {
        Differ(check, "the file isn't the one that was written: its lines differ");
    }
    if (check.CopyNr != AppState.ProgramCopies) {
        Differ(check, Pair("the nest: ", std::to_string(check.CopyNr) + " copies",
                           std::to_string(AppState.ProgramCopies)));
    }
}

/// What the part asks for, from slot 1. The lead records stay as they were.
void ExpectCuts(Check& check)
{
    const std::vector<ProfileRecord> records = AppState.ProfileTable;
    check.Cuts.emplace_back();
    for (std::int32_t profile = 1; profile <= AppState.ProfileCount; ++profile) {
        check.Cuts.push_back(ExpectCut(profile, check.Table.FlyOff));
    }
    AppState.ProfileTable = records;
}
} // namespace

Verification VerifyProgram()
{
    Check check;
    check.Result.Reason = ReadVerifyTable(check.Table);
    if (!check.Result.Reason.empty()) {
        check.Result.Outcome = VerifyOutcome::Unreadable;
        return check.Result;
    }
    check.Result.Sides = check.Table.Sides;
    ExpectCuts(check);
    if (OpenReadBack(check.Program, AppState.ProgramPath)) {
        double originX = 0.0;
        double originY = 0.0;
        ProgramOrigin(originX, originY);
        check.Result.Copies = WalkCopies(originX, originY, &CompareCopy, &check);
        CompareEnd(check);
        CompareFile(check);
        CloseReader(check.Program.Text);
    } else {
        Differ(check, NativePath(AppState.ProgramPath) + " can't be read");
    }
    check.Result.Outcome = check.Result.DifferenceCount > 0 ? VerifyOutcome::Different : VerifyOutcome::Same;
    return check.Result;
}

bool WithdrawProgram()
{
    if (ReadConfig("CONFIG", "FTBLCNC", "NO") == "YES") {
        DeleteFileIfThere(AppState.NcPath + HandOverFile);
    }
    return TakeNameAway(AppState.ProgramPath);
}
