// The compensation side of a finished program, read back from the program itself: on every closed profile the word, the
// leads and the scrap lie on one side, whatever was imported and however the part was turned.
#include "config/Korvanta_Utility.h"
#include "geometry/Orbalib.h"
#include "import/Korvanta_DxfIn.h"
#include "import/Korvanta_IsoIn.h"
#include "post/Korvanta_PostProcessor.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace
{
namespace fs = std::filesystem;

struct Point {
    double X;
    double Y;
};

/// One cut of a program: what was read between the rapid to its first point and the end of the cut.
struct Cut {
    std::string Word; ///< "G41", "G42" or empty
    int WordsSeen = 0;
    Point LeadStart{};
    int LeadMoves = 0;
    std::vector<Point> Contour; ///< densely sampled, the last point left out
    bool Closed = false;
};

class Sides : public testing::Test
{
protected:
    fs::path Folder = fs::temp_directory_path() / ("korvanta-sides-" + std::to_string(getpid()));

    void SetUp() override
    {
        StartCase();
        fs::create_directories(Folder);
        std::ofstream(Folder / "PPR.ini") << "[PartProgram_CONFIG]\nLINENUMBER=OFF\n"
                                             "[PartProgram_StartCUT]\nLINE1=*RAPID_MOVE\n"
                                             "[PartProgram_EndLeadIn]\nLINE1=CONTOUR\n"
                                             "[PartProgram_EndProfileCut]\nLINE1=OUT\n"
                                             "[PartProgram_EndCUT]\nLINE1=*KERF_OFF\n";
        AppState.AppPath = Folder.string();
        AppState.PprIniName = "PPR.ini";
        AppState.NcPath = Folder.string() + "\\";
        AppState.DxfPath = AppState.NcPath;
        AppState.ExternalPathSense = -1;
        AppState.InternalPathSense = 1;
        AppState.ConfigHeld = FlagOn;
    }

    void TearDown() override
    {
        fs::remove_all(Folder);
    }

    std::string Write(const std::string& name, const std::string& text) const
    {
        std::ofstream(Folder / name, std::ios::binary) << text;
        return (Folder / name).string();
    }

    void Prepare() const
    {
        InitLeadData();
        SelectProfile(1, FlagOff);
        AppState.NestKind = 0;
    }

    std::vector<Cut> ProgramCuts() const;
    static void ExpectRightSides(const std::vector<Cut>& cuts, const std::string& what);
};

double WordOf(const std::string& line, char letter)
{
    const std::size_t at = line.find(letter);
    EXPECT_NE(at, std::string::npos) << line;
    return TextToNumber(std::string_view(line).substr(at + 1));
}

void SampleArc(std::vector<Point>& points, Point from, Point to, Point centre, int sense)
{
    constexpr int Steps = 48;
    const double radius = std::hypot(from.X - centre.X, from.Y - centre.Y);
    const double start = std::atan2(from.Y - centre.Y, from.X - centre.X);
    const double sweep = amparco(centre.X, centre.Y, from.X, from.Y, to.X, to.Y, sense);
    for (int i = 0; i < Steps; ++i) {
        const double angle = start + sense * sweep * i / Steps;
        points.push_back({centre.X + radius * std::cos(angle), centre.Y + radius * std::sin(angle)});
    }
}

double SignedArea(const std::vector<Point>& points)
{
    double area = 0.0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Point& a = points[i];
        const Point& b = points[(i + 1) % points.size()];
        area += (a.X * b.Y - b.X * a.Y) / 2;
    }
    return area;
}

/// True when the first move of the contour is long enough to tell its direction through the rounding of the program.
bool DirectionShows(const Cut& cut)
{
    return std::hypot(cut.Contour[1].X - cut.Contour[0].X, cut.Contour[1].Y - cut.Contour[0].Y) > 0.1;
}

/// On which side of the first move of the contour the lead begins: above 0 left.
double LeadSide(const Cut& cut)
{
    const Point& from = cut.Contour[0];
    const Point& to = cut.Contour[1];
    return (to.X - from.X) * (cut.LeadStart.Y - from.Y) - (to.Y - from.Y) * (cut.LeadStart.X - from.X);
}

