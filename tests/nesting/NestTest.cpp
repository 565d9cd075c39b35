// The nest: sheet entries, counts, and the copies in the order of the program.
#include "nesting/Korvanta_CutTecnology.h"

#include "config/Korvanta_Configuration.h"
#include "platform/Fault.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shell/ValueFields.h"
#include "support/LeadParts.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace
{
constexpr double Near = 1e-9;

class Nest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        StartCase();
        HoldConfigWrites();
        AppState.ScreenState = ScreenNesting;
        AppState.Redraw = RedrawScene;
    }

    /// An open rectangle's worth of part: three sides of a box of this size.
    static void MakePart(double sizeX, double sizeY)
    {
        AddLines({{0, 0}, {sizeX, 0}, {sizeX, sizeY}, {0, sizeY}});
        AddEnd(KindOuterEnd, 0);
        MeasureProfiles(FlagOn);
        ComputeBounds();
        InitLeadData();
        AppState.PartSizeX = sizeX;
        AppState.PartSizeY = sizeY;
    }

    static void Type(NestingField field, const std::string& text)
    {
        AppState.TextNesting[static_cast<std::size_t>(field)].Text = text;
    }

    static void TypeAll(const char* sheetX, const char* sheetY, const char* kerf, const char* gapX,
                        const char* gapY, const char* kind = "1")
    {
        Type(FieldSheetX, sheetX);
        Type(FieldSheetY, sheetY);
        Type(FieldKerf, kerf);
        Type(FieldGapX, gapX);
        Type(FieldGapY, gapY);
        Type(FieldNestType, kind);
    }

    static std::string Text(NestingField field)
    {
        return AppState.TextNesting[static_cast<std::size_t>(field)].Text;
    }

    static std::string Label(NestingField label)
    {
        return AppState.LabelNesting[static_cast<std::size_t>(label)];
    }
};

// --- entries of the sheet ----------------------------------------------------------------------------------

TEST_F(Nest, CountEntry)
{
    struct Row {
        const char* Text;
        double Pitch;
        const char* Result;
        std::int32_t Count;
    };
    const Row rows[] = {
        {"*5", 33.3, "167", 5},                        // 166.5 rounded up
        {"*3", 111, "333", 3},  {"*2.9", 10, "20", 2}, // towards zero
        {"*", 10, "0", 0},      {"*x", 10, "0", 0},      {"*-2", 10.5, "-21", -2}, {"500", 33.3, "500", 0},
        {"", 33.3, "", 0},      {" *5", 33.3, " *5", 0}, // the star comes first or not at all
        {"5*", 33.3, "5*", 0},
    };
    for (const Row& row : rows) {
        std::int32_t count = 77;
        EXPECT_EQ(ParseCountEntry(row.Text, row.Pitch, count), row.Result) << row.Text;
        EXPECT_EQ(count, row.Count) << row.Text;
    }
    std::int32_t count = 0;
    EXPECT_THROW(ParseCountEntry("*5", 0.0, count), RunTimeFault);
    EXPECT_EQ(ParseCountEntry("50", 0.0, count), "50");
    ParseCountEntry("*99999999999", 1.0, count);
    EXPECT_EQ(count, std::numeric_limits<std::int32_t>::max());
}

TEST_F(Nest, EntriesFixTheCounts)
{
    MakePart(100, 50);
    TypeAll("*3", "*2", "0.5", "10", "10");
    ApplySheetEntries(FieldSheetX);
    EXPECT_EQ(Text(FieldSheetX), "333"); // 3 x (100 + 10 + 1)
    EXPECT_EQ(Text(FieldSheetY), "122"); // 2 x (50 + 10 + 1)
    EXPECT_EQ(AppState.NestResultX, 3);
    EXPECT_EQ(AppState.NestResultY, 2);
    EXPECT_EQ(Label(LabelCountX), "3");
    EXPECT_EQ(Label(LabelCountY), "2");
}

