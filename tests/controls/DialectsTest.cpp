// Every sample drawing and every shape through the tables for other controls than LinuxCNC, played by a control of the
// tests' own.
#include "DialectReader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

namespace
{
struct DialectRow {
    const char* Label;
    const char* Table;
    Dialect Kind;
    bool Words;        ///< the control compensates
    bool Increments;   ///< coordinates add up from move to move
    const char* Setup; ///< what stands between the rapid and the first move
    const char* Seam;  ///< and between lead-in and contour
    double Feed;       ///< on the contour
    const char* End;   ///< what stands behind the last move
};

const std::set<std::string> On = {"M3"};
const std::set<std::string> Off = {"M5"};

// The words and values are those of the heads and the questions of the tables.
const DialectRow Rows[] = {
    {"Plain", "PPR.ini", {On, Off, {"M71"}, false}, true, false, "M3", "", 2500, "M5"},
    {"Grbl",
     "ppr/GRBL_Laser.ini",
     {{"M3", "M4"}, Off, {"G94", "M8", "M9"}, true},
     false,
     false,
     "M4",
     "",
     1500,
     "M5"},
    {"OxyFuel",
     "ppr/ISO_OxyFuel.ini",
     {On, Off, {"M20", "M21", "M22", "M23", "M24", "M25"}, false},
     true,
     false,
     "M24 M22 G4P25 M3 G4P1.5 F250",
     "M23 F420",
     420,
     "M5 M25"},
    {"WaterJet",
     "ppr/ISO_WaterJet.ini",
     {On, Off, {"M7", "M9", "M61", "M62"}, false},
     true,
     false,
     "M61 M7 M3 G4P4 M62 G4P2 F80",
     "F140",
     140,
     "M9 M5"},
    {"SubPerPart", "ppr/ISO_SubPerPart.ini", {On, Off, {}, false}, true, true, "M3", "", 2500, "M5"},
    {"SubPerProfile", "ppr/ISO_SubPerProfile.ini", {On, Off, {}, false}, true, true, "M3", "", 2500, "M5"},
};

void PrintTo(const DialectRow& row, std::ostream* out)
{
    *out << row.Table;
}

/// Numbers are cut after three decimals. Increments add that up: for the many pieces of a spline to some hundredths.
double ToleranceOf(const DialectRow& row)
{
    constexpr double OfPoints = 0.004;
    constexpr double OfIncrements = 0.05;
    return row.Increments ? OfIncrements : OfPoints;
}

class Dialects : public testing::TestWithParam<DialectRow>
{
};
INSTANTIATE_TEST_SUITE_P(Shipped, Dialects, testing::ValuesIn(Rows),
                         [](const auto& row) { return std::string(row.param.Label); });

/// What is said round one cut: the torch's words, the seam of the lead-in, compensation off.
void CheckWords(const DialectRow& row, const PlayedDialect& played, std::size_t cut, const Contour& contour)
{
    const bool lead = contour.Closed; // open profiles have none
    const std::string seam = row.Seam;
    EXPECT_EQ(played.Setups[cut], row.Setup + (lead || seam.empty() ? "" : " " + seam));
    EXPECT_EQ(played.Withins[cut], lead ? seam : "");
    EXPECT_EQ(played.Feeds[cut], row.Feed);
    // A stroke is cut without any word.
    const std::string end = row.End + std::string(row.Words && !contour.Boundary.empty() ? " G40" : "");
    EXPECT_EQ(played.Ends[cut].substr(0, end.size()), end);
}

TEST_P(Dialects, CutEveryDrawingAndShape)
{
    const DialectRow& row = GetParam();
    const std::string table = ShippedTable(row.Table);
    for (const std::string& source : AllSources()) {
        const Job job = Cut(source, table, {});
        const PlayedDialect played = PlayDialect(job.Program, row.Kind);
        const std::string difference = Differences(job, played.Moves, {0.0, ToleranceOf(row), row.Words});
        ASSERT_EQ(difference, "") << source;
        ASSERT_EQ(played.Setups.size(), played.Moves.Cuts.size()) << source;
        ASSERT_EQ(played.Ends.size(), played.Moves.Cuts.size()) << source;
        for (std::size_t i = 0; i < played.Setups.size(); ++i) {
            SCOPED_TRACE(source + " cut " + std::to_string(i + 1));
            CheckWords(row, played, i, job.Contours[i % job.Contours.size()]);
        }
    }
}
} // namespace
