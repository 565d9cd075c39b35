// The records of the shapes' drawings: their bytes, and which of a file's are taken.
#include "shapes/PictureRecords.h"

#include "profile/Strokes.h"
#include "shapes/DimensionDrawing.h"
#include "shapes/Korvanta_Parameters.h"
#include "support/RecordingScreen.h"
#include "support/RecordingSurface.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace
{
class PictureFile : public testing::Test
{
protected:
    TempFolder Station;

    void SetUp() override
    {
        StartCase();
        AppState.AppPath = Station.Path;
    }

    static PictureItem Line(std::int16_t shape, double x1)
    {
        return {shape, ItemLine, 1, x1, 2, 3, 4, 0, 0, 0, "", 0x123456};
    }

    /// A file of lines from x = 1, 2, ... of these shapes.
    static std::string Records(const std::vector<std::int16_t>& shapes)
    {
        std::string bytes;
        double x = 1;
        for (const std::int16_t shape : shapes) {
            AppendPictureRecord(bytes, Line(shape, x++));
        }
        return bytes;
    }

    static std::vector<double> LoadedX(std::int16_t shape)
    {
        LoadPictureItems(shape);
        std::vector<double> loaded;
        for (std::size_t i = 1; i < AppState.PictureItems.size(); ++i) {
            loaded.push_back(AppState.PictureItems[i].X1);
        }
        return loaded;
    }
};

TEST_F(PictureFile, EveryByteOfARecordHasItsPlace)
{
    std::string bytes;
    AppendPictureRecord(bytes, {1007, 7, 2, 1.0, -2.0, 0.5, 0.0, 100.0, 3.0, -0.25, "Ri", 0x00FF5511});
    ASSERT_EQ(bytes.size(), 76U);
    const std::string expected = std::string("\xEF\x03\x07\x00\x02\x00", 6) +         // 1007, 7, 2
                                 std::string("\x00\x00\x00\x00\x00\x00\xF0\x3F", 8) + // 1
                                 std::string("\x00\x00\x00\x00\x00\x00\x00\xC0", 8) + // -2
                                 std::string("\x00\x00\x00\x00\x00\x00\xE0\x3F", 8) + // 0.5
                                 std::string(8, '\0') +                               // 0
                                 std::string("\x00\x00\x00\x00\x00\x00\x59\x40", 8) + // 100
                                 std::string("\x00\x00\x00\x00\x00\x00\x08\x40", 8) + // 3
                                 std::string("\x00\x00\x00\x00\x00\x00\xD0\xBF", 8) + // -0.25
                                 "Ri        " + std::string("\x11\x55\xFF\x00", 4);
    EXPECT_EQ(bytes, expected);
    PictureItem item;
    ASSERT_TRUE(DecodePictureItem(bytes, item));
    EXPECT_EQ(item.Shape, 1007);
    EXPECT_EQ(item.ItemKind, 7);
    EXPECT_EQ(item.Slot, 2);
    EXPECT_EQ(item.X1, 1.0);
    EXPECT_EQ(item.Y1, -2.0);
    EXPECT_EQ(item.X2, 0.5);
    EXPECT_EQ(item.Y2, 0.0);
    EXPECT_EQ(item.V1, 100.0);
    EXPECT_EQ(item.V2, 3.0);
    EXPECT_EQ(item.V3, -0.25);
    EXPECT_EQ(item.Label, "Ri        ");
    EXPECT_EQ(item.ItemColor, 0x00FF5511U);
}

TEST_F(PictureFile, RecordsOfOtherLengthsAndNumbersThatNoDrawingHasAreRefused)
{
    std::string bytes;
    AppendPictureRecord(bytes, Line(1001, 1));
    PictureItem item;
    EXPECT_FALSE(DecodePictureItem(bytes.substr(1), item));
    EXPECT_FALSE(DecodePictureItem(bytes + "x", item));
    for (const double bad : {std::nan(""), std::numeric_limits<double>::infinity(), -1e10, 1e300}) {
        std::string broken;
        AppendPictureRecord(broken, Line(1001, bad));
        EXPECT_FALSE(DecodePictureItem(broken, item)) << bad;
    }
}

TEST_F(PictureFile, HoldsTheItemsOfTheShapeInItsOrder)
{
    Station.Write("Korvanta.DBG", Records({1001, 1002, 1001, 2001, 1001}));
    EXPECT_EQ(LoadedX(1001), (std::vector<double>{1, 3, 5}));
    EXPECT_EQ(AppState.PictureItems[1].ItemColor, ColourCgaLightBlue) << "whatever the file says";
    EXPECT_EQ(LoadedX(2001), std::vector<double>{4});
    EXPECT_EQ(LoadedX(1003), std::vector<double>{});
    EXPECT_EQ(LoadedX(0), std::vector<double>{});
    EXPECT_EQ(LoadedX(-1), std::vector<double>{});
}

TEST_F(PictureFile, IsNamedAfterTheProgram)
{
    AppState.ProgramName = "Cutter";
    Station.Write("Korvanta.DBG", Records({1001}));
    EXPECT_EQ(LoadedX(1001), std::vector<double>{});
    Station.Write("CUTTER.dbg", Records({1001}));
    EXPECT_EQ(LoadedX(1001), std::vector<double>{1});
}

TEST_F(PictureFile, ATornLastRecordIsDropped)
{
    const std::string two = Records({1001, 1001});
    for (const std::size_t length : {77U, 114U, 115U, 151U}) { // 1.01 to 1.99 records
        Station.Write("Korvanta.DBG", two.substr(0, length));
        EXPECT_EQ(LoadedX(1001), std::vector<double>{1}) << length;
    }
    Station.Write("Korvanta.DBG", two.substr(0, 75));
    EXPECT_EQ(LoadedX(1001), std::vector<double>{});
}

TEST_F(PictureFile, WithoutAFileTheParametersWorkAndNothingIsSaid)
{
    Drawn.Shown = true;
    ShowShapeParameters(1005, FlagOn);
    EXPECT_EQ(AppState.PictureItems.size(), 1U);
    EXPECT_EQ(AppState.ParamText[0].Text, "300");
    EXPECT_EQ(AppState.ParamText[3].Visible, FlagOn);
    EXPECT_EQ(TakeStrokes(), (std::vector<std::string>{"clear", "font 13"})) << "an empty picture";
    EXPECT_TRUE(Screen.Calls.empty()) << "no message";
}

TEST_F(PictureFile, AnyBytesAreSurvived)
{
    Drawn.Shown = true;
    std::mt19937 random(48);
    for (int round = 0; round < 300; ++round) {
        std::string bytes = Records({1001, 1001, 1001, 1001});
        for (int i = 0; i < 40; ++i) {
            const std::size_t at = random() % bytes.size();
            if (at % PictureRecordLength > 1) { // the shape stays
                bytes[at] = static_cast<char>(random());
            }
        }
        Station.Write("Korvanta.DBG", bytes);
        ShowShapeParameters(1001, FlagOn);
        for (const std::string& stroke : TakeStrokes()) {
            ASSERT_EQ(stroke.find("nan"), std::string::npos) << stroke;
            ASSERT_EQ(stroke.find("inf"), std::string::npos) << stroke;
        }
    }
}

TEST_F(PictureFile, MoreItemsThanADrawingHasAreLeft)
{
    Station.Write("Korvanta.DBG", Records(std::vector<std::int16_t>(5000, 1001)));
    EXPECT_EQ(LoadedX(1001).size(), 2000U);
}

TEST_F(PictureFile, FourShapesHaveTheirItemsFromTheProgram)
{
    Station.Write("Korvanta.DBG", Records({1040, 1041, 2025, 2026, 1039}));
    for (const std::int16_t shape : std::initializer_list<std::int16_t>{1040, 1041, 2025, 2026}) {
        LoadPictureItems(shape);
        EXPECT_GT(AppState.PictureItems.size(), 8U) << shape;
        for (std::size_t i = 1; i < AppState.PictureItems.size(); ++i) {
            const PictureItem& item = AppState.PictureItems[i];
            EXPECT_EQ(item.Shape, shape);
            EXPECT_EQ(item.Slot, 1);
            EXPECT_EQ(item.ItemColor, ColourCgaLightBlue);
            EXPECT_FALSE(item.X1 == 5 && item.Y1 == 2) << "read from the file";
        }
    }
    EXPECT_EQ(LoadedX(1039), std::vector<double>{5});
}
} // namespace
