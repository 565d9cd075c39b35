// The dimensioned drawing: fit of the view, dimension lines, arrows, letters, marks, and what stands out.
#include "shapes/DimensionDrawing.h"

#include "profile/Strokes.h"
#include "shapes/Korvanta_Parameters.h"
#include "support/RecordingScreen.h"
#include "support/RecordingSurface.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace
{
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

/// A picture of 640 by 480 in which a unit is a pixel: barbs of 6, marks of 3.2, extension lines 3 off.
class DimensionDrawing : public testing::Test
{
protected:
    void SetUp() override
    {
        StartCase();
        Drawn.Shown = true;
        AppState.UnitsPerPixelX = 1.0;
        AppState.UnitsPerPixelY = -1.0;
        AppState.ViewWidth = 640.0;
        AppState.ViewHeight = -480.0;
    }

    static PictureItem Item(std::int16_t kind, std::vector<double> v, const char* label = "")
    {
        v.resize(7);
        return {1001, kind, 1, v[0], v[1], v[2], v[3], v[4], v[5], v[6], label, ColourCgaLightBlue};
    }

    static void Add(const PictureItem& item)
    {
        AppState.PictureItems.push_back(item);
    }

    static std::vector<std::string> Dimension(const std::vector<double>& v, const char* label = "A       ",
                                              bool highlighted = false)
    {
        TakeStrokes();
        DrawItemDimension(Picture::Param, Item(ItemDimension, v, label), highlighted);
        return TakeStrokes();
    }
};

// --- the view -----------------------------------------------------------------------------------------------

TEST_F(DimensionDrawing, WithoutItemsTheScaleStays)
{
    FitPictureScale(Picture::Param);
    EXPECT_THAT(TakeStrokes(), ElementsAre());
    EXPECT_EQ(AppState.ViewWidth, 640.0);
    Add(Item(ItemFill, {500, 500}));
    Add(Item(ItemLetter, {900, 900}, "A"));
    FitPictureScale(Picture::Param);
    EXPECT_THAT(TakeStrokes(), ElementsAre()) << "neither have letters and seeds a size";
    DrawShapePicture(Picture::Param, 0);
    EXPECT_THAT(TakeStrokesLike("scale"), ElementsAre());
}

TEST_F(DimensionDrawing, TheBoxStandsInTheMiddleWithAFifthFree)
{
    Add(Item(ItemLine, {10, 20, 110, 20}));
    Add(Item(ItemLine, {10, 20, 10, 220}));
    FitPictureScale(Picture::Param);
    // 100 by 200 about (60, 120): 280 high with what is left free, so a pixel is 280 / 480, and 640 of them are 373.333.
    EXPECT_THAT(TakeStrokes(), ElementsAre("scale -126.667 260 373.333 -280"));
    EXPECT_NEAR(AppState.UnitsPerPixelX, 280.0 / 480.0, 1e-12);
    EXPECT_NEAR(AppState.UnitsPerPixelY, -280.0 / 480.0, 1e-12);
    Add(Item(ItemLine, {10, 20, 510, 20}));
    FitPictureScale(Picture::Param);
    // 500 by 200 about (260, 120): 700 wide decide, 525 high.
    EXPECT_THAT(TakeStrokes(), ElementsAre("scale -90 382.5 700 -525"));
}

TEST_F(DimensionDrawing, ArcsAndDimensionPointsCountForTheBox)
{
    Add(Item(ItemArc, {100, 0, -100, 0, 0, 0, 100})); // the upper half: 200 by 100
    FitPictureScale(Picture::Param);
    EXPECT_THAT(TakeStrokes(), ElementsAre("scale -140 155 280 -210"));
    Add(Item(ItemDimension, {0, 0, 0, 100, 500, 0, 0}, "A")); // its line stands at x = 500
    FitPictureScale(Picture::Param);
    EXPECT_THAT(TakeStrokes(), ElementsAre("scale -220 365 840 -630")); // 600 by 100 about (200, 50)
    AppState.PictureItems.resize(1);
    Add(Item(ItemDimension, {50, 0, -50, 0, 0, 0, 100}, "A")); // along the upper half at 100 from the centre
    FitPictureScale(Picture::Param);
    EXPECT_THAT(TakeStrokes(), ElementsAre("scale -140 155 280 -210"));
}

TEST_F(DimensionDrawing, APointAloneLeavesTheScale)
{
    Add(Item(ItemLine, {7, 7, 7, 7}));
    FitPictureScale(Picture::Param);
    EXPECT_THAT(TakeStrokes(), ElementsAre());
}

// --- items --------------------------------------------------------------------------------------------------

TEST_F(DimensionDrawing, EachKindIsDrawnInItsWay)
{
    Add(Item(ItemLine, {0, 0, 100, 0}));
    Add(Item(ItemArc, {100, 0, 100, 100, 100, 50, -50})); // clockwise on the left
    Add(Item(3, {0, 0, 1, 1}));
    Add(Item(ItemFill, {20, 30}));
    Add(Item(5, {0, 0, 1, 1}));
    Add(Item(ItemLetter, {50, 60}, "Nx        "));
    Add(Item(8, {0, 0, 1, 1}));
    DrawShapePicture(Picture::Param, 0);
    const std::vector<std::string> strokes = TakeStrokes();
    // 100 by 100 about (50, 50): a pixel is 140 / 480 = 0.291667; letters 16 * that wide, 20 * that high. The letter is 1.1
    // * 4.66667 left of its point and 0.6 * 5.83333 above. The mark's arms: 186.667 / 200.
    EXPECT_THAT(strokes,
                ElementsAre("clear", "font 13", "scale -43.3333 120 186.667 -140", "line 0 0 100 0 #5555ff 2",
                            "arc 100 50 50 90 270 #5555ff 2", "line 99.0667 50 100.933 50 #5555ff 1",
                            "line 100 49.0667 100 50.9333 #5555ff 1", "flood 20 30 #aa5500 to #5555ff",
                            "font 13", "text 44.8667 63.5 'Nx' #000000", "font 13"));
    for (const Picture picture : Drawn.Pictures) {
        EXPECT_EQ(picture, Picture::Param);
    }
}

TEST_F(DimensionDrawing, OnlyArcsOfHalfATurnShowTheirCentre)
{
    Add(Item(ItemArc, {100, 0, 0, 100, 0, 0, 100})); // a quarter
    DrawShapePicture(Picture::Param, 0);
    EXPECT_THAT(TakeStrokesLike("line"), ElementsAre());
    AppState.PictureItems.resize(1);
    Add(Item(ItemArc, {100, 0, 100, 0, 0, 0, 100})); // a full turn
    DrawShapePicture(Picture::Param, 0);
    EXPECT_EQ(TakeStrokesLike("line").size(), 2U);
}

TEST_F(DimensionDrawing, CentreMarkHasArmsOfATwoHundredthOfTheWidth)
{
    DrawCentreMark(Picture::Param, 10, 20, 0x123456);
    EXPECT_THAT(TakeStrokes(),
                ElementsAre("line 6.8 20 13.2 20 #123456 1", "line 10 16.8 10 23.2 #123456 1"));
}

TEST_F(DimensionDrawing, NothingIsDrawnWhereNobodySees)
{
    Drawn.Shown = false;
    Add(Item(ItemLine, {0, 0, 100, 0}));
    DrawShapePicture(Picture::Param, 0);
    EXPECT_THAT(TakeStrokes(), ElementsAre());
    EXPECT_EQ(AppState.ViewWidth, 640.0);
}

// --- dimension lines ----------------------------------------------------------------------------------------

TEST_F(DimensionDrawing, ALevelDimensionBelowItsPoints)
{
    // From (100, 50) to (0, 80) with the line at y = 10: on the left of the way to the left is below. Letter 8 by 20: its
    // middle 0.35 * 20 + 0.25 * 20 = 12 below the line at (50, -2); it is printed from 4 to the left and 10 up.
    EXPECT_THAT(Dimension({100, 50, 0, 80, 100, 10}),
                ElementsAre("line 100 47 100 7 #000000 1", "line 0 77 0 7 #000000 1", // extension lines
                            "line 50 10 100 10 #000000 1", "line 100 10 94.2324 8.34618 #000000 1",
                            "line 100 10 94.2324 11.6538 #000000 1", "line 50 10 0 10 #000000 1",
                            "line 0 10 5.76757 11.6538 #000000 1", "line 0 10 5.76757 8.34618 #000000 1",
                            "font 13", "font 13", "font 13", // measured, then printed
                            "text 46 8 'A' #000000", "font 13"));
}

TEST_F(DimensionDrawing, AnUprightDimensionHasItsLetterOnTheLeftOfTheWay)
{
    const std::vector<std::string> up = Dimension({50, 0, 80, 100, 20, 0});
    EXPECT_THAT(up, Contains("line 47 0 17 0 #000000 1"));
    EXPECT_THAT(up, Contains("line 77 100 17 100 #000000 1"));
    EXPECT_THAT(up, Contains("line 20 50 20 0 #000000 1"));
    EXPECT_THAT(up, Contains("line 20 50 20 100 #000000 1"));
    EXPECT_THAT(up, Contains("text 7 60 'A' #000000")) << "its middle 4 + 5 left of the line";
    EXPECT_THAT(Dimension({80, 100, 50, 0, 20, 100}), Contains("text 25 60 'A' #000000"))
        << "and downward right";
}

TEST_F(DimensionDrawing, WithoutAFootTheLineRunsFromPointToPoint)
{
    const std::vector<std::string> strokes = Dimension({0, 0, 60, 80, 0, 0});
    EXPECT_EQ(std::count_if(strokes.begin(), strokes.end(),
                            [](const std::string& s) { return s.starts_with("line"); }),
              6)
        << "two halves with two barbs each, no extension lines";
    EXPECT_THAT(strokes, Contains("line 30 40 60 80 #000000 1"));
    // Up and right: the letter stands up and left, by 0.8 * 4 + 0.6 * 7 + 5 = 12.4 of (-0.8, 0.6).
    EXPECT_THAT(strokes, Contains("text 16.08 57.44 'A' #000000"));
}

TEST_F(DimensionDrawing, TheLetterMovesAlongTheWay)
{
    EXPECT_THAT(Dimension({0, 0, 100, 0, 0, 0, 30}), Contains("text 76 22 'A' #000000"));
    EXPECT_THAT(Dimension({0, 0, 100, 0, 0, 0, -30}), Contains("text 16 22 'A' #000000"));
}

TEST_F(DimensionDrawing, OnAShortLineTheArrowsComeFromOutside)
{
    // 20 is less than three and a half barbs of 6; shafts of 15.
    const std::vector<std::string> strokes = Dimension({0, 0, 20, 0, 0, 0});
    EXPECT_THAT(strokes, Contains("line 0 0 20 0 #000000 1"));
    EXPECT_THAT(strokes, Contains("line -15 0 0 0 #000000 1"));
    EXPECT_THAT(strokes, Contains("line 35 0 20 0 #000000 1"));
    EXPECT_THAT(Dimension({0, 0, 22, 0, 0, 0}), Contains("line 11 0 0 0 #000000 1"));
}

TEST_F(DimensionDrawing, ADimensionAlongAnArc)
{
    // From (100, 0) to (0, 100) about the origin, its line 150 away.
    const std::vector<std::string> strokes = Dimension({100, 0, 0, 100, 0, 0, 150});
    EXPECT_THAT(strokes, Contains("line 103 0 153 0 #000000 1"));
    EXPECT_THAT(strokes, Contains("line 0 103 0 153 #000000 1"));
    EXPECT_THAT(strokes, Contains("arc 0 0 150 0 90 #000000 1"));
    EXPECT_THAT(strokes, Contains(StartsWith("text"))) << "beyond the arc, halfway";
    // 150 at 45 degrees is 106.066; the letter 0.707107 * (4 + 7) + 5 = 12.7782 further: 115.102.
    EXPECT_THAT(strokes, Contains("text 111.102 125.102 'A' #000000"));
}

TEST_F(DimensionDrawing, PointsOnOneSpotAreSurvived)
{
    for (const std::string& stroke : Dimension({5, 5, 5, 5, 5, 5})) {
        EXPECT_THAT(stroke, testing::Not(HasSubstr("nan")));
    }
    for (const std::string& stroke : Dimension({5, 5, 5, 5, 50, 5, 10})) {
        EXPECT_THAT(stroke, testing::Not(HasSubstr("nan")));
    }
}

// --- what stands out ----------------------------------------------------------------------------------------

TEST_F(DimensionDrawing, TheHighlightedLetterIsLargerAndRed)
{
    const std::vector<std::string> strokes = Dimension({0, 0, 100, 0, 0, 0}, "Ri        ", true);
    EXPECT_THAT(strokes, Contains("line 50 0 100 0 #ff0000 1"));
    EXPECT_THAT(strokes, Contains("font 19")) << "1.5 times 13";
    EXPECT_EQ(strokes.back(), "font 13") << "as before";
    EXPECT_THAT(strokes, Contains(HasSubstr("'Ri' #ff0000")));
}

TEST_F(DimensionDrawing, OnlyTheItemsOfTheFieldStandOut)
{
    AppState.ParamLabel[0] = "A";
    AppState.ParamLabel[1] = "Ri";
    Add(Item(ItemDimension, {0, 0, 100, 0, 0, 0}, "A         "));
    Add(Item(ItemDimension, {0, 0, 0, 100, 0, 0}, "Ri        "));
    Add(Item(ItemLetter, {20, 20}, " Ri "));
    const auto red = [] {
        std::vector<std::string> texts;
        for (const std::string& stroke : TakeStrokesLike("text")) {
            const std::size_t quote = stroke.find('\'');
            if (stroke.ends_with("#ff0000")) {
                texts.push_back(stroke.substr(quote, stroke.rfind('\'') - quote + 1));
            }
        }
        return texts;
    };
    DrawShapePicture(Picture::Param, 0);
    EXPECT_THAT(red(), ElementsAre());
    DrawShapePicture(Picture::Param, 1);
    EXPECT_THAT(red(), ElementsAre("'A'"));
    DrawShapePicture(Picture::Param, 2);
    EXPECT_THAT(red(), ElementsAre("'Ri'", "'Ri'"));
    for (const std::int16_t none : std::initializer_list<std::int16_t>{3, 15, 16, -1, 32767}) {
        DrawShapePicture(Picture::Param, none);
        EXPECT_THAT(red(), ElementsAre()) << none;
    }
}

TEST_F(DimensionDrawing, FocusColoursTheFieldAndRedrawsEachTime)
{
    AppState.AppPath = KORVANTA_BINARY_DIR;
    ShowShapeParameters(1005, FlagOn); // A, B, X, Y
    AppState.ParamLabelColor[4] = 0x123456;
    for (const std::int16_t number : std::initializer_list<std::int16_t>{3, 1, 1}) {
        TakeStrokes();
        HighlightParameter(number);
        const std::vector<std::string> strokes = TakeStrokes();
        ASSERT_FALSE(strokes.empty()) << "moving the focus draws anew";
        EXPECT_EQ(strokes.front(), "clear");
        for (std::int16_t i = 0; i < 4; ++i) {
            const auto at = static_cast<std::size_t>(i);
            const bool focused = i + 1 == number;
            EXPECT_EQ(AppState.ParamLabelColor[at], focused ? 0xFFFF00 : AppState.WindowBackColor);
            EXPECT_EQ(AppState.ParamText[at].BackColor, focused ? 0xFFFF00 : 0xFFFFFF);
        }
        EXPECT_THAT(strokes, Contains(HasSubstr(number == 3 ? "'X' #ff0000" : "'A' #ff0000")));
    }
    EXPECT_EQ(AppState.ParamLabelColor[4], 0x123456) << "not shown";
}

TEST_F(DimensionDrawing, LettersGrowWithThePicture)
{
    const auto font = [](std::int32_t width, std::int32_t height) {
        Screen.PictureWidth = width;
        Screen.PictureHeight = height;
        DrawShapePicture(Picture::Param, 0);
        return TakeStrokesLike("font").front();
    };
    EXPECT_EQ(font(640, 480), "font 13");
    EXPECT_EQ(font(480, 640), "font 13");
    EXPECT_EQ(font(1600, 900), "font 25");
    EXPECT_EQ(font(60, 40), "font 8");
    EXPECT_EQ(font(9000, 9000), "font 32");
}
} // namespace
