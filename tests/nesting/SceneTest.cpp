// What the pictures of the screens show: part with axes, sheet with nest, statistics, origin mark.
#include "nesting/Korvanta_CutTecnology.h"

#include "config/Korvanta_Configuration.h"
#include "profile/Korvanta_ProfileCut.h"
#include "support/LeadParts.h"
#include "support/PartTables.h"
#include "support/RecordingScreen.h"
#include "support/RecordingSurface.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <sstream>
#include <utility>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
class Scene : public ::testing::Test
{
protected:
    void SetUp() override
    {
        StartCase();
        HoldConfigWrites();
        WriteConfig("CONFIG", "KERFPOSDRAW", "0");
        Drawn.Shown = true;
        AppState.ScreenState = ScreenNesting;
    }

    /// One open line from (0, 0) to (sizeX, sizeY): one stroke per copy.
    static void MakeLine(double sizeX, double sizeY)
    {
        AddLines({{0, 0}, {sizeX, sizeY}});
        AddEnd(KindOuterEnd, 0);
        MeasureProfiles(FlagOn);
        ComputeBounds();
        InitLeadData();
    }

    static void SetNest(const char* sheetX, const char* sheetY, const char* gap, const char* type)
    {
        AppState.TextNesting[FieldSheetX].Text = sheetX;
        AppState.TextNesting[FieldSheetY].Text = sheetY;
        AppState.TextNesting[FieldGapX].Text = gap;
        AppState.TextNesting[FieldGapY].Text = gap;
        AppState.TextNesting[FieldNestType].Text = type;
    }

    /// The lines of the scene, without its fit and sheet.
    static std::vector<std::string> DrawCopies()
    {
        TakeStrokes();
        DrawScene(Picture::Nesting, FlagOn, FlagOn, FlagOn);
        return TakeStrokesLike("line");
    }
};

// --- the part alone ----------------------------------------------------------------------------------------

TEST_F(Scene, PartWithAxesAndSizes)
{
    AppState.ScreenState = ScreenCutting;
    MakeLine(300, 100);
    DrawScene(Picture::Tecno, FlagOn, FlagOn, FlagOn);
    // A pixel is 345 / 640 = 0.539063: letters 4.3125 wide, 10.7813 high; barbs are 258.75 / 80 = 3.23438 long,
    // 3.10908 along, 0.891515 beside. The view
    // ends at 315, and 10 below the part: too little for a line, so the texts of the x axis stand on it.
    EXPECT_THAT(TakeStrokes(),
                ElementsAre("clear", "scale -30 248.75 345 -258.75", "font 15", "line -30 0 330 0 #0000ff 1",
                            "line 330 0 326.891 -0.891515 #0000ff 1", "line 330 0 326.891 0.891515 #0000ff 1",
                            "line 0 -10 0 110 #0000ff 1", "line 0 110 0.891515 106.891 #0000ff 1",
                            "line 0 110 -0.891515 106.891 #0000ff 1", "text 308.531 10.7812 'x' #0000ff",
                            "text -6.46875 110 'y' #0000ff", "text -6.46875 10.7812 'o' #0000ff",
                            "text 143.531 10.7812 '300' #0000ff", "text 2.15625 55.3906 '100' #0000ff",
                            "line 0 0 300 100 #000000 1"));
    DrawScene(Picture::Tecno, FlagOff, FlagOff, FlagOff);
    EXPECT_THAT(TakeStrokes(), ElementsAre("clear", "font 15", "line 0 0 300 100 #000000 1"));
}

TEST_F(Scene, NameOfTheAxisStaysInTheViewOfATallPart)
{
    AppState.ScreenState = ScreenCutting;
    MakeLine(50, 100); // the view ends at 105, the axis at 110: a pixel is 115 / 480, a letter 1.91667
    DrawScene(Picture::Tecno, FlagOn, FlagOn, FlagOn);
    EXPECT_THAT(TakeStrokesLike("text"), testing::Contains("text -2.875 105 'y' #0000ff"));
}

