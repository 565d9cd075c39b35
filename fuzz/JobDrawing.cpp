// Any bytes as the geometry of a job: opened, walked through, its program written, and the job saved again. What was taken
// comes back the same.
#include "JobFolder.h"
#include "jobfiles/JobFiles.h"
#include "platform/Fault.h"
#include "platform/TextFile.h"

#include <cmath>
#include <cstdint>

namespace
{
std::string SavedDrawing()
{
    WriteDrawingElements("OUT.nst");
    WriteDrawingProfiles("OUT.nst");
    std::string bytes;
    Require(ReadWholeFile(AppState.NestingPath + "DATA\\OUT.drw", bytes));
    return bytes;
}

void CheckRoundTrip(const std::string& station)
{
    std::remove((station + "/NEST/DATA/OUT.drw").c_str());
    const std::string once = SavedDrawing();
    const std::int32_t elements = AppState.ElementCount;
    const std::int32_t profiles = AppState.ProfileCount;
    LoadJob("OUT");
    Require(AppState.ElementCount == elements && AppState.ProfileCount == profiles);
    Require(SavedDrawing() == once);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::string station = MakeJobStation("job_drawing");
    constexpr std::string_view Text = "[0000]\nVL=3.00\n[0002]\nV0=30\nV1=1\nV2=1\nV4=2\n"
                                      "[0003]\nV0=300\nV1=200\nV2=0\nV3=1\nV4=1\nV5=3\nV6=15\nV7=1\n";
    StartJobStation(station);
    WriteBytes(station + "/NEST/PART.nst", Text);
    WriteBytes(station + "/NEST/OUT.nst", Text);
    WriteBytes(station + "/NEST/DATA/PART.drw", {reinterpret_cast<const char*>(data), size});
    try {
        OpenSavedJob("PART");
        Require(AppState.ElementCount >= 0 && AppState.ElementCount <= MaxElements);
        Require(AppState.ProfileCount >= 0 && AppState.ProfileCount <= MaxElements);
        CheckRoundTrip(station);
        OpenSavedJob("PART");
        NextCamTab();
        NextCamTab();
        if (std::int64_t{AppState.CountX} * AppState.CountY < 1000) {
            SaveJob("OUT");
        }
    } catch (const RunTimeFault&) { // coordinates that no program can hold, copies on each other
    }
    return 0;
}
