// Any bytes as the file of the shapes' drawings: the drawing of R-01 and of the shape that the first record names is
// loaded and drawn, with each parameter standing out.
#include "shapes/DimensionDrawing.h"
#include "shapes/Korvanta_Parameters.h"
#include "shapes/PictureRecords.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"
#include "support/RecordingSurface.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace
{
namespace fs = std::filesystem;

constexpr std::size_t MostItems = 2000;

void Require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

std::string MakeStation()
{
    const fs::path folder = fs::temp_directory_path() / ("korvanta_fuzz_dbg_" + std::to_string(getpid()));
    fs::create_directories(folder);
    return folder.string();
}

void CheckDrawing(std::int16_t shapeId)
{
    ShowShapeParameters(shapeId, FlagOn);
    Require(AppState.PictureItems.size() <= MostItems + 1);
    for (std::int16_t field = 0; field <= 3; ++field) {
        DrawShapePicture(Picture::Param, field);
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
    static const std::string station = MakeStation();
    const std::string path = station + "/Korvanta.DBG";
    std::remove(path.c_str());
    std::FILE* file = std::fopen(path.c_str(), "wb");
    Require(file != nullptr);
    Require(std::fwrite(data, 1, size, file) == size);
    std::fclose(file);
    StartCase();
    Drawn.Shown = true;
    AppState.AppPath = station;
    CheckDrawing(1001);
    if (size >= 2) {
        CheckDrawing(static_cast<std::int16_t>(data[0] | data[1] << 8));
    }
    return 0;
}