/// Every text of the fitted view is in it, and no two lie on each other, however flat or narrow the part.
TEST_F(Scene, CaptionsOfAnyPartAreSeen)
{
    AppState.ScreenState = ScreenCutting;
    for (const auto& [sizeX, sizeY] : std::vector<std::pair<double, double>>{{300, 100},
                                                                             {100, 100},
                                                                             {50, 100},
                                                                             {1000, 10},
                                                                             {10, 1000},
                                                                             {2000, 0},
                                                                             {0, 2000},
                                                                             {0.5, 0.4},
                                                                             {9999, 50}}) {
        ClearPart();
        MakeLine(sizeX, sizeY);
        RedrawScene(FlagOn);
        struct Box {
            double Left, Top, Right, Bottom;
        };
        std::vector<Box> boxes;
        const std::string name = std::to_string(sizeX) + " x " + std::to_string(sizeY);
        for (const std::string& stroke : TakeStrokesLike("text")) {
            std::istringstream numbers(stroke.substr(5));
            Box box{};
            numbers >> box.Left >> box.Top;
            const std::size_t quote = stroke.find('\'');
            const auto letters = static_cast<double>(stroke.rfind('\'') - quote - 1);
            box.Right = box.Left + letters * RecordedLetterWidth * AppState.UnitsPerPixelX;
            box.Bottom = box.Top + RecordedLetterHeight * AppState.UnitsPerPixelY;
            const double slack = 0.01 * AppState.UnitsPerPixelX; // of the six digits
            EXPECT_GE(box.Left, AppState.ViewLeft - slack) << name << ": " << stroke;
            EXPECT_LE(box.Right, AppState.ViewLeft + AppState.ViewWidth + slack) << name << ": " << stroke;
            EXPECT_LE(box.Top, AppState.ViewTop + slack) << name << ": " << stroke;
            EXPECT_GE(box.Bottom, AppState.ViewTop + AppState.ViewHeight - slack) << name << ": " << stroke;
            for (const Box& other : boxes) {
                const bool apart = box.Left >= other.Right - slack || other.Left >= box.Right - slack ||
                                   box.Bottom >= other.Top - slack || other.Bottom >= box.Top - slack;
                EXPECT_TRUE(apart) << name << ": " << stroke;
            }
            boxes.push_back(box);
        }
        EXPECT_EQ(boxes.size(), 7U);
    }
}

TEST_F(Scene, PartWithoutSizeLeavesThePictureEmpty)
{
    AppState.ScreenState = ScreenCutting;
    AddLines({{0, 0}, {0.009, 0.009}});
    AddEnd(KindOuterEnd, 0);
    MeasureProfiles(FlagOn);
    ComputeBounds();
    AppState.CountX = 3;
    DrawScene(Picture::Tecno, FlagOn, FlagOn, FlagOn);
    EXPECT_THAT(TakeStrokes(), ElementsAre("clear"));
    EXPECT_EQ(AppState.CountX, 3) << "counts stay as they were";
    RedrawScene(FlagOn);
    EXPECT_THAT(TakeStrokes(), ElementsAre("clear")) << "nor a word of statistics";
}

TEST_F(Scene, RefreshFitsThePartAnew)
{
    AppState.ScreenState = ScreenParameters;
    MakeLine(300, 100);
    AppState.MaxX = 5; // of another part
    RefreshPart(Picture::Param);
    EXPECT_EQ(AppState.MaxX, 300);
    const std::vector<std::string> strokes = TakeStrokes();
    EXPECT_EQ(strokes.front(), "scale -30 248.75 345 -258.75");
    EXPECT_EQ(strokes.back(), "line 0 0 300 100 #000000 1");
}

TEST_F(Scene, UnseenPictureGetsNoStrokesButItsNumbers)
{
    Drawn.Shown = false;
    MakeLine(40, 20);
    SetNest("100", "100", "10", "1");
    RedrawScene(FlagOn);
    EXPECT_THAT(TakeStrokes(), IsEmpty());
    EXPECT_EQ(AppState.CountX, 2);
    EXPECT_EQ(AppState.CopiesDrawn, 6) << "2 columns, 3 rows";
    EXPECT_EQ(AppState.ViewLeft, -4);
}

// --- the nest ------------------------------------------------------------------------------------------------

TEST_F(Scene, SheetHasShadowAndOutline)
{
    AppState.UnitsPerPixelX = 2.0;
    AppState.UnitsPerPixelY = -2.0;
    DrawSheet(Picture::Nesting, 100, 60, 0xFFFFFF);
    EXPECT_THAT(TakeStrokes(), ElementsAre("fill 10 10 110 70 #808080", "fill 0 0 100 60 #ffffff",
                                           "box 0 0 100 60 #000000 1"));
}

