// Any bytes as a post-processor table for a part that passes through every block: a finished program, or a fault that
// leaves none. What is finished is read back, whatever it says.
#include "FuzzFiles.h"

#include "platform/Fault.h"
#include "platform/Paths.h"
#include "post/Korvanta_PostProcessor.h"
#include "post/Verification.h"
#include "profile/Korvanta_ProfileCut.h"
#include "support/RecordingScreen.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

namespace
{
std::string WorkFolder()
{
    const std::string folder = MakeFuzzFolder("templates");
    std::filesystem::create_directories(folder + "/NC");
    WriteBytes(folder + "/JOB.nst", "[0004]\nV1=TWO\nV2=7\n"); // the answers of its last save
    return folder;
}

void AddMove(std::int16_t kind, double x1, double y1, double x2, double y2, double a, double b, double c)
{
    AddElement(kind, x1, y1, a, b, c, x2, y2, 1);
}

/// A hole, an open cut and a square, with leads, a marking point and two copies.
void BuildPart()
{
    ClearPart();
    AddMove(KindArc, 15, 10, 15, 10, 10, 10, 5);
    AddMove(KindEnd, 15, 10, 15, 10, 0, 78.5, 0);
    AddMove(KindLine, 20, 5, 30, 5, 0, 1, -5);
    AddMove(KindEnd, 30, 5, 30, 5, 0, 0, 0);
    AddMove(KindLine, 0, 0, 0, 40, -1, 0, 0);
    AddMove(KindLine, 0, 40, 40, 40, 0, 1, -40);
    AddMove(KindLine, 40, 40, 40, 0, 1, 0, -40);
    AddMove(KindLine, 40, 0, 0, 0, 0, -1, 0);
    AddMove(KindOuterEnd, 0, 0, 0, 0, 0, -1600, 0);
    AppState.MarkPoints.push_back({5, 5});
    AppState.MarkPointCount = 1;
    ComputeBounds();
    MeasureProfiles(FlagOn);
    InitLeadData();
    for (ProfileRecord& record : AppState.ProfileTable) {
        record.Side = 1.0;
        record.LeadInLength = 2.0;
        record.LeadInRadius = 1.0;
        record.LeadOutLength = 1.0;
        record.LeadOutLineOn = FlagOn;
    }
    AppState.ProfileTable[2].Side = -1.0;
    AppState.NestKind = 1;
    AppState.CountX = 2;
    AppState.CountY = 1;
    AppState.PartSizeX = AppState.PartSizeY = 40.0;
}

void Prepare(const std::string& folder)
{
    StartCase();
    AppState.AppPath = folder;
    AppState.NcPath = folder + "\\NC\\";
    AppState.NestingPath = folder + "\\";
    AppState.PprIniName = "PPR.ini";
    AppState.JobName = "JOB";
    AppState.ConfigHeld = FlagOn;
    BuildPart();
}

/// True when the run ended without a fault.
bool Generate(const char* name)
{
    try {
        GenerateProgram(name);
    } catch (const RunTimeFault&) {
        return false;
    }
    return true;
}

/// The program holds what the table makes of the part: anything. Reading it back ends, and tells one outcome.
void ReadBackProgram()
{
    const Verification found = VerifyProgram();
    Require((found.Outcome == VerifyOutcome::Unreadable) == !found.Reason.empty());
    Require((found.Outcome == VerifyOutcome::Different) == (found.DifferenceCount > 0));
    Require(found.Differences.empty() == (found.DifferenceCount == 0));
    Require(found.Differences.size() <= DifferencesNamed);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::string folder = WorkFolder();
    Prepare(folder);
    WriteBytes(folder + "/PPR.ini", {reinterpret_cast<const char*>(data), size});
    const bool done = Generate("FUZZ");
    Require(done != AppState.ProgramPath.empty());
    Require(!done || FileExists(AppState.ProgramPath));
    if (done) {
        ReadBackProgram();
    }
    Generate("SIMULA");
    if (done) {
        DeleteFileIfThere(AppState.ProgramPath);
    }
    return 0;
}
