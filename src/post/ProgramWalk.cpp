// Stage 4 of a program run: the walk over copies, profiles and moves, and the vectors that it hands the writers.
#include "post/Korvanta_PostProcessor.h"

#include "config/Korvanta_Configuration.h"
#include "config/Korvanta_Utility.h"
#include "geometry/Orbalib.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "platform/Fault.h"
#include "platform/ProfileStrings.h"
#include "platform/Screen.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shell/ValueFields.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace
{
constexpr std::string_view ConfigSection = "PartProgram_CONFIG";
constexpr double BoundsStart = 1e37; ///< limits of a copy without a move stay there

/// Values of Walk::SubMode.
constexpr std::int16_t SubNone = 0;
constexpr std::int16_t SubPart = 1;    ///< one sub-program for the part
constexpr std::int16_t SubProfile = 2; ///< one for each profile

/// What one run of the generator carries from block to block.
struct Walk {
    std::int16_t File = FileNone;
    std::int16_t SubMode = SubNone;
    bool IncSub = false;    ///< coordinates inside sub-programs are incremental
    bool Before = false;    ///< sub-programs also stand ahead of the main program
    bool IncCentre = false; ///< arc centres stand relative to the arc's start
    double OriginX = 0.0;
    double OriginY = 0.0;
    double CopyX = 0.0;
    double CopyY = 0.0;
    double LastX = 0.0;
    double LastY = 0.0;
    std::int64_t CopyNr = 0;
    std::int32_t SubNr = 0;
    std::int64_t Progress = 0;
    std::vector<CutMove> Moves; ///< of the profile at hand; kept for its storage
    std::string Vector;         ///< of the block at hand; kept for its storage
};

/// Low and high corner of one copy, without its position.
struct Bounds {
    double LowX = BoundsStart;
    double LowY = BoundsStart;
    double HighX = -BoundsStart;
    double HighY = -BoundsStart;

    void Add(double x, double y)
    {
        LowX = std::min(LowX, x);
        LowY = std::min(LowY, y);
        HighX = std::max(HighX, x);
        HighY = std::max(HighY, y);
    }
};

/// Closes what a fault leaves behind: the program stays ".part".
struct RunGuard {
    RunGuard()
    {
        BeginSteadyReads();
    }
    ~RunGuard()
    {
        EndSteadyReads();
        AbandonText(ProgramFile);
    }
    RunGuard(const RunGuard&) = delete;
    RunGuard& operator=(const RunGuard&) = delete;
};

/// Marks the walk of a simulation as long as it is on the stack, however it ends.
struct WalkGuard {
    WalkGuard()
    {
        AppState.SimWalking = FlagOn;
    }
    ~WalkGuard()
    {
        AppState.SimWalking = FlagOff;
        AppState.SimRunning = FlagOff;
        AppState.SimHeadShown = FlagOff;
    }
    WalkGuard(const WalkGuard&) = delete;
    WalkGuard& operator=(const WalkGuard&) = delete;
};

bool IsYes(std::string_view key, std::string_view defaultValue)
{
    return FindPprValue(ConfigSection, key, defaultValue) == "YES";
}

bool StopAsked(const Walk& walk)
{
    return walk.File == FileNone && AppState.SimStop != FlagOff;
}

// --- vectors ----------------------------------------------------------------------------------------------

void AppendCoordinate(std::string& vector, double value)
{
    if (!std::isfinite(value)) {
        throw RunTimeFault("A coordinate of the program is not a number");
    }
    AppendNumber(vector, value, 1, -3);
}

void AppendPoint(std::string& vector, double x, double y)
{
    AppendCoordinate(vector, x);
    vector += ", ";
    AppendCoordinate(vector, y);
}

void AppendInteger(std::string& vector, std::int64_t value)
{
    char text[24];
    vector.append(text, std::to_chars(text, text + sizeof text, value).ptr);
}

/// Number of a profile counted through all copies.
std::int64_t RunningNumber(const Walk& walk, std::int32_t profile)
{
    return (walk.CopyNr - 1) * AppState.ProfileCount + profile;
}

/// ", side, running number, profile, copy": the tail that cuts and calls share, in either order.
void AppendCounters(std::string& vector, std::initializer_list<std::int64_t> counters)
{
    for (const std::int64_t counter : counters) {
        vector += ", ";
        AppendInteger(vector, counter);
    }
}

void FormStartCut(Walk& walk, std::int32_t profile, std::int16_t side, double x, double y)
{
    std::string& vector = walk.Vector;
    if (walk.IncSub && (profile == 1 || walk.SubMode == SubProfile)) {
        vector =
            "INITTAG, NO_RAPID, 0 "; // no comma: the call itself brings the head there, and no field is the side
        AppendInteger(vector, side);
        return;
    }
    vector = "INITTAG, ";
    if (walk.IncSub) {
        AppendPoint(vector, x - walk.LastX, y - walk.LastY);
        AppendCounters(vector, {side});
        return;
    }
    AppendPoint(vector, x, y);
    AppendCounters(vector, {side, RunningNumber(walk, profile), profile, walk.CopyNr});
}

/// TAGLIN or TAGCIRC of the move from `from` to `to`.
void FormMove(Walk& walk, const CutMove& from, const CutMove& to, std::int16_t side)
{
    const double baseX = walk.IncSub ? walk.LastX : 0.0;
    const double baseY = walk.IncSub ? walk.LastY : 0.0;
    std::string& vector = walk.Vector;
    vector = from.Kind == KindLine ? "TAGLIN, " : "TAGCIRC, ";
    AppendPoint(vector, walk.CopyX + from.X - baseX, walk.CopyY + from.Y - baseY);
    vector += ", ";
    AppendPoint(vector, walk.CopyX + to.X - baseX, walk.CopyY + to.Y - baseY);
    if (from.Kind == KindArc) {
        vector += ", ";
        AppendPoint(vector, from.CentreX + (walk.IncCentre ? -from.X : walk.CopyX),
                    from.CentreY + (walk.IncCentre ? -from.Y : walk.CopyY));
        vector += ", ";
        AppendCoordinate(vector, from.Radius);
    }
    vector += ',';
    AppendInteger(vector, side);
}

// --- one copy ---------------------------------------------------------------------------------------------

bool IsMove(const CutMove& record)
{
    return record.Kind == KindLine || record.Kind == KindArc;
}

/// Grows the bounds by the moves of a list, leads included.
void AddMoves(Bounds& bounds, const std::vector<CutMove>& moves)
{
    for (std::size_t j = 1; j + 1 < moves.size(); ++j) {
        const CutMove& from = moves[j];
        const CutMove& to = moves[j + 1];
        if (from.Kind == KindLine) {
            bounds.Add(from.X, from.Y);
            bounds.Add(to.X, to.Y);
        } else if (from.Kind == KindArc) {
            double xmax = 0.0;
            double ymax = 0.0;
            double xmin = 0.0;
            double ymin = 0.0;
            Quadra_Arco(from.X, from.Y, to.X, to.Y, from.CentreX, from.CentreY, from.Radius, xmax, ymax, xmin,
                        ymin);
            bounds.Add(xmin, ymin);
            bounds.Add(xmax, ymax);
        }
    }
}

void WriteMarkPoints(Walk& walk)
{
    if (AppState.MarkPointCount < 1) {
        return;
    }
    WriteStartPoint(walk.File, "INIPOINT");
    for (std::int32_t i = 1; i <= AppState.MarkPointCount; ++i) {
        const MarkPoint& point = AppState.MarkPoints[static_cast<std::size_t>(i)];
        walk.Vector = "POINT, ";
        AppendPoint(walk.Vector, walk.CopyX + point.X, walk.CopyY + point.Y);
        WritePoint(walk.File, walk.Vector);
    }
    WriteEndPoint(walk.File, "ENDPOINT");
}

/// The moves of the list at hand, with the seams between lead-in, profile and lead-out.
void WriteMoves(Walk& walk, std::int16_t side)
{
    std::int16_t phase = PhaseLeadIn;
    for (std::size_t j = 1; j + 1 < walk.Moves.size() && !StopAsked(walk); ++j) {
        const CutMove& from = walk.Moves[j];
        const CutMove& to = walk.Moves[j + 1];
        if (from.Mark == MarkFlyOff) {
            WriteFlyOff(walk.File);
        }
        if (!IsMove(from)) {
            continue;
        }
        FormMove(walk, from, to, side);
        if (from.Phase != phase) {
            if (phase == PhaseLeadIn) {
                WriteEndLeadIn(walk.File);
            } else {
                WriteEndProfileCut(walk.File);
            }
            phase = from.Phase;
        }
        if (from.Kind == KindLine) {
            WriteLinear(walk.File, walk.Vector);
        } else {
            WriteCircular(walk.File, walk.Vector);
        }
        walk.LastX = walk.CopyX + to.X;
        walk.LastY = walk.CopyY + to.Y;
    }
}

void WriteProfile(Walk& walk, std::int32_t profile, Bounds& bounds)
{
    std::int16_t side = 0;
    BuildCutMoves(walk.Moves, profile, side, TextToNumber(FindPprValue(ConfigSection, "FLYOFFDIM", "0")));
    if (walk.Moves.size() < 2) {
        return; // no record: nothing to cut
    }
    AddMoves(bounds, walk.Moves);
    AppState.ProgramMaxX = std::max(AppState.ProgramMaxX, bounds.HighX + walk.CopyX);
    AppState.ProgramMaxY = std::max(AppState.ProgramMaxY, bounds.HighY + walk.CopyY);

    const double firstX = walk.CopyX + walk.Moves[1].X;
    const double firstY = walk.CopyY + walk.Moves[1].Y;
    FormStartCut(walk, profile, side, firstX, firstY);
    WriteStartCut(walk.File, walk.Vector);
    walk.LastX = firstX;
    walk.LastY = firstY;
    WriteMoves(walk, side);

    walk.Vector = "FINETAG,1,";
    AppendInteger(walk.Vector, side);
    AppendCounters(walk.Vector, {RunningNumber(walk, profile), profile, walk.CopyNr});
    WriteEndCut(walk.File, walk.Vector);
}

void BeginSubProgram(Walk& walk)
{
    walk.Vector = "INI_SUB,0,0,";
    AppendInteger(walk.Vector, walk.SubNr);
    WriteSubBegin(walk.File, walk.Vector);
}

/// The end of a part copy: its limits and the list of its cuts.
void EndCopy(Walk& walk, const Bounds& bounds)
{
    std::string& vector = walk.Vector;
    vector = "ENDPART,";
    AppendInteger(vector, walk.CopyNr);
    for (const double limit : {bounds.LowX + walk.CopyX, bounds.LowY + walk.CopyY, bounds.HighX + walk.CopyX,
                               bounds.HighY + walk.CopyY}) {
        vector += ',';
        AppendCoordinate(vector, limit);
    }
    AppState.TracksList.clear();
    for (std::int32_t i = 1; i <= AppState.ProfileCount; ++i) {
        if (i > 1) {
            AppState.TracksList += ',';
        }
        AppendInteger(AppState.TracksList, RunningNumber(walk, i));
    }
    WritePartEnd(walk.File, vector);
}

void AdvanceProgress(Walk& walk)
{
    if (walk.File != FileNone) {
        ++walk.Progress;
        SetProgress(static_cast<std::int32_t>(
            std::min<std::int64_t>(walk.Progress, std::numeric_limits<std::int32_t>::max())));
    }
}

/// One copy of the part, or one pass of its sub-programs.
void WriteCopy(Walk& walk)
{
    walk.SubNr = 0;
    if (walk.SubMode == SubPart) {
        BeginSubProgram(walk);
    } else if (walk.SubMode == SubNone) {
        walk.Vector = "INIPART,";
        AppendInteger(walk.Vector, walk.CopyNr);
        WritePartHead(walk.File, walk.Vector);
    }
    WriteMarkPoints(walk);
    Bounds bounds;
    for (std::int32_t i = 1; i <= AppState.ProfileCount && !StopAsked(walk); ++i) {
        if (walk.SubMode == SubProfile) {
            BeginSubProgram(walk);
        }
        WriteProfile(walk, i, bounds);
        if (walk.SubMode == SubProfile) {
            WriteSubEnd(walk.File, "END_SUB");
            ++walk.SubNr;
        }
    }
    if (walk.SubMode == SubPart) {
        WriteSubEnd(walk.File, "END_SUB");
        return;
    }
    EndCopy(walk, bounds);
    AdvanceProgress(walk);
}

/// The calls of one copy. Its position falls by the low corner of the leads.
void WriteCalls(Walk& walk)
{
    walk.CopyX -= AppState.ProgramMinX;
    walk.CopyY -= AppState.ProgramMinY;
    walk.SubNr = 0;
    for (std::int32_t k = 1; k <= AppState.ProfileCount; ++k) {
        std::int16_t side = 0;
        BuildCutMoves(walk.Moves, k, side, 0.0);
        if (k == 1) {
            walk.Vector = "SUB_HEAD,";
            AppendInteger(walk.Vector, walk.CopyNr);
            WriteCallHead(walk.File, walk.Vector);
        }
        const CutMove first = walk.Moves.size() > 1 ? walk.Moves[1] : CutMove();
        walk.Vector = "SUB_CALL,";
        AppendPoint(walk.Vector, walk.CopyX + first.X, walk.CopyY + first.Y);
        AppendCounters(walk.Vector, {side, walk.CopyNr, walk.SubNr, k, RunningNumber(walk, k)});
        WriteCall(walk.File, walk.Vector);
        if (walk.SubMode == SubPart) {
            break;
        }
        ++walk.SubNr;
    }
    AdvanceProgress(walk);
}

// --- the run ------------------------------------------------------------------------------------------------

void FindLowCorner()
{
    AppState.ProgramMinX = 0.0;
    AppState.ProgramMinY = 0.0;
    for (std::int32_t i = 1; i <= AppState.ProfileCount; ++i) {
        LeadRecordArray leads{};
        BuildLeads(leads, i);
        for (const CutMove& lead : leads) {
            if (IsMove(lead)) {
                AppState.ProgramMinX = std::min(AppState.ProgramMinX, lead.X);
                AppState.ProgramMinY = std::min(AppState.ProgramMinY, lead.Y);
            }
        }
    }
}

/// Opens the file and reads how the table wants sub-programs and centres.
void OpenProgram(Walk& walk, const std::string& name, OldFile old)
{
    NormalisePath(AppState.NcPath);
    AppState.OutputName = ProgramFileName(name);
    if (AppState.OutputName.empty()) {
        throw RunTimeFault("A program needs a name, \"" + name + "\" is none");
    }
    OpenText(ProgramFile, AppState.NcPath + AppState.OutputName, old);
    walk.File = FileProgram;
    if (IsYes("SUBPROGRAMS", "NO")) {
        walk.SubMode = IsYes("SUBPROGRAMSBYPROFILE", "NO") ? SubProfile : SubPart;
        walk.IncSub = IsYes("INC_SUBPROGRAM", "YES");
        walk.Before = IsYes("BEFORESUBPROGRAMS", "NO");
    }
    walk.IncCentre = ReadIncrementalCentre();
    const std::int64_t copies = std::int64_t{AppState.CountX} * AppState.CountY;
    ShowProgress(static_cast<std::int32_t>(
        std::clamp<std::int64_t>(copies, 0, std::numeric_limits<std::int32_t>::max())));
}

void BeginSimulation()
{
    AppState.ProgramMinX = 0.0;
    AppState.ProgramMinY = 0.0;
    RedrawScene(FlagOff);
}

bool VisitCopy(double copyX, double copyY, void* context)
{
    Walk& walk = *static_cast<Walk*>(context);
    walk.CopyX = copyX;
    walk.CopyY = copyY;
    ++walk.CopyNr;
    if (walk.SubMode != SubNone) {
        WriteCalls(walk);
    } else {
        WriteCopy(walk);
    }
    return !StopAsked(walk);
}

void WriteSubPrograms(Walk& walk)
{
    walk.CopyX = 0.0;
    walk.CopyY = 0.0;
    WriteCopy(walk);
}

void WalkProgram(Walk& walk)
{
    WriteProgramBegin(walk.File);
    if (walk.SubMode != SubNone && walk.Before) {
        WriteSubPrograms(walk);
    }
    WriteMainBegin(walk.File, "INI_PROG");
    walk.CopyNr = 0;
    WalkCopies(walk.OriginX, walk.OriginY, &VisitCopy, &walk);
    WriteMainEnd(walk.File, "INI_PROG");
    if (walk.SubMode != SubNone) {
        if (!walk.Before) {
            WriteSubPrograms(walk);
        }
        WriteSubPrograms(walk); // they stand there twice; the controls in service expect it
    }
    WriteProgramEnd(walk.File, "END_PROG");
}
} // namespace