TEST_F(Scene, ViewOfTheNestFitsTheSheet)
{
    MakeLine(40, 20);
    SetNest("400", "100", "10", "1");
    DrawScene(Picture::Nesting, FlagOn, FlagOn, FlagOn);
    const std::vector<std::string> strokes = TakeStrokes();
    // From -4 to 420 in X, three quarters of it in Y, the top 2 below that.
    EXPECT_EQ(strokes[0], "clear");
    EXPECT_EQ(strokes[1], "scale -4 316 424 -318");
    EXPECT_EQ(strokes[2], "font 15");
    EXPECT_TRUE(strokes[3].starts_with("fill"));
}

TEST_F(Scene, StraightNestByColumns)
{
    MakeLine(40, 20);
    for (const char* type : {"1", "2"}) {
        SetNest("100", "70", "10", type); // 2 columns of 50, 2 rows of 30
        EXPECT_THAT(DrawCopies(), ElementsAre("line 5 5 45 25 #000000 1", "line 5 35 45 55 #000000 1",
                                              "line 55 5 95 25 #000000 1", "line 55 35 95 55 #000000 1"))
            << type;
    }
}

TEST_F(Scene, GapBelowZeroLetsCopiesOverlap)
{
    MakeLine(40, 20);
    SetNest("70", "15", "-5", "1"); // 2 columns of 35, 1 row of 15
    EXPECT_THAT(DrawCopies(),
                ElementsAre("line -2.5 -2.5 37.5 17.5 #000000 1", "line 32.5 -2.5 72.5 17.5 #000000 1"));
}

TEST_F(Scene, StaggeredNestTriesOneRowMore)
{
    MakeLine(40, 20);
    // Columns of 50: 3. Rows of 20 * 0.866 + 10 = 27.32: 2 in 60. Odd rows are shifted by 25, and end one column sooner.
    // The third row stands at 59.64, 17.32 high: beyond 61.
    SetNest("150", "60", "10", "3");
    const std::vector<std::string> expected = {
        "line 5 5 45 25 #000000 1", "line 55 5 95 25 #000000 1", "line 105 5 145 25 #000000 1",
        "line 30 32.32 70 52.32 #000000 1", "line 80 32.32 120 52.32 #000000 1"};
    EXPECT_EQ(DrawCopies(), expected);
    AppState.TextNesting[FieldNestType].Text = "4";
    EXPECT_EQ(DrawCopies(), expected) << "the type of the program's order";
    AppState.TextNesting[FieldSheetY].Text = "76"; // 59.64 + 17.32 = 76.96 stands out by less than 1
    EXPECT_EQ(DrawCopies().size(), 8U);
    AppState.TextNesting[FieldSheetY].Text = "75.9";
    EXPECT_EQ(DrawCopies().size(), 5U);
    AppState.TextNesting[FieldSheetX].Text = "169"; // 80 + 50 + 40 is 170
    EXPECT_EQ(DrawCopies().size(), 6U) << "the slack of 1 in X";
    AppState.TextNesting[FieldSheetX].Text = "168.9";
    EXPECT_EQ(DrawCopies().size(), 5U);
}

/// Where the first stroke of a line of text begins: "line 5 7 ..." is (5, 7).
std::pair<double, double> StartOf(const std::string& line)
{
    std::pair<double, double> start;
    std::istringstream text(line.substr(5));
    text >> start.first >> start.second;
    return start;
}

bool KeepPosition(double x, double y, void* context)
{
    static_cast<std::vector<std::pair<double, double>>*>(context)->emplace_back(x, y);
    return true;
}

TEST_F(Scene, StraightNestIsDrawnWhereTheProgramCutsIt)
{
    std::mt19937 random(55);
    const auto pick = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    for (int round = 0; round < 200; ++round) {
        SetUp();
        MakeLine(pick(5, 60), pick(5, 60));
        SetNest(std::to_string(pick(200, 600)).c_str(), std::to_string(pick(100, 400)).c_str(),
                std::to_string(pick(-4, 10)).c_str(), std::to_string(pick(1, 2)).c_str());
        const int kerf = pick(0, 3);
        AppState.TextNesting[FieldKerf].Text = std::to_string(kerf);
        std::vector<std::pair<double, double>> drawn;
        for (const std::string& line : DrawCopies()) {
            drawn.push_back(StartOf(line));
        }
        std::vector<std::pair<double, double>> cut;
        WalkCopies(AppState.GapX / 2, AppState.GapY / 2, KeepPosition, &cut);
        if (AppState.CountX == 1 && AppState.CountY == 1) {
            continue; // a copy alone stands at the corner
        }
        std::sort(drawn.begin(), drawn.end());
        std::sort(cut.begin(), cut.end());
        ASSERT_EQ(drawn, cut) << "round " << round;
    }
}

