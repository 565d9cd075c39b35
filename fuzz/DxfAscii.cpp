// ASCII drawings from any bytes: read, and where that gives no crowd of entities, imported from the disk as a part.
#include "DxfChecks.h"

#include "import/Korvanta_DxfIn.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"

#include <string>

namespace
{
constexpr std::int64_t MostImported = 300; // more entities show nothing new, and take their time

void CheckPart(bool imported)
{
    Require(AppState.ElementCount <= MaxElements);
    Require(imported || AppState.ElementCount == 0);
    Require(imported == AppState.ImportFailure.empty());
    for (std::int32_t i = 1; i <= AppState.ElementCount; ++i) {
        const ProfileElement& element = AppState.ElementTable[static_cast<std::size_t>(i)];
        Require(std::isfinite(element.StartX) && std::isfinite(element.StartY));
        Require(std::isfinite(element.EndX) && std::isfinite(element.EndY));
    }
    for (std::int32_t i = 1; i <= AppState.MarkPointCount; ++i) {
        const MarkPoint& point = AppState.MarkPoints[static_cast<std::size_t>(i)];
        Require(std::isfinite(point.X) && std::isfinite(point.Y));
    }
    Require(std::isfinite(AppState.TotalCutLength));
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::string folder = MakeFuzzFolder("dxf");
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const FuzzedDrawing seen = ReadFuzzed(bytes);
    if (seen.Records > MostImported) {
        return 0;
    }
    StartCase();
    std::string path = folder + "/PART.dxf";
    WriteBytes(path, bytes);
    const bool imported = ImportDxf(path);
    CheckPart(imported);
    if (!seen.Opened) {
        Require(!imported && !DrawingRefusal(path).empty());
    }
    path = folder + "/PART.dwg"; // never looked into
    Require(!ImportDxf(path) && !AppState.ImportFailure.empty());
    return 0;
}
