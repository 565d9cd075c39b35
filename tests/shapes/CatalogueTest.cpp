#include "shapes/Korvanta_Parameters.h"
#include "shell/MsgBox_Unicode.h"
#include "shell/ValueFields.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace
{
struct CatalogueRow {
    std::int16_t ShapeId;
    const char* Name;
    const char* Parameters;
};

constexpr CatalogueRow Expected[] = {
    {1001, "R-01", "A=300 B=200 R=20"},
    {1002, "R-02", "A=200 B=300 R=20 C=100 D=100 Di=40"},
    {1003, "R-03", "A=300 B=200 X=20 Y=20"},
    {1004, "R-04", "A=300 B=200 C=150 D=100 Df=40 X=20 Y=20"},
    {1005, "R-05", "A=300 B=200 X=20 Y=20"},
    {1006, "R-06", "A=300 B=200 R=20 C=100 D=30 E=100 F=50 Ri=10"},
    {1007, "R-07", "A=300 B=200 D=50 Ri=30 Re=40"},
    {1008, "R-08", "A=300 B=200 X=20 Y=30"},
    {1009, "R-09", "A=300 B=200 C=100 D=70 Di=30 X=30 Y=20"},
    {1010, "R-10", "A=300 B=200 C=100 D=70 Di=30 X=30 Y=20"},
    {1011, "R-11", "A=200 B=300 C=20 D=30 E=100 Df=50"},
    {1012, "R-12", "A=300 B=200 C=100 P=35 L=50 X=30 Y=20"},
    {1013, "R-13", "A=300 B=200"},
    {1014, "R-14", "A=300 B=200 X=50 Y=60 D=30"},
    {1015, "R-15", "A=300 B=200 C=100 D=50 E=50 F=30"},
    {1016, "R-16", "A=300 B=200"},
    {1017, "R-17", "A=300 B=200 C=100 D=60"},
    {1018, "R-18", "A=300 B=200 C=100 D=60"},
    {1019, "R-19", "A=300 B=200 C=100 D=60 R=30"},
    {1020, "R-20", "A=200 B=300 C=30 D=30 Di=20"},
    {1021, "R-21", "A=200 B=300 C=100 D=50"},
    {1022, "R-22", "A=200 B=300 C=100 D=50 E=50"},
    {1023, "R-23", "A=200 B=300 C=20 D=30 E=50 F=150"},
    {1024, "R-24", "A=300 B=300 C=130 D=100 R1=25 R2=25"},
    {1025, "R-25", "A=300 B=300 C=30 D=30 D1=25 E=150 F=150 D2=100"},
    {1026, "R-26", "A=200 B=300 R=20"},
    {1027, "R-27", "A=200 B=300 R=20"},
    {1028, "R-28", "A=300 B=300 C=100 D=70 E=70 R=30"},
    {1029, "R-29", "A=200 B=300 C=20 D=30 E=40 F=35 G=10 H=15 I=15 L=10"},
    {1030, "R-30", "A=300 B=300 R=30 C=30 D=30 Di=20"},
    {1031, "R-31", "A=300 B=300 C=130 D=150 E=50 F=50 Ri=50 Re=40"},
    {1032, "R-32", "A=300 B=300 C=30 D=30 E=25 F=30 G=10 H=15 I=100 R1=20 R2=40 R3=20"},
    {1033, "R-33", "A=300 B=200 C=30 D=30 R1=40 R2=50"},
    {1034, "R-34", "A=300 B=200 C=50 D=50 E=50 Re=15 Ri=20"},
    {1035, "R-35", "A=200 B=300 C=30 D=30 E=80 F=180 Di=20 Nx=4 Ny=3"},
    {1036, "R-36", "A=300 R=5"},
    {1037, "R-37", "A=100 B=150 C=-20 D=100 R1=30 R2=20 R3=15"},
    {1038, "R-38", "A=200 B=300 C=150"},
    {1039, "R-39", "A=400 B=250 X=50 Y=50 L=50"},
    {1040, "R-40", "A=400 B=600 L=5 Offset=0"},
    {1041, "R-41", "A=400 B=600 R=20 L=10 LR=5 Tail=0 Swap=0"},
    {2001, "C-01", "A=200"},
    {2002, "C-02", "A=100 B=80"},
    {2003, "C-03", "A=100 B=50 Df=75 D=10 Nr=6"},
    {2004, "C-04", "A=100 B=150 R=40 D=50"},
    {2005, "C-05", "A=150 B=200 R=40 D=50"},
    {2006, "C-06", "A=200 B=200 C=40 R=40 D=50"},
    {2007, "C-07", "A=200 B=200 C=40 D=160 R=40 Di=60"},
    {2008, "C-08", "A=150 B=200 D=70"},
    {2009, "C-09", "A=200 B=150 C=100 D=40"},
    {2010, "C-10", "A=200 B=150 C=100 D=40"},
    {2011, "C-11", "B=200 R1=150 R2=80 D1=150 D2=80"},
    {2012, "C-12", "B=500 R1=150 R2=80 D1=250 D2=130"},
    {2013, "C-13", "B=500 R1=150 R2=80 R3=400 D1=220 D2=110"},
    {2014, "C-14", "A=110 Ri=100 Re=200"},
    {2015, "C-15", "A=100 Ri=150 Re=200"},
    {2016, "C-16", "A=100 B=50 C=100 Ri=150 Re=200"},
    {2017, "C-17", "B=200 R1=150 R2=100"},
    {2018, "C-18", "A=50 B=300 R1=80 R2=70 D1=80 D2=70"},
    {2019, "C-19", "A=50 B=300 Di=100 De=200"},
    {2020, "C-20", "A=250 D=300"},
    {2021, "C-21", "A=50 B=100 D=300"},
    {2022, "C-22", "A=150 B=300 P=10"},
    {2023, "C-23", "A=150 B=300 R1=50 R2=50 R3=50 R4=50"},
    {2024, "C-24", "D1e=200 D1i=100 D2e=80 D2i=40"},
    {2025, "C-25", "A=200 L=10 LR=10 Tail=0 Swap=0"},
    {2026, "C-26", "A=200 B=80 L=10 LR=10 Tail=0 Swap=0"},
    {3001, "H-01", "D=100"},
    {3002, "H-02", "A=50 B=100 R=5"},
    {3003, "H-03", "A=100 R=5"},
};

/// "A=300 B=200" of a row, from the catalogue.
std::string ParametersText(const ShapeRow& row)
{
    std::string text;
    for (int i = 0; i < ParameterCount(row); ++i) {
        const double value = row.Parameters[i].Default;
        EXPECT_EQ(value, static_cast<double>(static_cast<int>(value))) << row.Name;
        text += (i == 0 ? "" : " ") + std::string(row.Parameters[i].Letter) + "=" +
                std::to_string(static_cast<int>(value));
    }
    return text;
}

/// "A=300 B=200" of the visible fields. Fails when a hidden one stands before a visible one.
std::string FieldsText()
{
    std::string text;
    bool ended = false;
    for (std::size_t i = 0; i < AppState.ParamText.size(); ++i) {
        if (AppState.ParamText[i].Visible == 0) {
            ended = true;
            continue;
        }
        EXPECT_FALSE(ended) << i;
        text += (i == 0 ? "" : " ") + AppState.ParamLabel[i] + "=" + AppState.ParamText[i].Text;
    }
    return text;
}

/// English, from the station's own catalogue.
void LoadStationMessages()
{
    AppState.AppPath = KORVANTA_SOURCE_DIR "/station";
    AppState.Language = 1;
    LoadMessages();
}

struct Catalogue : testing::Test {
    void SetUp() override
    {
        StartCase();
    }
};
} // namespace