TEST_F(Scene, StaggeredCopiesStandOnTheSheet)
{
    std::mt19937 random(56);
    const auto pick = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    for (int round = 0; round < 200; ++round) {
        SetUp();
        const int sizeX = pick(5, 60);
        const int sizeY = pick(5, 60);
        const int sheetX = pick(200, 600);
        const int sheetY = pick(200, 400);
        MakeLine(sizeX, sizeY);
        SetNest(std::to_string(sheetX).c_str(), std::to_string(sheetY).c_str(),
                std::to_string(pick(0, 10)).c_str(), std::to_string(pick(3, 4)).c_str());
        const std::vector<std::string> lines = DrawCopies();
        EXPECT_FALSE(lines.empty());
        for (const std::string& line : lines) {
            const auto [x, y] = StartOf(line);
            ASSERT_LE(x + sizeX, sheetX + 1.001) << line;
            ASSERT_LE(y + sizeY * 0.866, sheetY + 1.001) << line;
        }
    }
}

TEST_F(Scene, SingleCopyStandsAtTheCornerWithAxes)
{
    MakeLine(40, 20);
    SetNest("60", "35", "10", "1");
    const std::vector<std::string> lines = DrawCopies();
    EXPECT_EQ(lines.size(), 6U + 1U);
    EXPECT_EQ(lines.back(), "line 0 0 40 20 #000000 1");
}

TEST_F(Scene, CurrentProfileIsRedInEachCopy)
{
    MakeLine(40, 20);
    AppState.CurrentProfile = 1;
    SetNest("100", "60", "10", "1");
    const std::vector<std::string> lines = DrawCopies();
    ASSERT_EQ(lines.size(), 4U);
    for (const std::string& line : lines) {
        EXPECT_TRUE(line.ends_with("#ff0000 3")) << line;
    }
}

TEST_F(Scene, EachCopyHasItsMarkersWhenTheyAreAskedFor)
{
    MakeLine(40, 0);
    SetNest("100", "30", "10", "1"); // 2 columns of 50; 105 by 78.75 on 640 by 480
    WriteConfig("CONFIG", "KERFPOSDRAW", "4");
    for (const char* type : {"1", "3"}) {
        AppState.TextNesting[FieldNestType].Text = type;
        TakeStrokes();
        DrawScene(Picture::Nesting, FlagOn, FlagOn, FlagOff);
        const std::size_t copies = TakeStrokesLike("line").size();
        EXPECT_GE(copies, 2U) << type;
        DrawScene(Picture::Nesting, FlagOn, FlagOn, FlagOn);
        EXPECT_EQ(TakeStrokesLike("line").size(), 5 * copies)
            << type << ": a foot and an arrow of three lines each";
        WriteConfig("CONFIG", "KERFPOSDRAW", "0"); // the setting as it is at that moment
        DrawScene(Picture::Nesting, FlagOn, FlagOn, FlagOn);
        EXPECT_EQ(TakeStrokesLike("line").size(), copies) << type;
        WriteConfig("CONFIG", "KERFPOSDRAW", "4");
    }
}

TEST_F(Scene, PreviewOfSaveModeShowsTheNest)
{
    MakeLine(40, 20);
    SetNest("100", "60", "10", "1");
    RedrawScene(FlagOn);
    AppState.ScreenState = ScreenInput;
    RedrawScene(FlagOn);
    TakeStrokes();
    AppState.SaveMode = FlagOn;
    RedrawScene(FlagOn);
    ASSERT_FALSE(Drawn.Pictures.empty());
    EXPECT_EQ(Drawn.Pictures.front(), Picture::Preview);
    EXPECT_EQ(TakeStrokesLike("fill").size(), 2U) << "the sheet";
    EXPECT_EQ(AppState.CountX, 2) << "no layout number is reset";
    EXPECT_EQ(AppState.GapX, 10);
    AppState.SaveMode = FlagOff;
    RedrawScene(FlagOn);
    EXPECT_THAT(TakeStrokes(), IsEmpty()) << "nothing to redraw on the Input screen";
}

