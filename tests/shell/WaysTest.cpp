// Start of the station and the ways between its screens, from an opened part to the nest.
#include "config/Korvanta_Configuration.h"
#include "platform/Fault.h"
#include "profile/Korvanta_Common.h"
#include "shell/Korvanta_Interface.h"
#include "shell/ValueFields.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

using testing::Contains;

namespace
{
class Ways : public testing::Test
{
protected:
    TempFolder Station;

    void SetUp() override
    {
        StartCase();
        std::string catalogue = ">>0\n" + Lines("A");
        for (int number = 1; number <= 38; ++number) {
            catalogue +=
                ">>" + std::to_string(number) + "\n" + Lines("text " + std::to_string(number) + " in ", true);
        }
        Station.Write("Korvanta_MSG.TXT", catalogue);
        Configure("");
        // A plate of 100 x 50 with a slot of 20 x 10 in it.
        Station.Write("NC/plate.iso", "G0 X40 Y20\nG1 X60\nY30\nX40\nY20\nG0 X0 Y0\nG1 X100\nY50\nX0\nY0\n");
        Station.Write("NC/empty.iso", "M30\n");
    }

    void Configure(const std::string& more) const
    {
        Station.Write("Korvanta.ini", "[CONFIG]\nNC_PATH=" + Station.Path + "\\NC\n" + more);
    }

    /// The six lines of a message, numbered by language when asked.
    static std::string Lines(const std::string& text, bool numbered = false)
    {
        std::string lines;
        for (int language = 1; language <= LanguageColumns; ++language) {
            lines += text + (numbered ? std::to_string(language) : "") + "\n";
        }
        return lines;
    }

