// What opening a part sets back, from each list; and the lists while a name is asked for.
#include "config/Korvanta_Configuration.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "shell/InputEvents.h"
#include "shell/InputLists.h"
#include "shell/InputScreen.h"
#include "shell/KeyCodes.h"
#include "shell/KeyDispatcher.h"
#include "shell/ValueFields.h"
#include "support/RecordingSurface.h"
#include "support/Station.h"

#include <gmock/gmock.h>

using testing::Contains;
using testing::ElementsAre;

namespace
{
class Opening : public StationCase
{
protected:
    void SetUp() override
    {
        StationCase::SetUp();
        AppState.ExitAfterSave = FlagOff;
        Station.Write("PPR.ini", "[PartProgram_CONFIG]\nFILE_EXTENSION=nc\n[PartProgram_Begin]\n1=START\n");
        FillShapeLists();
        SelectInputTab(TabRect);
        TakeCalls();
    }

    /// A square of 30 as a drawing.
    void WriteDrawing(const std::string& name) const
    {
        std::string lines;
        const int corners[] = {0, 0, 30, 0, 30, 30, 0, 30, 0, 0};
        for (std::size_t i = 0; i + 3 < std::size(corners); i += 2) {
            lines += "0\nLINE\n8\n0\n10\n" + std::to_string(corners[i]) + "\n20\n" +
                     std::to_string(corners[i + 1]) + "\n11\n" + std::to_string(corners[i + 2]) + "\n21\n" +
                     std::to_string(corners[i + 3]) + "\n";
        }
        Station.Write("DXF/" + name, "0\nSECTION\n2\nENTITIES\n" + lines + "0\nENDSEC\n0\nEOF\n");
    }

    /// Every value of the part before.
    static void LeaveTraces()
    {
        SetText(AppState.TextCutting[FieldAngle], "30");
        SetText(AppState.TextCutting[FieldMirror], "2");
        SetText(AppState.TextCutting[FieldScale], "3");
        SetText(AppState.TextNesting[FieldNestType], "4");
        AppState.TextNesting[FieldSimulation].Text = "9"; // as it stood ahead of an edit of the file
        AppState.LabelNesting[LabelCountX] = "5";
        AppState.LabelNesting[LabelCountY] = "6";
        AppState.NestResultX = 5;
        AppState.NestResultY = 6;
        AppState.SavedCentreX = 1.0;
        AppState.SavedCentreY = 2.0;
        AppState.ShapeId = 2007;
    }

