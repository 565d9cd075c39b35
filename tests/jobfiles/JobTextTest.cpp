// The text of a job: sections, keys, order, and what comes back from them.
#include "config/JobKeys.h"
#include "jobfiles/JobFiles.h"
#include "shapes/Korvanta_Parameters.h"
#include "shell/ValueFields.h"
#include "support/Station.h"

using testing::Test;

namespace
{
class JobText : public StationCase
{
protected:
    static void WriteAll(const std::string& file)
    {
        WriteJobHeader(file);
        WriteCuttingSection(file);
        WriteNestingSection(file);
        WritePostInputSection(file);
        PutJobText(file);
    }

    static void ReadAll(const std::string& file)
    {
        ReadJobHeader(file);
        ReadCuttingSection(file);
        ReadNestingSection(file);
    }
};

TEST_F(JobText, HoldsEverythingInItsOrder)
{
    AppState.ShapeId = 1004;
    AppState.SourceName = " R_04 ";
    ShowShapeParameters(1004, FlagOn); // 300 200 150 100 40 20 20
    SetText(AppState.ParamText[7], " 10.50 ");
    SetText(AppState.ParamText[14], "1 2");
    SetText(AppState.TextCutting[FieldAngle], "30");
    SetText(AppState.TextNesting[FieldSheetX], "3000");
    AppState.LabelNesting[LabelCountX] = " 2 ";
    AppState.LabelNesting[LabelCountY] = "3";
    AppState.PprInput[1] = {'D', "0.5", "", "Thickness"};
    AppState.PprInput[2] = {'N', "left over", "", ""};
    AppState.PprInput[8] = {'T', "O2", "N2|O2", "Gas"};
    WriteAll("PLATE.nst");
    EXPECT_EQ(Station.Read("NEST/PLATE.nst"),
              "[0000]\r\nVP=2.28\r\nVL=3.00\r\n"
              "[0001]\r\nS=1004\r\nF=R_04\r\n"
              "P0=300\r\nP1=200\r\nP2=150\r\nP3=100\r\nP4=40\r\nP5=20\r\nP6=20\r\n"
              "P7=10.50\r\nP8=\r\nP9=\r\nP10=\r\nP11=\r\nP12=\r\nP13=\r\nP14=1 2\r\n"
              "[0002]\r\nV0=30\r\nV1=0\r\nV2=1\r\nV3=1\r\nV4=10\r\n"
              "V5=5\r\nV6=2\r\nV7=2\r\nV8=3\r\nV9=1\r\n"
              "[0003]\r\nV0=3000\r\nV1=0\r\nV2=0\r\nV3=10\r\nV4=10\r\nV5=1\r\n"
              "V6=2\r\nV7=1\r\nRx=2\r\nRy=3\r\n"
              "[0004]\r\nV1=0.5\r\nV2=\r\nV3=\r\nV4=\r\nV5=\r\nV6=\r\nV7=\r\nV8=O2\r\n");
    EXPECT_FALSE(Station.Holds("NEST/PLATE.nst.part"));
}

TEST_F(JobText, IsWrittenAnewEachTime)
{
    Station.Write("NEST/A.nst", "[0001]\r\nZ=1\r\n[9999]\r\nX=1\r\n");
    WriteAll("A.nst");
    const std::string text = Station.Read("NEST/A.nst");
    EXPECT_EQ(text.find("9999"), std::string::npos);
    EXPECT_EQ(text.find("Z="), std::string::npos);
}

TEST_F(JobText, OfAnImportHoldsAllParameters)
{
    ASSERT_TRUE(OpenImport(ImportKind::Program, "plate.iso"));
    WriteAll("I.nst");
    EXPECT_EQ(ReadJobKey("I.nst", "0001", "S", "?"), "0");
    EXPECT_EQ(ReadJobKey("I.nst", "0001", "F", "?"), "plate.iso");
    for (int i = 0; i < ParamFieldCount; ++i) {
        EXPECT_EQ(ReadJobKey("I.nst", "0001", "P" + std::to_string(i), "?"), "") << i;
    }
}

TEST_F(JobText, GivesTheNumbersInTheirPlainForm)
{
    Station.Write("NEST/J.nst", "[0001]\nS=3001.4\nF= Plate  one \nP0=10.50\nP1=0.5\nP2=7 mm\nP3=-0\nP4=\n"
                                "[0002]\nV0=90.0\nV1=2\nV2=0.25\nV3=4\nV4=2.50\nV9=3\n"
                                "[0003]\nV0=0100\nV2=.10\nV5=12\nV6=25\nRx=2.6\nRy=0\n");
    SetText(AppState.ParamText[5], " 5.10 ");
    SetText(AppState.TextCutting[FieldLeadInA], "8");
    ReadAll("J.nst");
    EXPECT_EQ(AppState.ShapeId, 3001);
    EXPECT_EQ(AppState.SourceName, "Plate  one");
    EXPECT_EQ(AppState.JobName, "J.nst");
    const char* parameters[] = {"10.5", ".5", "7", "0", "0", "5.1", "0"};
    for (std::size_t i = 0; i < std::size(parameters); ++i) {
        EXPECT_EQ(AppState.ParamText[i].Text, parameters[i]) << i;
    }
    const char* cutting[] = {"90", "2", ".25", "4", "2.5", "8", "2", "2", "3", "3"};
    for (std::size_t i = 0; i < CuttingFieldCount; ++i) {
        EXPECT_EQ(AppState.TextCutting[i].Text, cutting[i]) << i;
    }
    // The nest type keeps its last digit, as when it is typed.
    const char* nesting[] = {"100", "0", ".1", "10", "10", "2", "25", "1"};
    for (std::size_t i = 0; i < NestingFieldCount; ++i) {
        EXPECT_EQ(AppState.TextNesting[i].Text, nesting[i]) << i;
    }
    EXPECT_EQ(AppState.NestResultX, 3);
    EXPECT_EQ(AppState.LabelNesting[LabelCountX], "3");
    EXPECT_EQ(AppState.NestResultY, 0);
    EXPECT_EQ(AppState.LabelNesting[LabelCountY], "");
}

TEST_F(JobText, RunsTheChangeRoutinesOnTheirOwnField)
{
    static std::vector<std::int16_t> seen;
    seen.clear();
    const auto note = [](std::int16_t index) {
        EXPECT_EQ(AppState.CurrentField, index);
        seen.push_back(index);
    };
    for (ValueField& field : AppState.TextCutting) {
        field.Change = note;
    }
    AppState.CurrentField = 9;
    Station.Write("NEST/J.nst", "[0002]\nV0=7\nV1=0\nV8=7\n");
    ReadCuttingSection("J.nst");
    EXPECT_EQ(seen, (std::vector<std::int16_t>{FieldAngle, FieldLeadOutD})) << "equal texts run nothing";
    EXPECT_EQ(AppState.CurrentField, 9);
}

TEST_F(JobText, SavedAheadOfANestHasNoCounts)
{
    AppState.LabelNesting[LabelCountX] = AppState.LabelNesting[LabelCountY] = "";
    WriteAll("J.nst");
    EXPECT_EQ(ReadJobKey("J.nst", "0003", "Rx", "?"), "");
    EXPECT_EQ(ReadJobKey("J.nst", "0003", "Ry", "?"), "");
    AppState.LabelNesting[LabelCountX] = AppState.LabelNesting[LabelCountY] = "9";
    AppState.NestResultX = AppState.NestResultY = 9;
    ReadAll("J.nst");
    EXPECT_EQ(AppState.LabelNesting[LabelCountX], "");
    EXPECT_EQ(AppState.LabelNesting[LabelCountY], "");
    EXPECT_EQ(AppState.NestResultX, 0);
    EXPECT_EQ(AppState.NestResultY, 0);
}

TEST_F(JobText, LosesBlanksAtTheEndsAndWhatIsTooLong)
{
    AppState.SourceName = "  a b  ";
    WriteAll("J.nst");
    ReadAll("J.nst");
    EXPECT_EQ(AppState.SourceName, "a b");
    for (const char* name : {"'a'", "\"a b\"", "\ta", "a\t", "''", "\"", "'a\""}) {
        AppState.SourceName = name;
        WriteAll("J.nst");
        ReadAll("J.nst");
        EXPECT_EQ(AppState.SourceName, name) << "quotes and tabs belong to the name";
    }
    AppState.SourceName = std::string(60, 'f');
    WriteAll("J.nst");
    ReadAll("J.nst");
    EXPECT_EQ(AppState.SourceName, std::string(49, 'f'));
}

TEST_F(JobText, IsCutBetweenCharacters)
{
    std::string umlauts;
    for (int i = 0; i < 48; ++i) {
        umlauts += "\xC3\xA4";
    }
    AppState.SourceName = "x" + umlauts;
    WriteAll("J.nst");
    ReadAll("J.nst");
    EXPECT_EQ(AppState.SourceName, "x" + umlauts) << "49 characters";
    AppState.SourceName = "xy" + umlauts + "\xE6\x9D\xBF";
    WriteAll("J.nst");
    ReadAll("J.nst");
    EXPECT_EQ(AppState.SourceName, "xy" + umlauts.substr(0, 94));
}

TEST_F(JobText, StaysInItsLines)
{
    AppState.SourceName = "a\r\nVL=2.00\n[0002]";
    AppState.PprInput[1] = {'D', std::string("x\0y", 3), "", ""};
    WriteAll("J.nst");
    EXPECT_EQ(ReadJobKey("J.nst", "0001", "F", ""), "a  VL=2.00 [0002]");
    EXPECT_EQ(ReadJobKey("J.nst", "0002", "V2", ""), "1");
    EXPECT_EQ(ReadJobKey("J.nst", "0004", "V1", ""), "x y");
}

TEST_F(JobText, IsReadFromNothing)
{
    SetText(AppState.ParamText[0], "12");
    for (const char* text :
         {"", "[0001]", "\xFF\xFE[", "[0003]\nRx=1e300\nRy=-5\nV6=nan\n[0002]\nV0=1e999\n"}) {
        Station.Write("NEST/J.nst", text);
        ReadAll("J.nst");
        EXPECT_EQ(AppState.ShapeId, 0);
        EXPECT_EQ(AppState.SourceName, "");
        EXPECT_EQ(AppState.ParamText[0].Text, "12") << "the default is what the field shows";
    }
    EXPECT_EQ(AppState.NestResultX, 2147483647);
    EXPECT_EQ(AppState.NestResultY, -5);
    EXPECT_EQ(AppState.LabelNesting[LabelCountY], "");
    EXPECT_EQ(AppState.TextNesting[FieldSimulation].Text, "1") << "0 is below the limits of the field";
    ReadAll("NONE.nst");
}

TEST(JobNames, GetTheirExtension)
{
    EXPECT_EQ(JobFileName("PLATE"), "PLATE.nst");
    EXPECT_EQ(JobFileName("PLATE.nst"), "PLATE.nst");
    EXPECT_EQ(JobFileName("plate.NST"), "plate.NST");
    EXPECT_EQ(JobFileName("A.nstB"), "A.nstB") << "in the middle it counts, too";
    EXPECT_EQ(JobFileName("A.B"), "A.B.nst");
}
} // namespace