    void OpenPlate()
    {
        StartStation(Station.Path, 0);
        ASSERT_TRUE(OpenImport(ImportKind::Program, "plate.iso"));
    }
};

TEST_F(Ways, TheStationStartsInItsConfiguredLanguage)
{
    StartStation(Station.Path, 0);
    EXPECT_EQ(AppState.Language, 1);
    Configure("[SETUP]\nLANGUAGE=3\n");
    StartStation(Station.Path, 0);
    EXPECT_EQ(AppState.Language, 3);
    EXPECT_EQ(AppState.LabelCutting[FieldAngle], "text 14 in 3");
    StartStation(Station.Path, 2);
    EXPECT_EQ(AppState.Language, 2) << "a given language wins";
    EXPECT_EQ(AppState.ScreenState, ScreenInput);
}

TEST_F(Ways, TheCaptionsComeFromTheCatalogue)
{
    StartStation(Station.Path, 1);
    const int cutting[] = {14, 15, 16, 18, 19, 20, 21, 22, 23, 24};
    const char* suffixes[] = {"", "", "", "", "", ": A", ": B", ": C", ": D", ""};
    for (std::size_t i = 0; i < CuttingFieldCount; ++i) {
        EXPECT_EQ(AppState.LabelCutting[i], "text " + std::to_string(cutting[i]) + " in 1" + suffixes[i]);
    }
    const int nesting[] = {25, 26, 27, 28, 29, 30, 31, 24};
    for (std::size_t i = 0; i < NestingFieldCount; ++i) {
        EXPECT_EQ(AppState.LabelNesting[i], "text " + std::to_string(nesting[i]) + " in 1");
    }
    EXPECT_EQ(AppState.LabelNesting[LabelCountX], "");
}

TEST_F(Ways, ALanguageThatIsNoneIsAFault)
{
    EXPECT_THROW(StartStation(Station.Path, 7), RunTimeFault);
    Configure("[SETUP]\nLANGUAGE=English\n");
    EXPECT_THROW(StartStation(Station.Path, 0), RunTimeFault);
}

TEST_F(Ways, AMissingCatalogueEndsTheProcess)
{
    const TempFolder empty;
    EXPECT_THROW(StartStation(empty.Path, 1), ProcessEnded);
    ASSERT_FALSE(Screen.Calls.empty());
    EXPECT_EQ(Screen.Calls.front().substr(0, 26), "system box Critical Error|");
}

TEST_F(Ways, AnOpenedImportShowsTheParametersScreen)
{
    StartStation(Station.Path, 1);
    AppState.NestResultX = 4;
    AppState.LabelNesting[LabelCountX] = "4";
    AppState.ShapeId = 1005;
    SetText(AppState.TextCutting[FieldAngle], "30");
    ASSERT_TRUE(OpenImport(ImportKind::Program, "plate.iso"));
    EXPECT_EQ(AppState.ScreenState, ScreenParameters);
    EXPECT_EQ(AppState.PreviousCamTab, 0);
    EXPECT_EQ(AppState.NestResultX, 0);
    EXPECT_EQ(AppState.LabelNesting[LabelCountX], "");
    EXPECT_EQ(AppState.ShapeId, 0);
    EXPECT_EQ(AppState.TextCutting[FieldAngle].Text, "0");
    EXPECT_EQ(AppState.TextNesting[FieldSimulation].Text, "15");
    EXPECT_EQ(AppState.ProfileCount, 2);
}

TEST_F(Ways, AnImportBehindAShapeHasNoParameters)
{
    StartStation(Station.Path, 0);
    OpenShape(1005);
    ASSERT_EQ(AppState.ParamText[0].Visible, FlagOn);
    EnterInputScreen();
    ASSERT_TRUE(OpenImport(ImportKind::Program, "plate.iso"));
    for (const ValueField& field : AppState.ParamText) {
        EXPECT_EQ(field.Visible, FlagOff) << field.Index;
    }
}

TEST_F(Ways, AFailedImportShowsTheBoxAndStaysOnTheInputScreen)
{
    StartStation(Station.Path, 2);
    for (const char* name : {"empty.iso", "none.iso"}) {
        Screen.Calls.clear();
        EXPECT_FALSE(OpenImport(ImportKind::Program, name));
        EXPECT_THAT(Screen.Calls, Contains("box text 34 in 2|text 38 in 2||one")) << name;
        EXPECT_EQ(AppState.ScreenState, ScreenInput);
        EXPECT_EQ(AppState.TextNesting[FieldSheetX].Text, "0");
    }
}

TEST_F(Ways, TheCuttingScreenStartsANewPartAtItsFirstProfile)
{
    OpenPlate();
    AppState.TextCutting[FieldProfileNumber].Text = "2"; // left from the part before
    NextCamTab();
    EXPECT_EQ(AppState.ScreenState, ScreenCutting);
    EXPECT_EQ(AppState.CurrentProfile, 1);
    EXPECT_EQ(AppState.TextCutting[FieldProfileNumber].Text, "1");
    EXPECT_EQ(AppState.TextCutting[FieldLeadInA].Text, "10");
    EXPECT_EQ(AppState.TextCutting[FieldLeadInB].Text, "5");
    EXPECT_EQ(AppState.TextCutting[FieldLeadOutC].Text, "0");
    EXPECT_EQ(AppState.TextCutting[FieldMoveStep].Text, "10");
    EXPECT_NE(AppState.ProfileTable[2].Status, LeadUnset);
    EXPECT_EQ(LastFocus(), "focus TextCutting 0");
}

TEST_F(Ways, TheMoveStepOfANewPartIsShownEvenWithoutProfiles)
{
    Configure("DXF_PATH=" + Station.Path + "\\DXF\n");
    Station.Write("DXF/marks.dxf", "0\nSECTION\n2\nENTITIES\n0\nPOINT\n10\n3\n20\n4\n0\nENDSEC\n0\nEOF\n");
    StartStation(Station.Path, 1);
    AppState.MoveStep = 3.0;
    AppState.TextCutting[FieldMoveStep].Text = "3"; // left from the part before
    ASSERT_TRUE(OpenImport(ImportKind::Drawing, "marks.dxf"));
    ASSERT_EQ(AppState.ProfileCount, 0);
    NextCamTab();
    EXPECT_EQ(AppState.MoveStep, 10.0);
    EXPECT_EQ(AppState.TextCutting[FieldMoveStep].Text, "10");
    EXPECT_EQ(AppState.CurrentProfile, 0);
}

TEST_F(Ways, TheNestingScreenRaisesTheSheetToThePart)
{
    OpenPlate();
    NextCamTab();
    NextCamTab();
    EXPECT_EQ(AppState.ScreenState, ScreenNesting);
    EXPECT_EQ(AppState.PreviousCamTab, 2);
    EXPECT_EQ(AppState.TextNesting[FieldSheetX].Text, "110");
    EXPECT_EQ(AppState.TextNesting[FieldSheetY].Text, "60");
    EXPECT_EQ(AppState.CountX, 1);
    EXPECT_EQ(AppState.GapX, 10.0);
    EXPECT_EQ(AppState.CurrentProfile, 0);
    EXPECT_EQ(LastFocus(), "focus TextNesting 0");
}

TEST_F(Ways, GoingBackKeepsTheLeadsAndTheChosenProfile)
{
    OpenPlate();
    HoldConfigWrites();
    NextCamTab();
    SetText(AppState.TextCutting[FieldProfileNumber], "2");
    SetText(AppState.TextCutting[FieldLeadInA], "7");
    CuttingFieldLeft(FieldLeadInA);
    NextCamTab();
    PreviousCamTab();
    EXPECT_EQ(AppState.ScreenState, ScreenCutting);
    EXPECT_EQ(AppState.CurrentProfile, 2) << "the number in the field";
    EXPECT_EQ(AppState.TextCutting[FieldLeadInA].Text, "7");
    EXPECT_EQ(AppState.ProfileTable[2].LeadInLength, 7.0);
    PreviousCamTab();
    EXPECT_EQ(AppState.ScreenState, ScreenParameters);
    NextCamTab();
    EXPECT_EQ(AppState.ProfileTable[2].LeadInLength, 7.0) << "an import isn't developed anew";
}

/// A new part after a staggered nest: its leads are there at once, and the key for the next element knows them.
TEST_F(Ways, ANewPartAfterAStaggeredNestIsOneCopy)
{
    OpenPlate();
    HoldConfigWrites();
    NextCamTab();
    NextCamTab();
    SetText(AppState.TextNesting[FieldSheetX], "500");
    SetText(AppState.TextNesting[FieldSheetY], "500");
    SetText(AppState.TextNesting[FieldNestType], "3");
    EXPECT_GT(AppState.CopiesDrawn, 4);
    PreviousCamTab();
    EXPECT_EQ(AppState.CopiesDrawn, 1) << "back on the Cutting screen";
    EnterInputScreen();
    ASSERT_TRUE(OpenImport(ImportKind::Program, "plate.iso"));
    NextCamTab();
    EXPECT_EQ(AppState.CopiesDrawn, 1) << "the sheet is 0 now";
    EXPECT_GE(AppState.ProfileTable[2].LeadElement, 6) << "behind the four sides of the slot and their end";
}

TEST_F(Ways, AMeasurementAndAFrameEndWithTheirScreen)
{
    OpenPlate();
    NextCamTab();
    for (void (*const way)() : {NextCamTab, PreviousCamTab}) {
        AppState.MeasureOn = FlagOn;
        AppState.ZoomFrame = 2.0;
        way();
        EXPECT_EQ(AppState.MeasureOn, FlagOff);
        EXPECT_EQ(AppState.ZoomFrame, 0.0);
    }
}

TEST_F(Ways, TheTabsGoRound)
{
    OpenPlate();
    PreviousCamTab();
    EXPECT_EQ(AppState.ScreenState, ScreenNesting);
    NextCamTab();
    EXPECT_EQ(AppState.ScreenState, ScreenParameters);
}

TEST_F(Ways, TheInputScreenClearsTheNestResults)
{
    OpenPlate();
    NextCamTab();
    NextCamTab();
    AppState.NestResultX = 3;
    AppState.NestResultY = 2;
    AppState.PreviewNest = FlagOn;
    EnterInputScreen();
    EXPECT_EQ(AppState.ScreenState, ScreenInput);
    EXPECT_EQ(AppState.FieldMode, 0);
    EXPECT_EQ(AppState.FocusedSet, FieldSet::None);
    EXPECT_EQ(AppState.TextNesting[FieldSheetX].Text, "0");
    EXPECT_EQ(AppState.TextNesting[FieldSheetY].Text, "0");
    EXPECT_EQ(AppState.LabelNesting[LabelCountX], "");
    EXPECT_EQ(AppState.NestResultX, 0);
    EXPECT_EQ(AppState.NestResultY, 0);
    EXPECT_EQ(AppState.PreviewNest, FlagOff) << "no nest is about to be saved there";
}
} // namespace