TEST_F(Scene, EnormousNestComesToAnEnd)
{
    MakeLine(0.02, 0.02);
    for (const char* type : {"1", "4"}) {
        SetNest("99999", "99999", "0.01", type);
        TakeStrokes();
        RedrawScene(FlagOn);
        EXPECT_LT(TakeStrokes().size(), 1500000U) << type;
        EXPECT_EQ(AppState.CopiesDrawn, 2147483647) << type;
    }
}

// --- statistics ------------------------------------------------------------------------------------------------

TEST_F(Scene, SixCopiesOfThreeProfiles)
{
    PutBox(2, 2, 3, 3);
    PutEnd(KindEnd);
    PutBox(12, 2, 3, 3);
    PutEnd(KindEnd);
    PutBox(0, 0, 40, 20);
    PutEnd(KindOuterEnd);
    MeasureProfiles(FlagOn); // 12 + 12 + 120 = 144
    ComputeBounds();
    InitLeadData();
    SetNest("150", "60", "10", "1"); // 3 columns, 2 rows
    RedrawScene(FlagOn);
    // From -4 to 157.5 in X: a pixel is 161.5 / 640 = 0.252344; letters 2.01875 wide, 5.04688 high.
    EXPECT_THAT(TakeStrokesLike("text"),
                ElementsAre("text 4.0375 25.5516 'Shape: 6; ' #000000",
                            "text 24.225 26.0562 'Piercing: 18; Cutting (mm): 864' #000000"));
    EXPECT_EQ(AppState.CopiesDrawn, 6);
}

TEST_F(Scene, OverlayFollowsTheOrderOfTheProgram)
{
    MakeLine(40, 20); // open: a rapid line to the start of each copy
    SetNest("150", "60", "10", "1");
    AppState.PenX = AppState.PenY = 99;
    RedrawCurrent(1, FlagOn);
    std::vector<std::string> rapids;
    for (const std::string& line : TakeStrokesLike("line")) {
        if (line.ends_with("dashed")) {
            rapids.push_back(line.substr(0, line.find(" #")));
        }
    }
    EXPECT_THAT(rapids, ElementsAre("line 0 0 5 5", "line 5 5 55 5", "line 55 5 105 5", "line 105 5 105 35",
                                    "line 105 35 55 35", "line 55 35 5 35"))
        << "the second row is cut in the order 3, 2, 1";
}

TEST_F(Scene, KerfMovesTheOverlayWithTheCopies)
{
    MakeLine(40, 20);
    SetNest("200", "60", "10", "1");
    AppState.TextNesting[FieldKerf].Text = "2"; // gap 14: the first copy at 2 + 5
    RedrawScene(FlagOn);
    const std::vector<std::string> lines = TakeStrokesLike("line");
    EXPECT_EQ(lines[0], "line 7 7 47 27 #000000 1");
    EXPECT_EQ(lines[3], "line 0 0 7 7 #800080 1 dashed") << "after three copies in one row";
}

TEST_F(Scene, CuttingScreenCountsOneCopyAtItsCorner)
{
    AppState.ScreenState = ScreenCutting;
    AppState.TextNesting[FieldKerf].Text = "2";
    MakeLine(40, 20);
    RedrawScene(FlagOn);
    ASSERT_FALSE(Drawn.Pictures.empty());
    EXPECT_EQ(Drawn.Pictures.front(), Picture::Tecno);
    const std::vector<std::string> texts = TakeStrokesLike("text");
    ASSERT_EQ(texts.size(), 7U);
    EXPECT_TRUE(texts[5].ends_with("'Shape: 1; ' #000000")) << texts[5];
    EXPECT_TRUE(texts[6].ends_with("'Piercing: 1; Cutting (mm): 44.72' #000000")) << texts[6];
}