void ProgramOrigin(double& x, double& y)
{
    if (AppState.PathOriginSet != FlagOff) {
        x = -AppState.PathOriginX;
        y = -AppState.PathOriginY;
        return;
    }
    const double edge = FieldNumber(AppState.TextNesting[FieldKerf]);
    x = edge + FieldNumber(AppState.TextNesting[FieldGapX]) / 2.0;
    y = edge + FieldNumber(AppState.TextNesting[FieldGapY]) / 2.0;
}

std::string ProgramFileName(const std::string& name)
{
    const std::string base = BaseName(name.substr(name.find_last_of('/') + 1), ".");
    const std::string extension = Trim(ReadPprValue(ConfigSection, "FILE_EXTENSION", ""));
    return extension.empty() ? base : base + "." + extension;
}

void GenerateProgram(const std::string& name, OldFile old)
{
    if (AppState.SimWalking != FlagOff) {
        throw RunTimeFault("A program was started in the middle of a simulation");
    }
    const RunGuard guard;
    Walk walk;
    ProgramOrigin(walk.OriginX, walk.OriginY);
    FindLowCorner();
    if (name == SimulationName) {
        const WalkGuard walking;
        BeginSimulation();
        WalkProgram(walk);
        return;
    }
    AppState.ProgramPath.clear();
    AppState.ProgramLines = 0;
    AppState.ProgramCopies = 0;
    AppState.ProgramSum = 0;
    OpenProgram(walk, name, old);
    WalkProgram(walk);
    CloseText(ProgramFile);
    AppState.ProgramPath = AppState.NcPath + AppState.OutputName;
    AppState.ProgramCopies = walk.CopyNr;
    AppState.ProgramSum = ProgramFile.Sum;
    if (ReadConfig("CONFIG", "FTBLCNC", "NO") == "YES") {
        WriteWholeText(AppState.NcPath + HandOverFile, UpperCase(AppState.OutputName) + "\r\n");
    }
    HideProgress();
}