TEST_F(Nest, PlainNumberReleasesItsOwnCountOnly)
{
    MakePart(100, 50);
    TypeAll("400", "300", "0", "10", "10");
    AppState.NestResultX = 3;
    AppState.NestResultY = 2;
    AppState.LabelNesting[LabelCountX] = "3";
    AppState.LabelNesting[LabelCountY] = "2";
    ApplySheetEntries(FieldSheetY);
    EXPECT_EQ(AppState.NestResultX, 3);
    EXPECT_EQ(AppState.NestResultY, 0);
    EXPECT_EQ(Label(LabelCountX), "3");
    EXPECT_EQ(Label(LabelCountY), "");
    ApplySheetEntries(FieldSheetX);
    EXPECT_EQ(AppState.NestResultX, 0);
    EXPECT_EQ(Label(LabelCountX), "");
    EXPECT_EQ(Text(FieldSheetX), "400");
}

TEST_F(Nest, SheetIsNeverBelowOneCell)
{
    MakePart(100, 50);
    TypeAll("30", "30", "2", "10", "-3");
    ApplySheetEntries(FieldSheetX);
    EXPECT_EQ(Text(FieldSheetX), "114");
    EXPECT_EQ(Text(FieldSheetY), "51");
}

TEST_F(Nest, SheetIsRaisedToThePartOnEntry)
{
    MakePart(100, 50);
    TypeAll("0", "80", "2", "10", "5");
    AppState.CurrentProfile = 1;
    RunNesting();
    EXPECT_EQ(Text(FieldSheetX), "112") << "one kerf here";
    EXPECT_EQ(Text(FieldSheetY), "80");
    EXPECT_EQ(AppState.CurrentProfile, 0);
    EXPECT_EQ(AppState.PartSizeX, 100.0);
    EXPECT_EQ(AppState.CountX, 1);
    EXPECT_EQ(AppState.CountY, 1); // 80 / 59
    EXPECT_EQ(AppState.CopiesDrawn, 1);
    EXPECT_NEAR(AppState.ViewLeft, -10, Near) << "the view was fitted";
}

TEST_F(Nest, FixedCountsKeepTheirSheet)
{
    MakePart(100, 50);
    TypeAll("0", "0", "0.5", "10", "10");
    AppState.NestResultX = 3;
    AppState.NestResultY = 4;
    AppState.NestFieldTouched = FlagOn;
    RebuildNest();
    EXPECT_EQ(Text(FieldSheetX), "333");
    EXPECT_EQ(Text(FieldSheetY), "252"); // 4 x (50 + 10 + 0.5) + 10
    EXPECT_EQ(AppState.NestFieldTouched, FlagOff);
    AppState.NestKind = 3;
    RebuildNest();
    EXPECT_EQ(Text(FieldSheetY), "219.57"); // 242 x 0.866 + 10 = 219.572
}

// --- counts ------------------------------------------------------------------------------------------------

TEST_F(Nest, WholeCopiesFit)
{
    MakePart(40, 40);
    TypeAll("100", "149.99", "0", "10", "10");
    ComputeLayout();
    EXPECT_EQ(AppState.NestKind, 1);
    EXPECT_EQ(AppState.GapX, 10.0);
    EXPECT_EQ(AppState.CountX, 2);
    EXPECT_EQ(AppState.CountY, 2);
    EXPECT_EQ(Label(LabelCountX), "2");
    EXPECT_EQ(Label(LabelCountY), "2");
}

TEST_F(Nest, GapHoldsTwoKerfs)
{
    MakePart(40, 40);
    TypeAll("100", "100", "1.5", "10", "0");
    ComputeLayout();
    EXPECT_EQ(AppState.GapX, 13.0);
    EXPECT_EQ(AppState.GapY, 3.0);
    EXPECT_EQ(AppState.CountX, 1);
    EXPECT_EQ(AppState.CountY, 2);
}

TEST_F(Nest, GapsWithoutKerfAreThoseTyped)
{
    MakePart(40, 40);
    TypeAll("100", "100", "0", "7", "-5");
    ComputeLayout();
    EXPECT_EQ(AppState.GapX, 7.0);
    EXPECT_EQ(AppState.GapY, -5.0) << "overlapping copies are allowed";
    EXPECT_EQ(AppState.CountY, 2); // 100 / 35
}