/// A staggered nest of the part before must neither double the part on the Cutting screen nor take it away.
TEST_F(Scene, CuttingScreenShowsOneCopyWhateverTheNestWas)
{
    AppState.ScreenState = ScreenCutting;
    MakeLine(40, 20);
    for (const std::int16_t kind :
         {std::int16_t{0}, std::int16_t{1}, std::int16_t{2}, std::int16_t{3}, std::int16_t{4}}) {
        for (const char* sheet : {"0", "1000"}) {
            AppState.NestKind = kind;
            SetNest(sheet, sheet, "10", "1");
            AppState.ProfileTable[1].LeadElement = 0;
            TakeStrokes();
            RedrawScene(FlagOn);
            EXPECT_EQ(AppState.CopiesDrawn, 1) << kind << " on " << sheet;
            EXPECT_EQ(AppState.ProfileTable[1].LeadElement, 1)
                << "the key for the next element counts from it";
            std::vector<std::string> rapids;
            for (const std::string& line : TakeStrokesLike("line")) {
                if (line.ends_with("dashed")) {
                    rapids.push_back(line);
                }
            }
            EXPECT_THAT(rapids, ElementsAre("line 0 0 0 0 #800080 1 dashed")) << kind << " on " << sheet;
            Drawn.Shown = false;
            RedrawScene(FlagOn);
            EXPECT_EQ(AppState.CopiesDrawn, 1) << kind << " on " << sheet << ", unseen";
            Drawn.Shown = true;
        }
    }
}

TEST_F(Scene, NoStatisticsOnTheParametersScreen)
{
    MakeLine(40, 20);
    AppState.ScreenState = ScreenParameters;
    DrawStatistics(Picture::Param, 1);
    RedrawScene(FlagOn);
    EXPECT_THAT(TakeStrokes(), IsEmpty());
}

TEST_F(Scene, OriginMarkStandsAtTheCellOrTheCursor)
{
    AppState.UnitsPerPixelX = 1.0;
    AppState.UnitsPerPixelY = -1.0;
    AppState.GapX = 10;
    AppState.GapY = 6;
    AppState.PathOriginX = 100;
    AppState.PathOriginY = 50;
    DrawOriginMark(Picture::Nesting);
    std::vector<std::string> strokes = TakeStrokes();
    ASSERT_EQ(strokes.size(), 6U);
    EXPECT_EQ(strokes[0], "line 0 3 40 3 #0000ff 1") << "the cursor is off: (5, 3)";
    EXPECT_EQ(strokes[3], "line 5 -2 5 38 #0000ff 1");
    AppState.PathOriginSet = FlagOn;
    DrawOriginMark(Picture::Nesting);
    strokes = TakeStrokes();
    EXPECT_EQ(strokes[0], "line 100 53 140 53 #0000ff 1");
    EXPECT_EQ(strokes[3], "line 105 48 105 88 #0000ff 1");
}

TEST_F(Scene, RedrawBringsTheRubberLineBack)
{
    MakeLine(40, 20);
    SetNest("100", "60", "10", "1");
    AppState.MeasureOn = FlagOn;
    AppState.MeasureStartX = 1;
    AppState.MeasureStartY = 2;
    AppState.MeasureLastX = 30;
    AppState.MeasureLastY = 40;
    RedrawScene(FlagOn);
    EXPECT_EQ(TakeStrokes().back(), "line 1 2 30 40 #00ff00 1 inverting");
    AppState.SaveMode = FlagOn;
    AppState.ScreenState = ScreenInput;
    RedrawScene(FlagOn);
    EXPECT_FALSE(TakeStrokes().back().ends_with("inverting")) << "nothing is measured in the preview";
    AppState.SaveMode = FlagOff;
    AppState.ScreenState = ScreenNesting;
    AppState.MeasureOn = FlagOff;
    RedrawScene(FlagOn);
    EXPECT_FALSE(TakeStrokes().back().ends_with("inverting"));
}

TEST_F(Scene, ZoomFrameIsInvertingAboutTheCentre)
{
    AppState.ViewLeft = -10;
    AppState.ViewTop = 70;
    AppState.ViewWidth = 120;
    AppState.ViewHeight = -80;
    AppState.ViewCentreX = 50;
    AppState.ViewCentreY = 20;
    DrawZoomFrame(Picture::Tecno, 2);
    EXPECT_THAT(TakeStrokes(),
                ElementsAre("box 20 40 80 0 #ff0000 1 inverting", "line 50 70 50 -10 #ff0000 1 inverting",
                            "line -10 20 110 20 #ff0000 1 inverting"));
    DrawZoomFrame(Picture::Tecno, 0);
    EXPECT_THAT(TakeStrokes(), IsEmpty());
}
} // namespace
