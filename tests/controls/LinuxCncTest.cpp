// Every sample drawing and every shape through the tables for LinuxCNC and through LinuxCNC's own interpreter: with
// compensation and without, arcs by centre and by radius, in line and with sub-programs in both ways of the control.
#include "Interpreter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <ostream>
#include <set>

namespace
{
using Change = std::function<std::string(const std::string& table)>;

constexpr char Config[] = "PartProgram_CONFIG";

std::string AsShipped(const std::string& table)
{
    return table;
}

std::string WithoutWords(const std::string& table)
{
    return WithKey(table, "PartProgram_FirstMOVE", "KERF_ON", "NO");
}

/// What the heads of the tables tell for arcs by radius.
std::string ByRadius(const std::string& table)
{
    EXPECT_NE(table.find("; Arcs by radius: I_AXIS=(i and J_AXIS=j and RADIUS=)R"), std::string::npos);
    return WithKey(WithKey(WithKey(table, Config, "I_AXIS", "(i"), Config, "J_AXIS", "j"), Config, "RADIUS",
                   ")R");
}

std::string WithoutMarks(const std::string& table)
{
    return table.find("[PartProgram_POINT]") == std::string::npos
               ? table
               : WithoutSection(table, "PartProgram_POINT");
}

std::string SubPerPart(const std::string& table)
{
    return WithKey(WithoutMarks(table), Config, "SUBPROGRAMS", "YES");
}

std::string SubPerProfile(const std::string& table)
{
    return WithKey(SubPerPart(table), Config, "SUBPROGRAMSBYPROFILE", "YES");
}

/// The table with a line that its own comment tells.
std::string WithTold(const std::string& table, const std::string& section, const std::string& line)
{
    EXPECT_NE(table.find(line), std::string::npos) << "the table no longer tells " << line;
    const std::size_t equals = line.find('=');
    return WithKey(table, section, line.substr(0, equals), line.substr(equals + 1));
}

/// The older words of LinuxCNC, as the comment in SubProgram_BEGIN tells them.
std::string OlderWords(const std::string& table)
{
    std::string older = WithTold(table, Config, "BEFORESUBPROGRAMS=YES");
    older = WithTold(older, "SubProgram_CALL", "LINE2=o[10+*subprogram_nr] call");
    return WithTold(older, "SubProgram_BEGIN", "LINE1=o[10+*subprogram_nr] sub");
}

std::string OlderWordsPerPart(const std::string& table)
{
    return WithTold(OlderWords(SubPerPart(table)), "SubProgram_END", "LINE2=o[10] endsub");
}

std::string OlderWordsPerProfile(const std::string& table)
{
    std::string older = OlderWords(SubPerProfile(table));
    older = WithTold(older, "PartProgram_EndCUT", "LINE3=G90");
    older = WithTold(older, "PartProgram_EndCUT", "LINE4=o[9+*trace_nr] endsub");
    return WithoutSection(older, "SubProgram_END");
}

/// The words of a plain control, which takes the kerf from its own store, as LinuxCNC takes it from the program.
std::string WithKerfInProgram(const std::string& table)
{
    return WithKey(WithKey(table, Config, "KERF_LEFT", "G41.1 D1.5"), Config, "KERF_RIGHT", "G42.1 D1.5");
}

enum class Take { All, Some };

struct VariantRow {
    const char* Label;
    const char* Table;
    Change Apply;
    Leads LeadsUsed;
    double Radius; ///< half the kerf of the table's question; 0 where no word is written
    bool Increments;
    Take Sources;      ///< all, or the drawings and every sixth shape
    Changes Part = {}; ///< what was done to it on the Cutting screen
};

constexpr char Plasma[] = "ppr/LinuxCNC_Plasma.ini";
constexpr char Laser[] = "ppr/LinuxCNC_Laser.ini";
constexpr Leads Short = {2.0, 1.0, 0.0, 0.0};
constexpr Leads AsStarted = {10.0, 5.0, 0.0, 0.0}; ///< as the station proposes them
constexpr Leads BothEnds = {2.0, 1.0, 2.0, 1.0};

const VariantRow Variants[] = {
    {"Plasma", Plasma, AsShipped, Short, 0.75, false, Take::All},
    {"PlasmaLongLeads", Plasma, AsShipped, AsStarted, 0.75, false, Take::Some},
    {"PlasmaLeadOut", Plasma, AsShipped, BothEnds, 0.75, false, Take::Some},
    {"PlasmaMirrored", Plasma, AsShipped, Short, 0.75, false, Take::Some, {2, {}, 33.0, 1, 1.3, false}},
    {"PlasmaTurned", Plasma, AsShipped, Short, 0.75, false, Take::All, {2, {}, 0.0, 0, 1.0, true}},
    {"PlasmaUncompensated", Plasma, WithoutWords, Short, 0.0, false, Take::Some},
    {"PlasmaByRadius", Plasma, ByRadius, Short, 0.75, false, Take::All},
    {"PlasmaSubPerPart", Plasma, SubPerPart, Short, 0.75, true, Take::All},
    {"PlasmaSubPerProfile", Plasma, SubPerProfile, Short, 0.75, true, Take::Some},
    {"PlasmaOlderWordsPerPart", Plasma, OlderWordsPerPart, Short, 0.75, true, Take::Some},
    {"PlasmaOlderWordsPerProfile", Plasma, OlderWordsPerProfile, Short, 0.75, true, Take::Some},
    {"Laser", Laser, AsShipped, Short, 0.1, false, Take::All},
    {"LaserUncompensated", Laser, WithoutWords, Short, 0.0, false, Take::Some},
    {"LaserByRadius", Laser, ByRadius, Short, 0.1, false, Take::Some},
    {"LaserSubPerPart", Laser, SubPerPart, Short, 0.1, true, Take::Some},
    {"LaserSubPerProfile", Laser, SubPerProfile, Short, 0.1, true, Take::All},
    {"FirstTable", "PPR_LinuxCNC.ini", AsShipped, Short, 0.75, false, Take::Some},
    {"IsoSubPerPart", "ppr/ISO_SubPerPart.ini", WithKerfInProgram, Short, 0.75, true, Take::Some},
    {"IsoSubPerProfile", "ppr/ISO_SubPerProfile.ini", WithKerfInProgram, Short, 0.75, true, Take::Some},
};

void PrintTo(const VariantRow& row, std::ostream* out)
{
    *out << row.Table;
}

/// Outlines of two open halves, each with an entry of its own. In the other direction the entry comes last, and the torch
/// steps aside along the contour itself: nobody turns them.
const std::set<std::string> Halves = {"R-41", "C-25", "C-26"};

std::vector<std::string> SourcesOf(const VariantRow& row)
{
    constexpr std::size_t Drawings = 4;
    constexpr std::size_t Each = 6;
    std::vector<std::string> sources;
    const std::vector<std::string> all = AllSources();
    for (std::size_t i = 0; i < all.size(); ++i) {
        const bool taken = row.Sources == Take::All || i < Drawings || i % Each == 0;
        if (taken && !(row.Part.Turned && Halves.count(all[i]) > 0)) {
            sources.push_back(all[i]);
        }
    }
    return sources;
}

/// Numbers are cut after three decimals. Increments add that up: for the many pieces of a spline to some hundredths.
double ToleranceOf(const VariantRow& row)
{
    constexpr double OfPoints = 0.004;
    constexpr double OfIncrements = 0.05;
    return row.Increments ? OfIncrements : OfPoints;
}

bool HasArcBeyondHalf(const Job& job)
{
    constexpr double Half = 3.1416;
    for (const Contour& contour : job.Contours) {
        for (const Piece& piece : contour.Pieces) {
            if (piece.Arc && ArcSweep(piece) > Half) {
                return true;
            }
        }
    }
    return false;
}

void CheckMarks(const Job& job, const Played& played)
{
    const bool marks = !job.MarkPoints.empty() && job.Program.find("M64 P0") != std::string::npos;
    ASSERT_EQ(played.Marks.size(), marks ? job.MarkPoints.size() * job.Copies.size() : 0U);
    for (std::size_t i = 0; i < played.Marks.size(); ++i) {
        const Spot& mark = job.MarkPoints[i % job.MarkPoints.size()];
        const Spot& copy = job.Copies[i / job.MarkPoints.size()];
        EXPECT_LT(Far(played.Marks[i], {mark.X + copy.X, mark.Y + copy.Y}), 0.002);
    }
}

class LinuxCnc : public testing::TestWithParam<VariantRow>
{
};
INSTANTIATE_TEST_SUITE_P(Tables, LinuxCnc, testing::ValuesIn(Variants),
                         [](const auto& row) { return std::string(row.param.Label); });

TEST_P(LinuxCnc, CutsEveryDrawingAndShapeBesideItsContour)
{
    const VariantRow& row = GetParam();
    const std::string table = row.Apply(ShippedTable(row.Table));
    const bool byRadius = table.find("\nRADIUS=)R") != std::string::npos;
    for (const std::string& source : SourcesOf(row)) {
        SCOPED_TRACE(source);
        const Job job = Cut(source, table, row.LeadsUsed, row.Part);
        const Interpreted run = Interpret(job.Program);
        if (byRadius && HasArcBeyondHalf(job)) {
            // The head of the table says so: such a program is refused, or comes out wrong.
            EXPECT_FALSE(run.Accepted && Differences(job, run.Moves, {row.Radius}).empty());
            continue;
        }
        ASSERT_TRUE(run.Accepted) << run.Message;
        EXPECT_EQ(Differences(job, run.Moves, {row.Radius, ToleranceOf(row), row.Radius > 0.0}), "");
        CheckMarks(job, run.Moves);
    }
}
} // namespace
