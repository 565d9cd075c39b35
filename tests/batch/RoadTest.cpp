// The road of one part through the real program: fields, keys, screens, and what comes out.
#include "BatchRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

namespace
{
TEST(Road, WritesAProgram)
{
    const BatchStation station;
    const BatchResult result = station.Run({"box.iso", "--program", "BOX"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Errors, "warning: the post-processor table " + station.Folder.Path +
                                 "/PPR.ini isn't there: the program has no words of a control\n");
    EXPECT_EQ(result.Output,
              "Copies: 1\nPierces: 1\nCutting length: 300\nProgram: " + station.Folder.Path + "/NC/BOX\n");
    // The corner at 0, 0 stands at half the gap of 10; the box is cut clockwise; the lead of 10 + 5 is straight, along
    // the first side, since it is within 1.5 move steps of the corner.
    EXPECT_EQ(station.Folder.Read("NC/BOX"), "N10 G01 X5.000 Y5.000 \r\n"
                                             "N20 G01 X5.000 Y55.000 \r\n"
                                             "N30 G01 X105.000 Y55.000 \r\n"
                                             "N40 G01 X105.000 Y5.000 \r\n"
                                             "N50 G01 X5.000 Y5.000 \r\n");
    EXPECT_FALSE(station.Folder.Holds("NC/BOX.part"));
}

TEST(Road, WritesTheCompensationSideOfAProgramWithSides)
{
    const BatchStation station;
    station.Folder.Write("NC/sided.iso", "G0 X0 Y0\nG1 G42 X100\nY50\nX0\nY0\n");
    ASSERT_EQ(station.Run({"sided.iso", "--program", "S.iso"}).Status, 0);
    EXPECT_THAT(station.Folder.Read("NC/S"),
                HasSubstr("N10 G01 G41 X5.000 Y5.000 \r\nN20 G01 X5.000 Y55.000 \r\n"));
}

TEST(Road, NamesTheProgramByTheTable)
{
    const BatchStation station;
    station.Folder.Write("PPR.ini", "[PartProgram_CONFIG]\nFILE_EXTENSION=cnc\nLINENUMBER=OFF\n"
                                    "[PartProgram_BEGIN]\nLINE1=(*filename)\n");
    const json state =
        station.State({"box.iso", "--program", "A.B.iso", "--out", station.Folder.Path + "/a/b"});
    EXPECT_EQ(state["Program"]["Name"], "A.cnc");
    EXPECT_EQ(state["Program"]["Path"], station.Folder.Path + "/a/b/A.cnc");
    EXPECT_EQ(state["Program"]["Lines"], 6);
    EXPECT_EQ(station.Folder.Read("a/b/A.cnc").substr(0, 9), "(A.cnc)\r\n");
    EXPECT_FALSE(station.Folder.Holds("NC/A.cnc"));
}

TEST(Road, TakesTheOutFolderFromTheWorkingFolder)
{
    const BatchStation station;
    ASSERT_EQ(station.Run({"box.iso", "--program", "B", "--out", "made/here"}, "", "NC").Status, 0);
    EXPECT_TRUE(station.Folder.Holds("NC/made/here/B"));
}

TEST(Road, NestsCopies)
{
    const BatchStation station;
    const json state =
        station.State({"plate.iso", "--set", "Kerf=0.5", "--set", "X Sheet=*3", "--set", "Y Sheet=150"});
    // Pitch X 100 + 10 + 1 = 111, pitch Y 50 + 10 + 1 = 61; first cell at 0.5 + 5.
    EXPECT_EQ(state["TextNesting"], (json{"333", "150", "0.5", "10", "10", "1", "15", "1"}));
    EXPECT_EQ(state["LabelNesting"], (json{{"8", "3"}, {"9", "2"}}));
    const json& nest = state["Nest"];
    EXPECT_EQ(nest["NestKind"], 1);
    EXPECT_EQ(nest["PartSizeX"], 100.0);
    EXPECT_EQ(nest["PartSizeY"], 50.0);
    EXPECT_EQ(nest["GapX"], 11.0);
    EXPECT_EQ(nest["GapY"], 11.0);
    EXPECT_EQ(nest["CountX"], 3);
    EXPECT_EQ(nest["CountY"], 2);
    EXPECT_EQ(nest["NestResultX"], 3);
    EXPECT_EQ(nest["NestResultY"], 0);
    EXPECT_EQ(nest["Copies"],
              json::parse("[[5.5,5.5],[116.5,5.5],[227.5,5.5],[227.5,66.5],[116.5,66.5],[5.5,66.5]]"));
    EXPECT_TRUE(state["Program"].is_null());
}

TEST(Road, CountsCopiesPiercesAndLength)
{
    const BatchStation station;
    const BatchResult result = station.Run({"plate.iso", "--set", "X Sheet=*2", "--set", "Y Sheet=*2"});
    EXPECT_EQ(result.Output, "Copies: 4\nPierces: 8\nCutting length: 1440\n");
    EXPECT_EQ(station.Run({"plate.iso", "--quiet"}).Output, "");
}

TEST(Road, DoesFieldsAndKeysInTheOrderGiven)
{
    const BatchStation station;
    const json state = station.State({"--set", "Profile nr.=2", "--set", "Move Step=20", "--key",
                                      "MoveLeadPlus", "--set", "Move Step=5", "--key", "MoveLeadPlus",
                                      "--key", "MoveLeadPlus", "--key", "MoveLeadMinus", "plate.iso"});
    EXPECT_EQ(state["ProfileTable"][1]["LeadPosition"], 10.0 + 20.0 + 5.0);
    EXPECT_EQ(state["ProfileTable"][0]["LeadPosition"], 10.0);
    EXPECT_EQ(state["TextCutting"], (json{"0", "0", "1", "2", "5", "10", "5", "0", "0", "1"}));
}

TEST(Road, GivesLeadFieldsToTheChosenProfile)
{
    const BatchStation station;
    const json state = station.State({"plate.iso", "--set", "Profile nr.=2", "--set", "LeadIn : A=8", "--set",
                                      "LeadOut : C=3", "--set", "LeadOut : D=2000", "--set", "LeadIn : B=0"});
    const json& chosen = state["ProfileTable"][1];
    EXPECT_EQ(chosen["LeadInLength"], 8.0);
    EXPECT_EQ(chosen["LeadInArcOn"], 0);
    EXPECT_EQ(chosen["LeadInLineOn"], -1);
    EXPECT_EQ(chosen["LeadOutLength"], 3.0);
    EXPECT_EQ(chosen["LeadOutRadius"], 999.0) << "the limit of the field";
    EXPECT_EQ(state["ProfileTable"][0]["LeadInLength"], 10.0);
    const json copied =
        station.State({"plate.iso", "--set", "Profile nr.=2", "--set", "LeadIn : A=8", "--key", "CopyLeads"});
    EXPECT_EQ(copied["ProfileTable"][0]["LeadInLength"], 8.0);
}

TEST(Road, KeepsTheChosenProfileAcrossScreens)
{
    const BatchStation station;
    const json state = station.State(
        {"plate.iso", "--set", "Profile nr.=2", "--set", "X Sheet=500", "--set", "LeadIn : A=7"});
    EXPECT_EQ(state["ProfileTable"][0]["LeadInLength"], 10.0);
    EXPECT_EQ(state["ProfileTable"][1]["LeadInLength"], 7.0);
    EXPECT_EQ(state["TextNesting"][0], "500");
    EXPECT_EQ(state["Nest"]["CountX"], 4) << "500 / 110";
}

TEST(Road, ChecksValuesLikeTheStation)
{
    const BatchStation station;
    const json state = station.State({"box.iso", "--set", "Angle=400", "--set", "Scale=-3", "--set",
                                      "Mirror=9", "--set", "Nesting=17", "--set", "Kerf=abc", "--set",
                                      "X Gap=-10000", "--set", "Y Gap=0.129", "--set", "y sheet = 99"});
    EXPECT_EQ(state["TextCutting"][0], "360");
    EXPECT_EQ(state["TextCutting"][1], "4");
    EXPECT_EQ(state["TextCutting"][2], ".01");
    EXPECT_EQ(state["TextNesting"][2], "0");
    EXPECT_EQ(state["TextNesting"][3], "-9999");
    EXPECT_EQ(state["TextNesting"][4], "0.13");
    EXPECT_EQ(state["TextNesting"][5], "4");
    EXPECT_EQ(state["TextNesting"][1], "99");
}

TEST(Road, TurnsMirrorsAndScales)
{
    const BatchStation station;
    const json state =
        station.State({"plate.iso", "--set", "Angle=90", "--set", "Scale=2", "--set", "Mirror=1"});
    EXPECT_NEAR(state["MaxX"], 100.0, 1e-9);
    EXPECT_NEAR(state["MaxY"], 200.0, 1e-9);
    EXPECT_NEAR(state["TotalCutLength"], 720.0, 1e-9);
    EXPECT_EQ(state["ShadowElements"][0]["StartX"], 40.0) << "the shadow stays as imported";
}

TEST(Road, PressesThePathKeys)
{
    const BatchStation station;
    const json turned = station.State({"box.iso", "--key", "PrfPathChange"});
    EXPECT_EQ(turned["ElementTable"][4]["Closing"], 1);
    EXPECT_EQ(turned["ElementTable"][4]["GeoB"], 5000.0);
    const json next = station.State({"box.iso", "--key", "MoveLeadNextElem"});
    EXPECT_EQ(next["ProfileTable"][0]["LeadPosition"], 51.0) << "one unit into the second side";
    // The cursor starts at the lead-in, 15 below the corner; 10 further it stands at -5.
    const json cursor = station.State({"box.iso", "--key", "OTLeft", "--key", "OTLeft"});
    EXPECT_NEAR(cursor["Nest"]["Copies"][0][0], 0.0, 1e-9);
    EXPECT_NEAR(cursor["Nest"]["Copies"][0][1], 5.0, 1e-9);
    const json off = station.State({"box.iso", "--key", "OTLeft", "--key", "OTRgt"});
    EXPECT_EQ(off["Nest"]["Copies"], json::parse("[[5.0,5.0]]"));
}

TEST(Road, WarnsOfANestWithoutACopy)
{
    const BatchStation station;
    // The raised sheet is 110 x 60; a staggered row wants 5 + 50 + 10 in height.
    const BatchResult result = station.Run({"box.iso", "--set", "Nesting=3", "--program", "NONE", "--quiet"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Errors, HasSubstr("holds no copy"));
    EXPECT_EQ(station.Folder.Read("NC/NONE"), "");
    EXPECT_THAT(station.Run({"box.iso", "--set", "Nesting=3", "--set", "Y Sheet=65"}).Errors,
                Not(HasSubstr("no copy")));
}

TEST(Road, TellsOpenProfiles)
{
    const BatchStation station;
    station.Folder.Write("NC/open.iso", "G0 X10 Y10\nG1 X20\nY40\n");
    const BatchResult result = station.Run({"open.iso"});
    EXPECT_THAT(result.Errors, HasSubstr("warning: profile 1 is open by 31.62 at 20, 40\n"));
    EXPECT_EQ(station.Run({"open.iso", "--quiet"}).Errors, result.Errors) << "quiet keeps the warnings";
    const json state = station.State({"open.iso"});
    ASSERT_EQ(state["Import"]["Open"].size(), 1U);
    EXPECT_EQ(state["Import"]["Open"][0]["Profile"], 1);
    EXPECT_NEAR(state["Import"]["Open"][0]["Gap"], 31.6227766016838, 1e-9);
    EXPECT_EQ(state["Import"]["Open"][0]["X"], 20.0);
    EXPECT_EQ(state["Import"]["Open"][0]["Y"], 40.0);
}

TEST(Road, TellsTheLinesOfAProgramThatItDoubts)
{
    const BatchStation station;
    station.Folder.Write("PPR.ini", "[PartProgram_CONFIG]\nINC_CENTER=YES\n");
    // Two holes of 20 in a plate; the second leaves out J, and closes all the same: it takes the absolute 30 of the first.
    station.Folder.Write("NC/holes.iso", "G0 X0 Y0\nG1 X200\nY60\nX0\nY0\nG0 X60 Y30\nG3 X60 Y30 I-10 J0\n"
                                         "G0 X160 Y30\nG3 X160 Y30 I-10\n");
    const BatchResult holes = station.Run({"holes.iso", "--quiet"});
    EXPECT_EQ(holes.Status, 0);
    EXPECT_THAT(holes.Errors,
                HasSubstr("warning: line 9: the arc has no J and takes that of an earlier line\n"));
    EXPECT_THAT(holes.Errors, Not(HasSubstr("is open")));
    // Each G04 is a move; five are listed.
    std::string dwells = "G1 X10\n";
    for (int i = 1; i <= 7; ++i) {
        dwells += "G04 X" + std::to_string(i) + "\n";
    }
    station.Folder.Write("NC/dwells.iso", dwells);
    const BatchResult result = station.Run({"dwells.iso"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Errors, HasSubstr("warning: line 6: the dwell G04 is read as a move\n"
                                         "warning: and 2 lines more\n"));
    EXPECT_THAT(result.Errors, Not(HasSubstr("line 7:")));
    EXPECT_THAT(station.Run({"box.iso"}).Errors, Not(HasSubstr("warning: line")));
}

TEST(Road, WarnsOfADrawingThatIsCutOff)
{
    const BatchStation station;
    const std::string drawing =
        "0\nSECTION\n2\nENTITIES\n0\nCIRCLE\n10\n50\n20\n50\n40\n30\n0\nCIRCLE\n10\n50\n20\n50\n40\n9\n";
    const std::string warning = "warning: the drawing has no EOF at its end: a part of it may be missing\n";
    for (const char* end : {"", "0\nENDSEC\n", "0\nEO"}) {
        station.Folder.Write("DXF/cut.dxf", drawing + end);
        const BatchResult result = station.Run({"cut.dxf"});
        EXPECT_EQ(result.Status, 0);
        EXPECT_THAT(result.Errors, HasSubstr(warning)) << end;
    }
    station.Folder.Write("DXF/cut.dxf", drawing + "0\nENDSEC\n0\nEOF");
    EXPECT_THAT(station.Run({"cut.dxf"}).Errors, Not(HasSubstr(warning)));
    EXPECT_THAT(station.Run({"plate.iso"}).Errors, Not(HasSubstr(warning)));
}

TEST(Road, WarnsOfADrawingWithNothingToCut)
{
    const BatchStation station;
    const std::string mark = "0\nPOINT\n10\n5\n20\n5\n";
    const std::string head = "0\nSECTION\n2\nENTITIES\n";
    const std::string tail = "0\nENDSEC\n0\nEOF\n";
    station.Folder.Write("DXF/none.dxf", head + "0\nTEXT\n10\n5\n20\n5\n1\nplate\n" + tail);
    station.Folder.Write("DXF/mark.dxf", head + mark + tail);
    const BatchResult none = station.Run({"none.dxf"});
    EXPECT_EQ(none.Status, 0);
    EXPECT_EQ(none.Errors, "warning: the drawing holds nothing to cut\n");
    EXPECT_EQ(station.Run({"mark.dxf"}).Errors, "") << "marks are work, too";
}

TEST(Road, LeavesTheConfigurationAloneUnlessToldOtherwise)
{
    const BatchStation station;
    const std::string before = station.Folder.Read("Korvanta.ini");
    const json state = station.State({"plate.iso", "--set", "LeadIn : A=8", "--program", "P"});
    EXPECT_EQ(state["ProfileTable"][0]["LeadInLength"], 8.0);
    EXPECT_EQ(station.Folder.Read("Korvanta.ini"), before);
    ASSERT_EQ(station.Run({"plate.iso", "--set", "LeadIn : A=8", "--remember"}).Status, 0);
    EXPECT_THAT(station.Folder.Read("Korvanta.ini"), HasSubstr("L_In=8\r\n"));
    EXPECT_EQ(station.State({"plate.iso"})["ProfileTable"][0]["LeadInLength"], 8.0);
}

TEST(Road, AnswersTheInputBlock)
{
    const BatchStation station;
    station.Folder.Write("PPR.ini", "[PartProgram_CONFIG]\nLINENUMBER=OFF\n"
                                    "[PartProgram_INPUT]\n#V1=Plate,D,,10\n#V2=Gas,T,O2|N2|AIR,N2\n"
                                    "[PartProgram_BEGIN]\nLINE1=(#V1 #V2)\n");
    const auto first = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"box.iso", "--program", "I"});
        const BatchResult result = station.Run(arguments);
        EXPECT_EQ(result.Status, 0) << result.Errors;
        const std::string text = station.Folder.Read("NC/I");
        return text.substr(0, text.find('\r'));
    };
    EXPECT_EQ(first({}), "(10 N2)");
    EXPECT_EQ(first({"--input", "2=air", "--input", "1=6.5 mm"}), "(6.5 mm AIR)");
    EXPECT_EQ(first({"--input", "2=argon"}).substr(0, 1), "(");
    EXPECT_THAT(first({"--input", "2=argon"}), HasSubstr(" O2)")) << "the first option, when none is equal";
    EXPECT_EQ(station.Run({"box.iso", "--program", "I", "--input", "2=argon", "--quiet"}).Errors,
              "warning: value 2 is O2: \"argon\" is none of its options\n");
    EXPECT_EQ(station.Run({"box.iso", "--program", "I", "--input", "2=air", "--quiet"}).Errors, "");
    EXPECT_THAT(station.Run({"box.iso", "--program", "I", "--input", "5=x"}).Errors,
                HasSubstr("doesn't ask for value 5"));
    station.Folder.Write("PPR.ini", "[PartProgram_INPUT]\n#V1=Plate,N,,10\n#V2=Gas,T,O2|N2,AIR\n#V3=Nr,D,,7\n"
                                    "[PartProgram_BEGIN]\nLINE1=(#V2 #V3)\n");
    EXPECT_EQ(first({"--input", "2=O2", "--input", "3=8"}), "(AIR 7)") << "nothing is asked, defaults stand";
    EXPECT_EQ(
        station.Run({"box.iso", "--program", "I", "--input", "2=O2", "--input", "3=8", "--quiet"}).Errors,
        "warning: the post-processor table doesn't ask for value 2\n"
        "warning: the post-processor table doesn't ask for value 3\n");
}

TEST(Road, WritesTheSameInEveryLocale)
{
    const BatchStation station;
    const std::vector<std::string> arguments = {"plate.iso", "--set",  "X Gap=2.5", "--program",
                                                "L",         "--json", "s.json"};
    ASSERT_EQ(station.Run(arguments, "LC_ALL=C").Status, 0);
    const std::string program = station.Folder.Read("NC/L");
    const std::string state = station.Folder.Read("s.json");
    ASSERT_EQ(station.Run(arguments, "LC_ALL=de_DE.UTF-8").Status, 0);
    EXPECT_EQ(station.Folder.Read("NC/L"), program);
    EXPECT_EQ(station.Folder.Read("s.json"), state);
    EXPECT_THAT(program, HasSubstr("X1.250"));
}
} // namespace