    static void ExpectFreshFields()
    {
        EXPECT_EQ(AppState.TextCutting[FieldAngle].Text, "0");
        EXPECT_EQ(AppState.TextCutting[FieldMirror].Text, "0");
        EXPECT_EQ(AppState.TextCutting[FieldScale].Text, "1");
        EXPECT_EQ(AppState.TextNesting[FieldNestType].Text, "1");
        EXPECT_EQ(AppState.TextNesting[FieldSimulation].Text, "12");
        EXPECT_EQ(AppState.LabelNesting[LabelCountX], "");
        EXPECT_EQ(AppState.LabelNesting[LabelCountY], "");
        EXPECT_EQ(AppState.NestResultX, 0);
        EXPECT_EQ(AppState.NestResultY, 0);
        EXPECT_TRUE(IsNoValue(AppState.SavedCentreX));
        EXPECT_TRUE(IsNoValue(AppState.SavedCentreY));
    }
};

TEST_F(Opening, TheSpeedThatItOffersIsTheOneOfTheSimulation)
{
    Configure("", "");
    ASSERT_EQ(ReadConfig("SETUP", "SIMSPEED", "none"), "none");
    KeyDispatcher(KeyEnter, 0);
    EXPECT_EQ(AppState.TextNesting[FieldSimulation].Text, "15");
    EXPECT_EQ(ReadConfig("SETUP", "SIMSPEED", "none"), "15");
    EXPECT_EQ(AppState.SimSpeed, 15);
}

TEST_F(Opening, SetsTheFieldsBack)
{
    Configure("SIMSPEED=12\n", "");
    WriteDrawing("square.dxf");
    struct Case {
        std::int16_t Tab;
        std::int32_t Item;
        std::int16_t ShapeId;
    };
    for (const Case& c : {Case{TabRect, 0, 1001}, Case{TabCirc, 1, 2002}, Case{TabHoles, 0, 3001},
                          Case{TabDxfIn, 0, 0}, Case{TabIsoIn, 1, 0}}) {
        EnterInputScreen();
        SelectInputTab(c.Tab);
        LeaveTraces();
        AppState.Lists[static_cast<std::size_t>(c.Tab)].Selected = c.Item;
        TakeStrokes();
        KeyDispatcher(KeyEnter, 0);
        EXPECT_EQ(AppState.ScreenState, ScreenParameters) << c.Tab;
        EXPECT_EQ(AppState.ShapeId, c.ShapeId);
        EXPECT_THAT(TakeStrokes(), Contains("clear")) << "the picture of the part before is gone";
        ExpectFreshFields();
    }
}

TEST_F(Opening, ADrawingOpensFromItsListByKeyAndByDoubleClick)
{
    WriteDrawing("square.dxf");
    WriteDrawing("Tiny.DXF");
    for (const bool byKey : {true, false}) {
        EnterInputScreen();
        SelectInputTab(TabDxfIn);
        ASSERT_THAT(Texts(TabDxfIn), ElementsAre("SQUARE.DXF", "TINY.DXF"));
        ListClicked(TabDxfIn, 1);
        if (byKey) {
            ListKey(TabDxfIn, KeyF10, 0);
        } else {
            ListDoubleClicked(TabDxfIn);
        }
        EXPECT_EQ(AppState.ScreenState, ScreenParameters);
        EXPECT_EQ(AppState.ProfileCount, 1);
        EXPECT_NEAR(AppState.MaxX, 30.0, 1e-6);
    }
}

TEST_F(Opening, ADrawingOfTheOtherKindCantBeOpened)
{
    Station.Write("DXF/plate.dwg", "AC1015");
    SelectInputTab(TabDxfIn);
    TakeCalls();
    KeyDispatcher(KeyF10, 0);
    EXPECT_EQ(AppState.ScreenState, ScreenInput);
    EXPECT_THAT(TakeCalls(), ElementsAre("box text 34|text 38||one", "focus list 4"));
}

TEST_F(Opening, ANameThatBeginsAnotherIsOpenedByF10)
{
    Station.Write("NEST/arm.nst", "");
    Station.Write("NEST/armour.nst", "");
    SelectInputTab(TabPrograms);
    TakeCalls();
    ListKey(TabPrograms, KeyEnter, 0);
    EXPECT_EQ(AppState.TextFileName.Text, "ARM");
    EXPECT_THAT(TakeCalls(), ElementsAre("focus list 0")) << "two jobs begin so";
    ListKey(TabPrograms, KeyF10, 0);
    EXPECT_EQ(AppState.TextFileName.Text, "ARM");
}

// --- the job list while a name is asked for -------------------------------------------------------------------

TEST_F(Opening, ANameIsTakenFromTheListAfterTheQuestion)
{
    Station.Write("NEST/bolt.nst", "");
    OpenPlate(2);
    EnterSaveMode();
    SetText(AppState.TextFileName, "");
    FileNameKey(KeyDown, 0);
    EXPECT_EQ(LastFocus(), "focus list 0");
    Screen.BoxAnswers = {false};
    TakeCalls();
    ListKey(TabPrograms, KeyEnter, 0);
    EXPECT_THAT(TakeCalls(), ElementsAre("box BOLT|text 3|text 4|two", "yield", "focus TextFileName"));
    EXPECT_EQ(AppState.SaveMode, FlagOn);
    ListKey(TabPrograms, KeyEnter, 0);
    EXPECT_EQ(AppState.SaveMode, FlagOff);
    EXPECT_TRUE(Station.Holds("NC/BOLT.nc"));
}

TEST_F(Opening, F10InTheListSavesUnderTheTypedName)
{
    Station.Write("NEST/bolt.nst", "");
    OpenPlate(2);
    EnterSaveMode();
    SetText(AppState.TextFileName, "b");
    ListKey(TabPrograms, KeyF10, 0);
    EXPECT_TRUE(Station.Holds("NC/B.nc"));
    EXPECT_FALSE(Station.Holds("NC/BOLT.nc"));
}

TEST_F(Opening, NothingIsDeletedWhileANameIsAskedFor)
{
    Station.Write("NEST/bolt.nst", "");
    OpenPlate(2);
    EnterSaveMode();
    SetText(AppState.TextFileName, "");
    TakeCalls();
    for (const std::int16_t key : {KeyF8, KeyD, KeyDelete}) {
        ListKey(TabPrograms, key, 0);
        FileNameKey(key, 0);
    }
    EXPECT_THAT(TakeCalls(), testing::IsEmpty());
    EXPECT_TRUE(Station.Holds("NEST/bolt.nst"));
}
} // namespace
