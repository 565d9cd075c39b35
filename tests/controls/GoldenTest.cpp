// Whole programs of the tables for real controls: two copies of a plate with a round end and a slot, all of whose points are
// whole numbers, so that each line can be followed on paper.
//
//   40 +  .--------------------+ 80, 40     slot 20 wide between the centres 20, 20 and 40, 20
//        (   (=======)         |            leads: 4 straight, 2 quarter arc, 10 along each contour
//    0 +  '--------------------+            first copy at 5, 5, second at 95, 5
//      0  20         40        80
//
// KORVANTA_REWRITE_GOLDEN=1 in the environment writes the programs anew; follow each changed line before you commit it.
#include "Job.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace
{
const Changes Plate = {2, {"60", "40", "40", "20"}, 0.0, 0, 1.0, false};

class Golden : public testing::TestWithParam<std::string>
{
};
INSTANTIATE_TEST_SUITE_P(Controls, Golden,
                         testing::Values("GRBL_Laser", "ISO_OxyFuel", "ISO_SubPerPart", "ISO_SubPerProfile",
                                         "ISO_WaterJet", "LinuxCNC_Laser", "LinuxCNC_Plasma"),
                         [](const auto& row) { return row.param; });

TEST_P(Golden, Program)
{
    const std::string path =
        std::string(KORVANTA_SOURCE_DIR) + "/tests/golden/controls/" + GetParam() + ".nc";
    Job job = Cut("C-09", ShippedTable("ppr/" + GetParam() + ".ini"), {4.0, 2.0, 0.0, 0.0}, Plate);
    std::string& program = job.Program;
    EXPECT_EQ(std::count(program.begin(), program.end(), '\r'),
              std::count(program.begin(), program.end(), '\n'));
    program.erase(std::remove(program.begin(), program.end(), '\r'), program.end());
    if (std::getenv("KORVANTA_REWRITE_GOLDEN") != nullptr) {
        std::ofstream(path, std::ios::binary) << program;
    }
    std::ifstream file(path, std::ios::binary);
    ASSERT_TRUE(file.is_open()) << path;
    std::ostringstream text;
    text << file.rdbuf();
    EXPECT_EQ(program, text.str());
}
} // namespace