std::vector<Cut> Sides::ProgramCuts() const
{
    GenerateProgram("SIDES");
    std::ifstream file(Folder / "SIDES");
    std::vector<Cut> cuts;
    Point at{};
    enum { LeadIn, Contour, LeadOut } phase = LeadIn;
    std::string line;
    while (std::getline(file, line)) {
        if (line.starts_with("G00")) {
            at = {WordOf(line, 'X'), WordOf(line, 'Y')};
            cuts.emplace_back();
            cuts.back().LeadStart = at;
            phase = LeadIn;
        } else if (line.starts_with("CONTOUR")) {
            phase = Contour;
        } else if (line.starts_with("OUT")) {
            phase = LeadOut;
        } else if (line.starts_with("G01") || line.starts_with("G02") || line.starts_with("G03")) {
            Cut& cut = cuts.back();
            for (const char* word : {"G41", "G42"}) {
                if (line.find(word) != std::string::npos) {
                    cut.Word = word;
                    ++cut.WordsSeen;
                }
            }
            const Point to{WordOf(line, 'X'), WordOf(line, 'Y')};
            if (phase == LeadIn) {
                ++cut.LeadMoves;
            } else if (phase == Contour && line.starts_with("G01")) {
                cut.Contour.push_back(at);
            } else if (phase == Contour) {
                SampleArc(cut.Contour, at, to, {WordOf(line, 'I'), WordOf(line, 'J')},
                          line.starts_with("G03") ? 1 : -1);
            }
            at = to;
            if (phase == Contour && !cut.Contour.empty()) {
                cut.Closed = std::hypot(at.X - cut.Contour[0].X, at.Y - cut.Contour[0].Y) < 0.02;
            }
        }
    }
    return cuts;
}

/// The last cut is the outer one: its scrap lies outside, that of the others inside.
void Sides::ExpectRightSides(const std::vector<Cut>& cuts, const std::string& what)
{
    for (std::size_t i = 0; i < cuts.size(); ++i) {
        const Cut& cut = cuts[i];
        if (!cut.Closed) {
            continue;
        }
        const std::string name =
            what + ", cut " + std::to_string(i + 1) + " of " + std::to_string(cuts.size());
        const double area = SignedArea(cut.Contour);
        ASSERT_GT(std::fabs(area), 1.0) << name;
        const bool scrapInside = i + 1 < cuts.size();
        const bool scrapLeft = scrapInside == (area > 0);
        EXPECT_EQ(cut.WordsSeen, 1) << name;
        EXPECT_EQ(cut.Word, scrapLeft ? "G41" : "G42") << name;
        if (cut.LeadMoves == 2 && DirectionShows(cut)) {
            EXPECT_EQ(LeadSide(cut) > 0, scrapLeft) << name;
        }
    }
}

std::string DxfLine(double x1, double y1, double x2, double y2)
{
    std::ostringstream text;
    text << "0\nLINE\n10\n" << x1 << "\n20\n" << y1 << "\n11\n" << x2 << "\n21\n" << y2 << "\n";
    return text.str();
}

std::string DxfArcOf(double cx, double cy, double r, double from, double to)
{
    std::ostringstream text;
    text << "0\nARC\n10\n"
         << cx << "\n20\n"
         << cy << "\n40\n"
         << r << "\n50\n"
         << from << "\n51\n"
         << to << "\n";
    return text.str();
}

std::string DxfCircleOf(double cx, double cy, double r)
{
    std::ostringstream text;
    text << "0\nCIRCLE\n10\n" << cx << "\n20\n" << cy << "\n40\n" << r << "\n";
    return text.str();
}

std::string Drawing(const std::string& entities)
{
    return "0\nSECTION\n2\nENTITIES\n" + entities + "0\nENDSEC\n0\nEOF\n";
}

/// An outer contour with a rounded end, a round hole, a triangular hole and a slot; `backwards` draws every line from its
/// other end.
std::string SamplePart(bool backwards)
{
    const auto line = [&](double x1, double y1, double x2, double y2) {
        return backwards ? DxfLine(x2, y2, x1, y1) : DxfLine(x1, y1, x2, y2);
    };
    return Drawing(line(0, 0, 300, 0) + DxfArcOf(300, 100, 100, 270, 90) + line(300, 200, 0, 200) +
                   line(0, 200, 0, 0) + DxfCircleOf(300, 100, 40) + line(40, 40, 120, 40) +
                   line(120, 40, 80, 110) + line(80, 110, 40, 40) + line(160, 130, 220, 130) +
                   DxfArcOf(220, 150, 20, 270, 90) + line(220, 170, 160, 170) +
                   DxfArcOf(160, 150, 20, 90, 270));
}