TEST_F(Catalogue, HoldsSeventyShapesInTheOrderOfTheLists)
{
    ASSERT_EQ(ShapeCatalogue().size(), std::size(Expected));
    ASSERT_EQ(std::size(Expected), 70U);
    for (std::size_t i = 0; i < std::size(Expected); ++i) {
        const ShapeRow& row = ShapeCatalogue()[i];
        EXPECT_EQ(row.ShapeId, Expected[i].ShapeId);
        EXPECT_STREQ(row.Name, Expected[i].Name);
        EXPECT_EQ(ParametersText(row), Expected[i].Parameters) << row.Name;
    }
}

TEST_F(Catalogue, LettersOfAShapeDiffer)
{
    for (const ShapeRow& row : ShapeCatalogue()) {
        std::set<std::string> letters;
        for (int i = 0; i < ParameterCount(row); ++i) {
            EXPECT_TRUE(letters.insert(row.Parameters[i].Letter).second) << row.Name;
        }
    }
}

TEST_F(Catalogue, FindsAShapeByItsIdentifier)
{
    EXPECT_STREQ(FindShape(1007)->Name, "R-07");
    EXPECT_STREQ(FindShape(2013)->Name, "C-13");
    EXPECT_STREQ(FindShape(3002)->Name, "H-02");
    for (const int id : {0, -1, 1, 11, 69, 999, 1000, 1042, 2000, 2027, 3000, 3004, 4001}) {
        EXPECT_EQ(FindShape(static_cast<std::int16_t>(id)), nullptr) << id;
    }
}