TEST_F(Nest, FixedColumnsAreRounded)
{
    MakePart(23.3, 10);
    TypeAll("*5", "100", "0", "10", "0");
    ApplySheetEntries(FieldSheetX);
    EXPECT_EQ(Text(FieldSheetX), "167");
    ComputeLayout();
    EXPECT_EQ(AppState.CountX, 5);
    Type(FieldSheetX, "166.4"); // 4.997 of them: a text cut to two places
    ComputeLayout();
    EXPECT_EQ(AppState.CountX, 5);
    AppState.NestResultX = 0;
    ComputeLayout();
    EXPECT_EQ(AppState.CountX, 4);
}

TEST_F(Nest, FixedRowsWriteTheSheet)
{
    MakePart(40, 33.3);
    TypeAll("100", "1", "1", "10", "5");
    AppState.NestResultY = 3;
    ComputeLayout();
    EXPECT_EQ(Text(FieldSheetY), "123"); // 2 x (33.3 + 7) + 33.3 + 10 = 123.9, cut
    EXPECT_EQ(AppState.CountY, 3);
    EXPECT_EQ(Label(LabelCountY), "3");
    Type(FieldNestType, "4");
    ComputeLayout();
    EXPECT_EQ(Text(FieldSheetY), "114"); // 2 x (28.8378 + 7) + 43.3 = 114.9756, cut
}

TEST_F(Nest, StaggeredRowsStandCloser)
{
    MakePart(40, 40);
    TypeAll("100", "100", "0", "0", "0", "3");
    ComputeLayout();
    EXPECT_EQ(AppState.NestKind, 3);
    EXPECT_EQ(AppState.CountY, 2); // 100 / 34.64
    Type(FieldSheetY, "104");
    ComputeLayout();
    EXPECT_EQ(AppState.CountY, 3); // 3.002
}

TEST_F(Nest, TypeIsClamped)
{
    MakePart(40, 40);
    for (const auto& [text, kind] : {std::pair{"0", 1}, {"-3", 1}, {"9", 4}, {"2.5", 3}, {"", 1}}) {
        TypeAll("100", "100", "0", "0", "0", text);
        ComputeLayout();
        EXPECT_EQ(AppState.NestKind, kind) << text;
    }
}

TEST_F(Nest, CountsAreAtLeastOneAndAtMostWhatTheyHold)
{
    MakePart(40, 40);
    TypeAll("30", "30", "0", "-60", "0");
    ComputeLayout();
    EXPECT_EQ(AppState.CountX, 1) << "a pitch below 0 fits once";
    EXPECT_EQ(AppState.CountY, 1);
    TypeAll("1e15", "100", "0", "-39", "0");
    ComputeLayout();
    EXPECT_EQ(AppState.CountX, std::numeric_limits<std::int32_t>::max());
}

TEST_F(Nest, CopiesOnOnePlaceAreAFault)
{
    MakePart(40, 30);
    TypeAll("100", "100", "0", "-40", "0");
    EXPECT_THROW(ComputeLayout(), RunTimeFault);
    TypeAll("100", "100", "5", "0", "-40");
    EXPECT_THROW(ComputeLayout(), RunTimeFault);
    AppState.NestResultY = 2; // nothing is divided then, but both rows would be cut on one place
    EXPECT_THROW(ComputeLayout(), RunTimeFault);
    TypeAll("100", "100", "5", "0", "-39.99");
    EXPECT_NO_THROW(ComputeLayout());
}

TEST_F(Nest, CopiesApartByRoundingAloneAreAFault)
{
    MakePart(40.00000000000001, 30); // as a turned part measures
    TypeAll("100", "100", "0", "-40", "0");
    EXPECT_THROW(ComputeLayout(), RunTimeFault);
    MakePart(40, 30.00000000000001);
    TypeAll("100", "100", "0", "0", "-30");
    EXPECT_THROW(ComputeLayout(), RunTimeFault);
}

TEST_F(Nest, OtherScreensShowOneCopy)
{
    MakePart(40, 40);
    TypeAll("100", "100", "1", "10", "10", "2");
    ComputeLayout();
    AppState.ScreenState = ScreenCutting;
    ComputeLayout();
    EXPECT_EQ(AppState.CountX, 1);
    EXPECT_EQ(AppState.CountY, 1);
    EXPECT_EQ(AppState.GapX, 0.0);
    EXPECT_EQ(AppState.GapY, 0.0);
    EXPECT_EQ(AppState.NestKind, 2) << "the type stands";
}

// --- what a redraw does --------------------------------------------------------------------------------------

