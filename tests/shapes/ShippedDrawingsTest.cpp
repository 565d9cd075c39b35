// The drawings that the station is shipped with, as the build makes them: all parameters of all shapes, and their strokes
// against tests/golden/drawings. KORVANTA_REWRITE_GOLDEN=1 in the environment writes those anew; look at the drawings
// (docs/drawings_sheet.sh) before you commit them.
#include "shapes/DimensionDrawing.h"
#include "shapes/Korvanta_Parameters.h"
#include "shapes/PictureRecords.h"
#include "shell/MsgBox_Unicode.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"
#include "support/RecordingSurface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>
#include <ostream>
#include <sstream>
#include <string>

/// The name of a case's shape in its title.
static void PrintTo(const ShapeRow& row, std::ostream* out)
{
    *out << row.Name;
}

namespace
{
std::string ReadText(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

class ShippedDrawing : public testing::TestWithParam<ShapeRow>
{
protected:
    void SetUp() override
    {
        StartCase();
        ReadCatalogue(ReadText(KORVANTA_SOURCE_DIR "/station/Korvanta_MSG.TXT"));
        AppState.AppPath = KORVANTA_BINARY_DIR;
        Drawn.Shown = true;
        ShowShapeParameters(GetParam().ShapeId, FlagOn);
    }
};

TEST_P(ShippedDrawing, EachParameterHasOneDimension)
{
    std::map<std::string, int> dimensions;
    int outline = 0;
    for (std::size_t i = 1; i < AppState.PictureItems.size(); ++i) {
        const PictureItem& item = AppState.PictureItems[i];
        EXPECT_EQ(item.Shape, GetParam().ShapeId);
        EXPECT_EQ(item.Slot, 1);
        outline += item.ItemKind == ItemLine || item.ItemKind == ItemArc ? 1 : 0;
        if (item.ItemKind == ItemDimension) {
            ++dimensions[item.Label.substr(0, item.Label.find_last_not_of(' ') + 1)];
        }
    }
    EXPECT_GT(outline, 0);
    const int count = ParameterCount(GetParam());
    for (int i = 0; i < count; ++i) {
        EXPECT_EQ(dimensions[ParameterCaption(GetParam().Parameters[i].Letter)], 1)
            << GetParam().Parameters[i].Letter;
    }
    EXPECT_EQ(dimensions.size(), static_cast<std::size_t>(count));
}

TEST_P(ShippedDrawing, EachFieldMakesItsOwnLetterStandOut)
{
    TakeStrokes();
    for (int i = 0; i < ParameterCount(GetParam()); ++i) {
        HighlightParameter(static_cast<std::int16_t>(i + 1));
        const std::string letter = "'" + ParameterCaption(GetParam().Parameters[i].Letter) + "' #";
        int red = 0;
        for (const std::string& stroke : TakeStrokesLike("text")) {
            const bool own = stroke.find(letter) != std::string::npos;
            red += own ? 1 : 0;
            EXPECT_EQ(stroke.ends_with("#ff0000"), own) << stroke;
        }
        EXPECT_EQ(red, 1) << letter;
    }
}

TEST_P(ShippedDrawing, Strokes)
{
    const std::string path =
        KORVANTA_SOURCE_DIR "/tests/golden/drawings/" + std::string(GetParam().Name) + ".txt";
    std::string text;
    for (const std::string& stroke : TakeStrokes()) {
        text += stroke + "\n";
    }
    if (std::getenv("KORVANTA_REWRITE_GOLDEN") != nullptr) {
        std::ofstream(path, std::ios::binary) << text;
    }
    EXPECT_EQ(text, ReadText(path));
}

INSTANTIATE_TEST_SUITE_P(Shapes, ShippedDrawing,
                         testing::ValuesIn(ShapeCatalogue().begin(), ShapeCatalogue().end()),
                         [](const testing::TestParamInfo<ShapeRow>& shape) {
                             std::string name = shape.param.Name;
                             std::replace(name.begin(), name.end(), '-', '_');
                             return name;
                         });

TEST(ShippedDrawings, TheFileHoldsWholeRecordsOfTheOtherSixtySixShapes)
{
    const std::string bytes = ReadText(KORVANTA_BINARY_DIR "/Korvanta.DBG");
    ASSERT_EQ(bytes.size() % PictureRecordLength, 0U);
    std::map<std::int16_t, int> items;
    for (std::size_t at = 0; at < bytes.size(); at += PictureRecordLength) {
        PictureItem item;
        ASSERT_TRUE(DecodePictureItem(std::string_view(bytes).substr(at, PictureRecordLength), item));
        ++items[item.Shape];
    }
    EXPECT_EQ(items.size(), 66U);
    for (const std::int16_t made : std::initializer_list<std::int16_t>{1040, 1041, 2025, 2026}) {
        EXPECT_EQ(items.count(made), 0U);
    }
}
} // namespace