/// Two squares and a circle, the outer one as the caller wants it.
std::string IsoPart(bool outerClockwise, bool holeClockwise, const std::string& sideWord)
{
    std::string text = "G00 X0 Y0\n";
    text += outerClockwise ? "G01 " + sideWord + " X0 Y200\nG01 X200 Y200\nG01 X200 Y0\nG01 X0 Y0\n"
                           : "G01 " + sideWord + " X200 Y0\nG01 X200 Y200\nG01 X0 Y200\nG01 X0 Y0\n";
    text += "G00 X60 Y100\n";
    text += std::string(holeClockwise ? "G02 " : "G03 ") + sideWord + " X60 Y100 I100 J100\n";
    return text;
}

TEST_F(Sides, OfADrawingHoldUnderMirrorsAnglesAndToggles)
{
    std::mt19937 random(4711);
    for (const bool backwards : {false, true}) {
        std::string path = Write(backwards ? "B.DXF" : "A.DXF", SamplePart(backwards));
        for (std::int16_t mirror = 0; mirror <= 4; ++mirror) {
            for (int run = 0; run < 12; ++run) {
                ASSERT_TRUE(ImportDxf(path));
                ASSERT_EQ(AppState.ProfileCount, 4);
                Prepare();
                const double angle = run == 0 ? 0.0 : static_cast<double>(random() % 720) - 360.0;
                const double scale = run % 3 == 0 ? 1.0 : 0.5 + static_cast<double>(random() % 20) / 10;
                if (run % 4 != 3) {
                    ApplyTransform(angle, mirror, scale, FlagOff);
                }
                for (std::int32_t p = 1; p <= AppState.ProfileCount; ++p) {
                    if (random() % 3 == 0) {
                        AppState.CurrentProfile = p;
                        ChangeProfilePath();
                    }
                    AppState.ProfileTable[static_cast<std::size_t>(p)].LeadPosition =
                        static_cast<double>(random() % 1000) / 1000 *
                        AppState.ProfileTable[static_cast<std::size_t>(p)].ProfileLength;
                }
                const std::vector<Cut> cuts = ProgramCuts();
                ASSERT_EQ(cuts.size(), 4U);
                for (const Cut& cut : cuts) {
                    EXPECT_TRUE(cut.Closed);
                }
                ExpectRightSides(cuts,
                                 "mirror " + std::to_string(mirror) + " angle " + std::to_string(angle));
            }
        }
    }
}

TEST_F(Sides, OfAnIsoProgramHoldHoweverItWasWritten)
{
    for (const bool outerClockwise : {false, true}) {
        for (const bool holeClockwise : {false, true}) {
            for (const std::string word : {"G41", "G42"}) {
                for (std::int16_t mirror = 0; mirror <= 3; ++mirror) {
                    const std::string path = Write("P.NC", IsoPart(outerClockwise, holeClockwise, word));
                    ASSERT_TRUE(ImportIso(path));
                    ASSERT_EQ(AppState.ProfileCount, 2);
                    Prepare();
                    ApplyTransform(30.0, mirror, 1.0, FlagOff);
                    const std::vector<Cut> cuts = ProgramCuts();
                    ASSERT_EQ(cuts.size(), 2U);
                    EXPECT_TRUE(cuts[0].Closed && cuts[1].Closed);
                    ExpectRightSides(cuts, "iso " + word + " mirror " + std::to_string(mirror));
                }
            }
        }
    }
}

TEST_F(Sides, OfAnIsoProgramWithoutAnyStayAbsent)
{
    ASSERT_TRUE(ImportIso(Write("P.NC", IsoPart(false, false, ""))));
    Prepare();
    for (const Cut& cut : ProgramCuts()) {
        EXPECT_EQ(cut.WordsSeen, 0);
    }
}

TEST_F(Sides, OfAnOpenIsoProfileTurnWithAMirror)
{
    for (std::int16_t mirror = 0; mirror <= 3; ++mirror) {
        ASSERT_TRUE(ImportIso(Write("P.NC", "G00 X0 Y0\nG01 G41 X100 Y0\nG01 X100 Y50\n")));
        Prepare();
        ApplyTransform(0.0, mirror, 1.0, FlagOff);
        const std::vector<Cut> cuts = ProgramCuts();
        ASSERT_EQ(cuts.size(), 1U);
        EXPECT_EQ(cuts[0].Word, mirror == 1 || mirror == 2 ? "G42" : "G41") << mirror;
    }
}

TEST_F(Sides, OfAnOpenDrawnProfileAreNone)
{
    std::string path = Write("O.DXF", Drawing(DxfLine(0, 0, 100, 0) + DxfLine(100, 0, 100, 50)));
    ASSERT_TRUE(ImportDxf(path));
    Prepare();
    const std::vector<Cut> cuts = ProgramCuts();
    ASSERT_EQ(cuts.size(), 1U);
    EXPECT_EQ(cuts[0].WordsSeen, 0);
}
} // namespace