TEST_F(Nest, PartWithoutSizeLeavesTheCounts)
{
    MakePart(0.009, 0.009);
    TypeAll("100", "100", "0", "0", "0");
    AppState.CountX = 7;
    AppState.CountY = 8;
    AppState.NestKind = 1;
    RedrawScene(FlagOn);
    EXPECT_EQ(AppState.CountX, 7);
    EXPECT_EQ(AppState.CountY, 8);
    EXPECT_EQ(AppState.CopiesDrawn, 56);
    EXPECT_EQ(AppState.ViewWidth, 0.0);
}

TEST_F(Nest, RedrawFitsTheSheetOrThePart)
{
    MakePart(40, 30);
    TypeAll("400", "300", "0", "0", "0");
    RedrawScene(FlagOff);
    EXPECT_EQ(AppState.ViewWidth, 0.0);
    RedrawScene(FlagOn);
    EXPECT_NEAR(AppState.ViewWidth, 424, Near); // -4 to 420
    EXPECT_EQ(AppState.CopiesDrawn, 100);
    AppState.ScreenState = ScreenCutting;
    RedrawScene(FlagOn);
    EXPECT_NEAR(AppState.ViewWidth, 46, Near); // -4 to 42
    EXPECT_EQ(AppState.CopiesDrawn, 1);
}

TEST_F(Nest, StatisticsOfSixCopies)
{
    MakePart(40, 40);
    TypeAll("150", "100", "0", "10", "10");
    RedrawScene(FlagOn);
    EXPECT_EQ(AppState.CopiesDrawn, 6);
}

TEST_F(Nest, OtherScreensAreNotRedrawn)
{
    MakePart(40, 40);
    AppState.ScreenState = ScreenParameters;
    AppState.CopiesDrawn = 5;
    RedrawScene(FlagOn);
    EXPECT_EQ(AppState.CopiesDrawn, 5);
    EXPECT_EQ(AppState.ProfileTable[1].Status, LeadNormal) << "no lead point was looked for";
}

TEST_F(Nest, SecondCopySeesTheLeadThatTheFirstMoved)
{
    MakeSquare(LibraryClass);
    ComputeBounds();
    ProfileRecord& record = AppState.ProfileTable[1];
    TypeAll("100", "100", "0", "0", "0");
    record.LeadPosition = 1000.0;
    RedrawScene(FlagOn); // one copy: the lead stands in the middle of the last side
    EXPECT_EQ(AppState.CopiesDrawn, 1);
    EXPECT_EQ(record.LeadPosition, 50.0);
    EXPECT_EQ(record.LeadElement, 4);
    TypeAll("200", "100", "0", "0", "0");
    record.LeadPosition = 1000.0;
    RedrawScene(FlagOn); // two copies: the second took 50 for a place on the first side
    EXPECT_EQ(AppState.CopiesDrawn, 2);
    EXPECT_EQ(record.LeadElement, 1);
}

TEST_F(Nest, NoCopyOnTheSheetFindsNoLead)
{
    MakeSquare(ImportedClass);
    ComputeBounds();
    TypeAll("50", "50", "0", "0", "0", "3");
    RedrawScene(FlagOn);
    EXPECT_EQ(AppState.CopiesDrawn, 0);
    EXPECT_EQ(AppState.ProfileTable[1].Status, LeadNormal);
    TypeAll("100", "100", "0", "0", "0", "3");
    RedrawScene(FlagOn);
    EXPECT_EQ(AppState.CopiesDrawn, 1);
    EXPECT_EQ(AppState.ProfileTable[1].Status, LeadStraight);
}

TEST_F(Nest, AbsurdFieldsEndNothing)
{
    MakePart(40, 40);
    for (const char* kind : {"1", "2", "3", "4"}) {
        for (const char* text : {"1e308", "-1e308", "99999", "1e-300", "x"}) {
            TypeAll(text, text, text, text, text, kind);
            EXPECT_NO_THROW(RunNesting());
            TypeAll("99999", "99999", "0", "-39.9999", "-39.9999", kind);
            EXPECT_NO_THROW(RedrawScene(FlagOn));
            EXPECT_TRUE(std::isfinite(AppState.GapX) && std::isfinite(AppState.ViewWidth));
        }
    }
}
} // namespace
