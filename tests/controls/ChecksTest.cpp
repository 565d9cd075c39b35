// The judges of this folder judged: a sound program that is broken in one place must be seen as broken.
#include "DialectReader.h"
#include "Interpreter.h"

#include <gtest/gtest.h>

#include <ostream>

namespace
{
constexpr char AnySource[] = "R-20"; // a plate with four holes
const Changes OneCopy = {1, {}, 0.0, 0, 1.0, false};

struct BrokenRow {
    const char* What;
    const char* Cut;   ///< text of the program ...
    const char* Paste; ///< ... and what stands there instead, the first time
    const char* Seen;  ///< piece of the message
};

void PrintTo(const BrokenRow& row, std::ostream* out)
{
    *out << row.What;
}

std::string Broken(const std::string& program, const BrokenRow& row)
{
    std::string text = program;
    const std::size_t at = text.find(row.Cut);
    EXPECT_NE(at, std::string::npos) << row.Cut;
    return text.replace(at, std::string(row.Cut).size(), row.Paste);
}

Job SoundJob(const char* table)
{
    return Cut(AnySource, ShippedTable(table), {}, OneCopy);
}

class BrokenForLinuxCnc : public testing::TestWithParam<BrokenRow>
{
};
INSTANTIATE_TEST_SUITE_P(
    Checks, BrokenForLinuxCnc,
    testing::Values(BrokenRow{"WrongSide", "G41.1", "G42.1", "compensation"},
                    BrokenRow{"NoWord", "G41.1 D#<_kerf> ", "", "compensation"},
                    BrokenRow{"OtherKerf", "=1.5\r", "=1.6\r", "off the contour"},
                    BrokenRow{"Inches", "G21", "G20", "in inches"},
                    BrokenRow{"NoTorch", "M03 S1\r\n", "", "torch off"},
                    BrokenRow{"TorchStaysOn", "M05\r\n", "", "rapid with the torch on"},
                    BrokenRow{"CompensationStaysOn", "M05\r\nG40\r\nM02", "M05\r\nM02", "under compensation"},
                    BrokenRow{"LostPiece", "G01 X5.000 Y205.000 \r\n", "", "off the contour"},
                    BrokenRow{"LostLastPiece", "G01 X5.000 Y5.000 \r\nM05", "M05", "passes the contour"},
                    BrokenRow{"MovedCorner", "X305.000 Y205.000", "X305.000 Y205.100", "contour"},
                    BrokenRow{"LostCut", "; cut 5\r\n", "M02\r\n", "cuts instead of"}),
    [](const auto& row) { return std::string(row.param.What); });

TEST_P(BrokenForLinuxCnc, IsSeen)
{
    const Job job = SoundJob("ppr/LinuxCNC_Plasma.ini");
    const Interpreted sound = Interpret(job.Program);
    ASSERT_EQ(Differences(job, sound.Moves, {0.75}), "");
    const Interpreted broken = Interpret(Broken(job.Program, GetParam()));
    ASSERT_TRUE(broken.Accepted) << "the interpreter itself doesn't mind: " << broken.Message;
    const std::string difference = Differences(job, broken.Moves, {0.75});
    EXPECT_NE(difference.find(GetParam().Seen), std::string::npos) << difference;
}

TEST(Interpreters, RefusalsAreTold)
{
    const Interpreted run = Interpret("G21 G90\r\nG01 X10\r\nM02\r\n");
    EXPECT_FALSE(run.Accepted);
    EXPECT_NE(run.Message.find("feed rate"), std::string::npos) << run.Message;
}

class BrokenForGrbl : public testing::TestWithParam<BrokenRow>
{
};
INSTANTIATE_TEST_SUITE_P(
    Checks, BrokenForGrbl,
    testing::Values(
        BrokenRow{"Tape", "(JOB.nc)", "%", "no %"},
        BrokenRow{"Compensation", "G01 X", "G01 G41 X", "unknown word"},
        BrokenRow{"SubProgram", "M08", "M98 P10", "isn't there"},
        BrokenRow{"AbsoluteCentres", "G91.1", "G90.1", "unknown word"},
        BrokenRow{"TwoOfOneGroup", "G90 G91.1", "G90 G91", "two words"},
        BrokenRow{"NoFeed", "F1500\r\n", "", "without a feed"},
        BrokenRow{"NoUnit", "G21 ", "", "without unit"}, BrokenRow{"LetterD", "M08", "D1 M08", "letter"},
        BrokenRow{"LongLine", "(part 1)",
                  "(part 1 of a program with a comment that runs on and on beyond the buffer of it)",
                  "buffer"},
        BrokenRow{"ArcMissesItsEnd", "I-8.414", "I-8.514", "misses its end"},
        BrokenRow{"BeamStaysOn", "M05\r\nG00", "G00", "rapid with the torch on"},
        BrokenRow{"NoBeam", "M04 S800 (cut 1)\r\n", "", "torch off"}, BrokenRow{"NoEnd", "M02", "", "no end"},
        BrokenRow{"WrongWay", "G01 X5.000 Y205.000", "G01 X6.000 Y205.000", "off the contour"}),
    [](const auto& row) { return std::string(row.param.What); });

TEST_P(BrokenForGrbl, IsSeen)
{
    const Dialect grbl{{"M3", "M4"}, {"M5"}, {"G94", "M8", "M9"}, true};
    const Job job = SoundJob("ppr/GRBL_Laser.ini");
    ASSERT_EQ(Differences(job, PlayDialect(job.Program, grbl).Moves, {0.0, 0.01, false}), "");
    const std::string difference =
        Differences(job, PlayDialect(Broken(job.Program, GetParam()), grbl).Moves, {0.0, 0.01, false});
    EXPECT_NE(difference.find(GetParam().Seen), std::string::npos) << difference;
}

class BrokenForSubPrograms : public testing::TestWithParam<BrokenRow>
{
};
INSTANTIATE_TEST_SUITE_P(Checks, BrokenForSubPrograms,
                         testing::Values(BrokenRow{"RightForLeft", "G41", "G42", "compensation"},
                                         BrokenRow{"NoWord", "G41 ", "", "compensation"},
                                         BrokenRow{"StaysAbsolute", "G91\r", "G90\r", "misses its end"},
                                         BrokenRow{"StaysIncremental", "G90\r\nN330", "G91\r\nN330",
                                                   "contour"},
                                         BrokenRow{"NoReturn", "M99", "M05", "runs into a sub-program"},
                                         BrokenRow{"WrongCall", "M98 P1 4 ", "M98 P1 3 ", "contour"},
                                         BrokenRow{"NoEndOfMain", "M30", "M05", "runs into a sub-program"},
                                         BrokenRow{"NoEndOfTape", "M99\r\n%", "M99", "second sub-program"}),
                         [](const auto& row) { return std::string(row.param.What); });

TEST_P(BrokenForSubPrograms, IsSeen)
{
    const Dialect plain{{"M3"}, {"M5"}, {}, false};
    const Job job = Cut(AnySource, ShippedTable("ppr/ISO_SubPerProfile.ini"), {});
    const Expected expected = {0.0, 0.05, true};
    ASSERT_EQ(Differences(job, PlayDialect(job.Program, plain).Moves, expected), "");
    const std::string difference =
        Differences(job, PlayDialect(Broken(job.Program, GetParam()), plain).Moves, expected);
    EXPECT_NE(difference.find(GetParam().Seen), std::string::npos) << difference;
}
} // namespace