TEST_F(Catalogue, FindsAnIdentifierByTheTextOfTheLists)
{
    EXPECT_EQ(ShapeIdOfName("R-07"), 1007);
    EXPECT_EQ(ShapeIdOfName("R-41"), 1041);
    EXPECT_EQ(ShapeIdOfName("C-13"), 2013);
    EXPECT_EQ(ShapeIdOfName("H-02"), 3002);
    for (const char* name :
         {"", "R", "R-", "R-7", "R-00", "R-42", "C-27", "H-04", "r-07", "R_07", "R-07 ", "X-01"}) {
        EXPECT_EQ(ShapeIdOfName(name), 0) << name;
    }
}

TEST_F(Catalogue, ShowsEachShapeWithItsDefaults)
{
    LoadStationMessages();
    for (const ShapeRow& row : ShapeCatalogue()) {
        ShowShapeParameters(row.ShapeId, FlagOn);
        std::string expected = ParametersText(row);
        // These two show messages 22 and 38 instead of their words.
        if (const std::size_t at = expected.find("Tail="); at != std::string::npos) {
            expected = expected.substr(0, at) + "LeadOut=0 Profiles out of order?=0";
        }
        EXPECT_EQ(FieldsText(), expected) << row.Name;
    }
}

TEST_F(Catalogue, CaptionsFollowTheLanguage)
{
    LoadStationMessages();
    AppState.Language = 3;
    ShowShapeParameters(1041, FlagOn);
    EXPECT_EQ(FieldsText(), "A=400 B=600 R=20 L=10 LR=5 Auslauf=0 Konturen in Unordnung?=0");
    ShowShapeParameters(2025, FlagOn);
    EXPECT_EQ(FieldsText(), "A=200 L=10 LR=10 Auslauf=0 Konturen in Unordnung?=0");
}

TEST_F(Catalogue, KeepsTheTextsOfALoadedJob)
{
    for (ValueField& field : AppState.ParamText) {
        field.Text = "7.5";
    }
    ShowShapeParameters(1005, FlagOff);
    EXPECT_EQ(FieldsText(), "A=7.5 B=7.5 X=7.5 Y=7.5");
    EXPECT_EQ(AppState.ParamText[4].Text, "7.5");
}

TEST_F(Catalogue, HidesTheFieldsOfTheShapeBefore)
{
    ShowShapeParameters(1032, FlagOn);
    EXPECT_EQ(AppState.ParamText[11].Visible, FlagOn);
    EXPECT_EQ(AppState.ParamText[12].Visible, FlagOff);
    ShowShapeParameters(2001, FlagOn);
    EXPECT_EQ(FieldsText(), "A=200");
    EXPECT_EQ(AppState.ParamText[1].Text, "300"); // B of R-32: a hidden field keeps its text
}

TEST_F(Catalogue, ShowsNoFieldWithoutARow)
{
    for (const int id : {0, -3, 11, 69, 1042, 2027, 3004}) {
        ShowShapeParameters(1005, FlagOn);
        ShowShapeParameters(static_cast<std::int16_t>(id), FlagOn);
        EXPECT_EQ(FieldsText(), "") << id;
        EXPECT_EQ(AppState.ParamText[0].Text, "300") << id;
    }
}
