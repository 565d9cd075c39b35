// Any bytes as the text of a job that has a geometry: opened, walked through to the Nesting screen, and its text saved again
// in a form that stays what it is. The first byte chooses whether the geometry is there.
#include "JobFolder.h"
#include "jobfiles/JobFiles.h"
#include "platform/Fault.h"
#include "platform/TextFile.h"
#include "profile/Korvanta_ProfileCut.h"

#include <cmath>
#include <cstdint>

namespace
{
/// A square of four lines.
void WriteGeometry()
{
    ClearPart();
    const double corners[][2] = {{0, 0}, {0, 100}, {100, 100}, {100, 0}, {0, 0}};
    for (int i = 0; i < 4; ++i) {
        AddElement(KindLine, corners[i][0], corners[i][1], 0, 0, 0, corners[i + 1][0], corners[i + 1][1], 1);
    }
    AddElement(KindOuterEnd, 0, 0, 0, -10000, 0, 0, 0, 0);
    MeasureProfiles(FlagOn);
    InitLeadData();
    WriteDrawingElements("PART.nst");
    WriteDrawingProfiles("PART.nst");
}

std::string SavedText()
{
    WriteJobHeader("OUT.nst");
    WriteCuttingSection("OUT.nst");
    WriteNestingSection("OUT.nst");
    WritePostInputSection("OUT.nst");
    PutJobText("OUT.nst");
    std::string text;
    Require(ReadWholeFile(AppState.NestingPath + "OUT.nst", text));
    return text;
}

void OpenAndWalk(const char* name)
{
    try {
        OpenSavedJob(name);
        Require(AppState.ScreenState == ScreenParameters);
        Require(std::isfinite(AppState.TotalCutLength));
        const std::string once = SavedText();
        LoadJob("OUT");
        Require(SavedText() == once);
        NextCamTab();
        NextCamTab();
    } catch (const ProcessEnded& ended) {
        Require(ended.Status != 0); // another format
    } catch (const RunTimeFault&) { // a nest of copies on each other, a sheet without an end
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::string station = MakeJobStation("job_text");
    if (size == 0) {
        return 0;
    }
    StartJobStation(station);
    static bool once = (WriteGeometry(), true);
    Require(once);
    const char* const name = data[0] % 2 == 0 ? "PART" : "ALONE";
    WriteBytes(station + "/NEST/" + name + ".nst", {reinterpret_cast<const char*>(data) + 1, size - 1});
    OpenAndWalk(name);
    return 0;
}
