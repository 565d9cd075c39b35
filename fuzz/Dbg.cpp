// Any bytes as the file of the shapes' drawings: the drawing of R-01 and of the shape that the first record names is
// loaded and drawn, with each parameter standing out. A record that is taken is written as it was.
#include "FuzzFiles.h"

#include "shapes/DimensionDrawing.h"
#include "shapes/Korvanta_Parameters.h"
#include "shapes/PictureRecords.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"
#include "support/RecordingSurface.h"

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

namespace
{
constexpr std::size_t MostItems = 2000;

void CheckRecord(std::string_view record)
{
    PictureItem item;
    if (DecodePictureItem(record, item)) {
        std::string again;
        AppendPictureRecord(again, item);
        Require(again == record);
    }
}

void CheckDrawing(std::int16_t shapeId)
{
    ShowShapeParameters(shapeId, FlagOn);
    Require(AppState.PictureItems.size() <= MostItems + 1);
    for (std::int16_t field = 0; field <= 3; ++field) {
        HighlightParameter(field);
    }
    Require(std::isfinite(AppState.ViewLeft) && std::isfinite(AppState.ViewTop));
    Require(std::isfinite(AppState.ViewWidth) && std::isfinite(AppState.ViewHeight));
    for (const std::string& stroke : TakeStrokes()) {
        Require(stroke.find("'") != std::string::npos ||
                (stroke.find("nan") == std::string::npos && stroke.find("inf") == std::string::npos));
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::string station = MakeFuzzFolder("dbg");
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    WriteBytes(station + "/Korvanta.DBG", bytes);
    CheckRecord(bytes.substr(0, PictureRecordLength));
    StartCase();
    Drawn.Shown = true;
    AppState.AppPath = station;
    CheckDrawing(1001);
    if (size >= 2) {
        CheckDrawing(static_cast<std::int16_t>(data[0] | data[1] << 8));
    }
    return 0;
}
