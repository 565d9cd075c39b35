// The head of the simulation: its steps, its strokes, its pace, and its way against the program of the same nest.
#include "post/Simulation.h"

#include "CaseFile.h"
#include "PostStation.h"
#include "RandomCase.h"
#include "config/Korvanta_Configuration.h"
#include "profile/Korvanta_ProfileCut.h"
#include "support/RecordingSurface.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <sstream>

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace
{
constexpr double Near = 1e-9;
constexpr double SlowStep = 1.0; ///< seconds: every step then lets the window catch up

/// A picture of 640 x 480 pixels whose lower left corner is at (left, bottom), a pixel being `unit` wide and high.
void ShowView(double left, double bottom, double unit = 1.0)
{
    AppState.ViewLeft = left;
    AppState.ViewWidth = 640 * unit;
    AppState.ViewTop = bottom + 480 * unit;
    AppState.ViewHeight = -480 * unit;
    AppState.UnitsPerPixelX = unit;
    AppState.UnitsPerPixelY = -unit;
    AppState.StatisticsTop = AppState.StatisticsBottom = -1e6;
    Drawn.Shown = true;
}

void PutSettings(const PostStation& station, const std::string& lines)
{
    station.Folder.Write("Korvanta.ini", "[SETUP]\n" + lines);
}

/// The head at (100, 100) on a view of 0, 0 to 640, 480, the strokes of the start forgotten.
void StartAt100()
{
    ShowView(0, 0);
    BeginHead();
    AppState.SimX = AppState.SimPrevX = 100;
    AppState.SimY = AppState.SimPrevY = 100;
    DrawHead(HeadMode::Rapid);
    TakeStrokes();
}

std::string Cross(double x, double y)
{
    std::ostringstream text;
    text << "line 0 " << y << " 640 " << y << " #000000 1 inverting|line " << x << " 480 " << x
         << " 0 #000000 1 inverting";
    return text.str();
}

/// The strokes, those of a head joined.
Lines TakeHeads()
{
    Lines heads;
    bool second = false;
    for (const std::string& stroke : TakeStrokes()) {
        if (second) {
            heads.back() += "|" + stroke;
            second = false;
            continue;
        }
        heads.push_back(stroke);
        second = stroke.ends_with("inverting");
    }
    return heads;
}

// --- settings ---------------------------------------------------------------------------------------------------

TEST(SimulationSettings, GiveTheLengthOfAStep)
{
    struct Case {
        const char* Lines;
        std::int16_t Speed;
        double Step; ///< with half a unit in a pixel
    };
    const Case cases[] = {
        {"", 3, 0.3},
        {"SIMSPEED=10\nSIM_DEFRAG=4\n", 10, 1.25},
        {"SIMSPEED=25\n", 25, 2.5},
        {"SIMSPEED=0\n", 3, 0.3},
        {"SIMSPEED=-7\nSIM_DEFRAG=0\n", 3, 0.3},
        {"SIMSPEED=fast\nSIM_DEFRAG=-1\n", 3, 0.3},
        {"SIMSPEED=99999\n", 32767, 3276.7},
    };
    for (const Case& c : cases) {
        const PostStation station;
        PutSettings(station, c.Lines);
        ShowView(0, 0, 0.5);
        LoadSimulationSettings();
        EXPECT_EQ(AppState.SimSpeed, c.Speed) << c.Lines;
        EXPECT_NEAR(AppState.SimStep, c.Step, Near) << c.Lines;
    }
}

TEST(SimulationSettings, ATypedSpeedIsStoredAndCountsAtOnce)
{
    const PostStation station;
    PutSettings(station, "SIMSPEED=4\n");
    ShowView(0, 0);
    AppState.TextNesting[FieldSimulation].Text = "20";
    ApplySimulationSpeed();
    EXPECT_EQ(ReadConfig("SETUP", "SIMSPEED", ""), "20");
    EXPECT_EQ(AppState.SimSpeed, 20);
    EXPECT_NEAR(AppState.SimStep, 4.0, Near);
}

TEST(SimulationSettings, AreReadAtEachStart)
{
    const PostStation station;
    ShowView(0, 0);
    PutSettings(station, "SIMSPEED=0\n");
    BeginHead();
    EXPECT_EQ(AppState.SimSpeed, 3);
    EndHead();
    PutSettings(station, "SIMSPEED=12\n");
    BeginHead();
    EXPECT_EQ(AppState.SimSpeed, 12);
}

// --- strokes ----------------------------------------------------------------------------------------------------

TEST(Head, ACutLeavesARedLine)
{
    const PostStation station;
    PutSettings(station, "SIMSPEED=10\n"); // steps of 2
    StartAt100();
    StepTo(HeadMode::Cut, 105, 100);
    EXPECT_THAT(TakeHeads(), ElementsAre(Cross(100, 100), "line 100 100 102 100 #ff0000 3", Cross(102, 100),
                                         Cross(102, 100), "line 102 100 104 100 #ff0000 3", Cross(104, 100),
                                         Cross(104, 100), "line 104 100 105 100 #ff0000 3", Cross(105, 100)));
    EXPECT_EQ(AppState.SimX, 105);
    EXPECT_EQ(AppState.SimY, 100);
}

TEST(Head, ARapidMoveLeavesGreenDots)
{
    const PostStation station;
    PutSettings(station, "SIMSPEED=10\n");
    StartAt100();
    StepTo(HeadMode::Rapid, 100, 97);
    EXPECT_THAT(TakeHeads(), ElementsAre(Cross(100, 100), "pixel 100 98 #00ff00", Cross(100, 98),
                                         Cross(100, 98), "pixel 100 97 #00ff00", Cross(100, 97)));
}

TEST(Head, AShortMoveEndsOnItsEnd)
{
    const PostStation station;
    PutSettings(station, "SIMSPEED=10\n");
    StartAt100();
    StepTo(HeadMode::Cut, 100.3, 100.4);
    EXPECT_THAT(TakeHeads(),
                ElementsAre(Cross(100, 100), "line 100 100 100.3 100.4 #ff0000 3", Cross(100.3, 100.4)));
    StepTo(HeadMode::Cut, 100.3, 100.4);
    EXPECT_EQ(AppState.SimX, 100.3);
    EXPECT_EQ(AppState.SimY, 100.4);
}

TEST(Head, HasItsShapeFromTheSettings)
{
    struct Case {
        const char* Lines;
        bool Small;
    };
    for (const Case& c : {Case{"HEADTYPE=0\n", true}, Case{"HEADTYPE=-1\n", true},
                          Case{"HEADTYPE=-9\n", true}, Case{"HEADTYPE=x\n", true}, Case{"", false},
                          Case{"HEADTYPE=1\n", false}, Case{"HEADTYPE=7\n", false}}) {
        const PostStation station;
        PutSettings(station, c.Lines);
        ShowView(0, 0, 2.0);
        BeginHead();
        AppState.SimX = 100;
        AppState.SimY = 200;
        TakeStrokes();
        DrawHead(HeadMode::Rapid);
        const Lines heads = TakeHeads();
        ASSERT_FALSE(heads.empty());
        EXPECT_EQ(heads.back(), c.Small ? "line 70 200 130 200 #000000 1 inverting|line 100 170 100 230 "
                                          "#000000 1 inverting"
                                        : "line 0 200 1280 200 #000000 1 inverting|line 100 960 100 0 "
                                          "#000000 1 inverting")
            << c.Lines;
    }
}

TEST(Head, IsTakenOffAsItWasPut)
{
    const PostStation station;
    PutSettings(station, "HEADTYPE=0\n");
    StartAt100();
    PutSettings(station, "HEADTYPE=1\n");
    DrawHead(HeadMode::Rapid);
    EXPECT_THAT(TakeHeads(),
                ElementsAre("line 85 100 115 100 #000000 1 inverting|line 100 85 100 115 #000000 1 inverting",
                            "pixel 100 100 #00ff00", Cross(100, 100)));
}

TEST(Head, IsSeenStrictlyInsideTheViewOnly)
{
    const PostStation station;
    for (const auto& [x, y] : {std::pair{0.0, 100.0}, {640.0, 100.0}, {100.0, 0.0}, {100.0, 480.0}}) {
        StartAt100();
        AppState.SimX = x;
        AppState.SimY = y;
        DrawHead(HeadMode::Cut);
        EXPECT_THAT(TakeHeads(), ElementsAre(Cross(100, 100))) << x << " " << y;
        EXPECT_EQ(AppState.SimPrevX, x);
        EXPECT_EQ(AppState.SimPrevY, y);
    }
}

TEST(Head, LeavesTheViewAndComesBack)
{
    const PostStation station;
    PutSettings(station, "SIMSPEED=10\n");
    StartAt100();
    StepTo(HeadMode::Cut, -50, 100);
    EXPECT_EQ(AppState.SimHeadShown, FlagOff);
    Lines heads = TakeHeads();
    EXPECT_EQ(heads.back(), Cross(2, 100)) << "taken off where it was last";
    StepTo(HeadMode::Cut, -50, 300);
    EXPECT_EQ(AppState.SimY, 300);
    EXPECT_THAT(TakeStrokes(), IsEmpty());
    StepTo(HeadMode::Cut, 10, 300);
    heads = TakeHeads();
    ASSERT_GE(heads.size(), 2U);
    EXPECT_EQ(heads[0], "line 0 300 2 300 #ff0000 3") << "from the step before, on the border";
    EXPECT_EQ(heads[1], Cross(2, 300));
}

TEST(Head, AMoveBesideTheViewOnlySetsThePosition)
{
    const PostStation station;
    const double ends[][4] = {
        {-10, -10, -10, 700}, {-10, 490, 700, 481}, {-100, 450, 50, 600}, {641, 0, 700, 9}};
    for (const auto& [x1, y1, x2, y2] : ends) {
        StartAt100();
        AppState.SimX = x1;
        AppState.SimY = y1;
        StepTo(HeadMode::Rapid, x2, y2);
        EXPECT_THAT(TakeStrokes(), IsEmpty()) << x1;
        EXPECT_EQ(AppState.SimX, x2);
        EXPECT_EQ(AppState.SimY, y2);
        EXPECT_EQ(Screen.Pauses, 0);
    }
}

TEST(Head, ATrailBeginsWhereItsMoveBegins)
{
    const PostStation station;
    PutSettings(station, "SIMSPEED=10\n");
    for (const bool arc : {false, true}) {
        StartAt100();
        AppState.SimY = AppState.SimPrevY = -1;
        if (arc) {
            ArcTo(100, -1, 620, -1, 360, -1, 260); // under the picture
            ArcTo(620, -1, 600, 19, 600, -1, 20);
        } else {
            StepTo(HeadMode::Rapid, 600, -1);
            StepTo(HeadMode::Cut, 600, 9);
        }
        const Lines heads = TakeHeads();
        ASSERT_GT(heads.size(), 1U);
        EXPECT_THAT(heads[1], StartsWith(arc ? "line 620 -1 " : "line 600 -1 600 1 #ff0000"));
    }
}

TEST(Head, RunsAlongArcs)
{
    const PostStation station;
    PutSettings(station, "SIMSPEED=5\n"); // steps of 1
    struct Case {
        double EndX, EndY, Radius;
        double MidX, MidY; ///< half-way
        double Way;
    };
    // About (300, 200) from (350, 200).
    const Case cases[] = {
        {300, 250, 50, 300 + 50 * std::sqrt(0.5), 200 + 50 * std::sqrt(0.5), 25 * Pi},
        {300, 250, -50, 300 - 50 * std::sqrt(0.5), 200 - 50 * std::sqrt(0.5), 75 * Pi},
        {350, 200, 50, 250, 200, 100 * Pi},
        {350, 200, -50, 250, 200, 100 * Pi},
    };
    for (const Case& c : cases) {
        StartAt100();
        AppState.SimX = AppState.SimPrevX = 350;
        AppState.SimY = AppState.SimPrevY = 200;
        std::vector<std::pair<double, double>> visited;
        Screen.ClockTick = SlowStep;
        Screen.OnPause = [&visited] { visited.emplace_back(AppState.SimX, AppState.SimY); };
        ArcTo(350, 200, c.EndX, c.EndY, 300, 200, c.Radius);
        Screen.OnPause = nullptr;
        ASSERT_EQ(visited.size(), static_cast<std::size_t>(std::ceil(c.Way)));
        for (const auto& [x, y] : visited) {
            EXPECT_NEAR(std::hypot(x - 300, y - 200), 50, Near);
        }
        const auto& [midX, midY] = visited[visited.size() / 2];
        EXPECT_LT(std::hypot(midX - c.MidX, midY - c.MidY), 1.5);
        EXPECT_EQ(AppState.SimX, c.EndX);
        EXPECT_EQ(AppState.SimY, c.EndY);
    }
}

TEST(Head, ArcsWithoutRadiusOrBesideTheViewAreNotDrawn)
{
    const PostStation station;
    StartAt100();
    ArcTo(100, 100, 110, 100, 105, 100, 0.0);
    EXPECT_THAT(TakeStrokes(), IsEmpty());
    EXPECT_EQ(AppState.SimX, 110);
    ArcTo(-100, 100, -140, 100, -120, 100, 20.0);
    EXPECT_THAT(TakeStrokes(), IsEmpty());
    EXPECT_EQ(AppState.SimX, -140);
}

TEST(Head, WithoutAViewThereIsNoEndlessWay)
{
    const PostStation station;
    StartAt100();
    for (const double unit : {0.0, 1e-12, std::nan("")}) {
        AppState.UnitsPerPixelX = unit;
        StepTo(HeadMode::Cut, 500, 400);
        EXPECT_EQ(AppState.SimX, 500);
        ArcTo(500, 400, 500, 400, 300, 400, 200);
        EXPECT_EQ(AppState.SimX, 500);
        StepTo(HeadMode::Cut, 100, 100);
    }
    EXPECT_LT(Screen.Pauses, 100);
}

TEST(Head, AfterAStopNothingMoves)
{
    const PostStation station;
    StartAt100();
    AppState.SimStop = FlagOn;
    StepTo(HeadMode::Cut, 200, 200);
    ArcTo(100, 100, 200, 100, 150, 100, 50);
    DrawHead(HeadMode::Cut);
    EXPECT_THAT(TakeStrokes(), IsEmpty());
    EXPECT_EQ(AppState.SimX, 100);
}

TEST(Head, ARubberLineUnderTheTrailComesOffWhole)
{
    const PostStation station;
    PutSettings(station, "SIMSPEED=10\n");
    StartAt100();
    AppState.MeasureOn = FlagOn;
    AppState.MeasureLastX = 30;
    const std::string rubber = "line 0 0 30 0 #00ff00 1 inverting";
    StepTo(HeadMode::Cut, 101, 100);
    const Lines strokes = TakeStrokes();
    ASSERT_EQ(strokes.size(), 7U);
    EXPECT_EQ(strokes[2], rubber);
    EXPECT_EQ(strokes[3], "line 100 100 101 100 #ff0000 3");
    EXPECT_EQ(strokes[4], rubber);
}

// --- statistics ---------------------------------------------------------------------------------------------------

TEST(Head, TheTrailNeverHidesTheStatistics)
{
    const PostStation station;
    PutSettings(station, "SIMSPEED=10\n");
    StartAt100();
    AppState.StatisticsLeft = 110;
    AppState.StatisticsRight = 150;
    AppState.StatisticsBottom = 95;
    AppState.StatisticsTop = 115;
    Screen.ClockTick = SlowStep;
    StepTo(HeadMode::Cut, 105, 100);
    EXPECT_THAT(TakeStrokes(), Not(Contains(HasSubstr("text"))));
    AppState.SimX = AppState.SimPrevX = 120;
    StepTo(HeadMode::Cut, 121, 100);
    const Lines heads = TakeHeads();
    ASSERT_EQ(heads.size(), 7U);
    EXPECT_EQ(heads[2], Cross(121, 100));
    EXPECT_EQ(heads[3], Cross(121, 100)) << "lifted from the text, which is no inverting stroke";
    EXPECT_THAT(heads[4], HasSubstr("'Shape:"));
    EXPECT_THAT(heads[5], HasSubstr("'Piercing:"));
    EXPECT_EQ(heads[6], Cross(121, 100));
}

// --- pace -------------------------------------------------------------------------------------------------------

/// Seconds that a way of 500 pixels takes.
double SecondsOfWay(const std::string& speed, double secondsOfAStep)
{
    const PostStation station;
    PutSettings(station, "SIMSPEED=" + speed + "\n");
    StartAt100();
    Screen.ClockTick = secondsOfAStep;
    const double start = Screen.Clock;
    StepTo(HeadMode::Cut, 600, 100);
    return Screen.Clock - start;
}

TEST(Pace, IsTheSameOnAnyMachine)
{
    for (const char* speed : {"1", "3", "15", "25"}) {
        const double fast = SecondsOfWay(speed, 0.0);
        EXPECT_NEAR(SecondsOfWay(speed, 1e-6), fast, 0.02) << speed;
        EXPECT_NEAR(SecondsOfWay(speed, 2e-4), fast, 0.02) << speed;
    }
}

TEST(Pace, IsComfortableAtThreeAndFastAtTheEnd)
{
    // 0.6 pixels a step, 340 steps a second; 5 pixels, 1000 steps.
    EXPECT_NEAR(SecondsOfWay("3", 0.0), 500 / (0.6 * 340), 0.02);
    EXPECT_NEAR(SecondsOfWay("25", 0.0), 500 / (5.0 * 1000), 0.02);
}

TEST(Pace, ShortMovesTakeTheTimeOfTheirWay)
{
    const PostStation station;
    PutSettings(station, "SIMSPEED=25\n");
    StartAt100();
    const double start = Screen.Clock;
    for (int i = 1; i <= 5000; ++i) {
        StepTo(HeadMode::Cut, 100 + i * 0.1, 100);
    }
    EXPECT_NEAR(Screen.Clock - start, 0.1, 0.02);
}

TEST(Pace, NothingSeenIsNotWaitedFor)
{
    const PostStation station;
    StartAt100();
    AppState.SimX = -100000;
    const double start = Screen.Clock;
    StepTo(HeadMode::Cut, 0, 100);
    EXPECT_NEAR(Screen.Clock - start, 0.0, 0.05);
}

TEST(Pace, AMoveOfTooManyStepsIsNotWaitedFor)
{
    const PostStation station;
    PutSettings(station, "SIMSPEED=1\nSIM_DEFRAG=10000\n");
    StartAt100();
    const double start = Screen.Clock;
    StepTo(HeadMode::Rapid, 600, 400);
    ArcTo(600, 400, 600, 400, 400, 400, 200);
    EXPECT_NEAR(Screen.Clock - start, 0.0, 0.05);
}

TEST(Pace, WhatAQuestionTookIsNotMadeUpFor)
{
    const PostStation station;
    PutSettings(station, "SIMSPEED=3\n");
    StartAt100();
    bool asked = false;
    Screen.OnPause = [&asked] { Screen.Clock += asked ? 0.0 : 60.0, asked = true; };
    StepTo(HeadMode::Cut, 600, 100);
    EXPECT_NEAR(Screen.Clock, 60 + 500 / (0.6 * 340), 0.1);
}

// --- the walk ---------------------------------------------------------------------------------------------------

/// The points of a program: what a line of the table *RAPID_MOVE or of a move tells.
std::vector<std::pair<double, double>> PointsOf(const Lines& program)
{
    std::vector<std::pair<double, double>> points;
    for (const std::string& line : program) {
        const std::size_t x = line.find(" X");
        const std::size_t y = line.find(" Y");
        if (x != std::string::npos && y != std::string::npos) {
            points.emplace_back(std::stod(line.substr(x + 2)), std::stod(line.substr(y + 2)));
        }
    }
    return points;
}

constexpr const char* PointTable = "[PartProgram_CONFIG]\nLINENUMBER=OFF\n"
                                   "[PartProgram_StartCUT]\nLINE1=*RAPID_MOVE\n"
                                   "[PartProgram_POINT]\nLINE1=*RAPID_MOVE\n";

TEST(AnySimulation, TheHeadVisitsThePointsOfTheProgramInTheirOrder)
{
    const PostStation station(PointTable);
    std::mt19937 random(8405);
    std::size_t points = 0;
    for (int round = 0; round < 60; ++round) {
        std::string text = RandomCase(random);
        if (round % 3 == 0) {
            text += "point 3.5 7.25\npoint 40 2\n";
        }
        LoadCase(text);
        GenerateProgram("P");
        const auto program = PointsOf(station.Program("P"));
        ShowView(-2000, -2000, 8.0);
        Screen.ClockTick = SlowStep;
        std::vector<std::pair<double, double>> visited;
        Screen.OnPause = [&visited] { visited.emplace_back(AppState.SimX, AppState.SimY); };
        GenerateProgram("SIMULA");
        auto at = visited.begin();
        for (const auto& point : program) {
            const auto found = std::find(at, visited.end(), point);
            ASSERT_NE(found, visited.end()) << point.first << " " << point.second << "\n" << text;
            for (; at != found; ++at) { // between two points the head is on its way
                EXPECT_LT(std::hypot(at->first - point.first, at->second - point.second), 2000);
            }
        }
        EXPECT_TRUE(visited.empty() || at + 1 == visited.end() || program.empty()) << text;
        points += program.size();
        if (!program.empty()) {
            EXPECT_EQ(AppState.SimX, program.back().first);
            EXPECT_EQ(AppState.SimY, program.back().second);
        }
        Screen.OnPause = nullptr;
        TakeStrokes();
    }
    EXPECT_GT(points, 2000U);
}

TEST(AnySimulation, OneHeadAtATimeAndItComesOffWhereItWasPut)
{
    const PostStation station;
    std::mt19937 random(311);
    for (int round = 0; round < 20; ++round) {
        LoadCase(RandomCase(random));
        ShowView(100, 50, 0.5); // a part of the sheet
        GenerateProgram("SIMULA");
        std::string standing;
        for (const std::string& head : TakeHeads()) {
            if (head.find("inverting") == std::string::npos) {
                EXPECT_EQ(standing, "") << "painted under a head: " << head;
            } else if (standing.empty()) {
                standing = head;
            } else {
                EXPECT_EQ(head, standing);
                standing.clear();
            }
        }
        EXPECT_EQ(AppState.SimHeadShown, FlagOff);
    }
}

constexpr const char* SmallNest = "sense 1\nline 0 0 0 20\nline 0 20 40 20\nline 40 20 0 0\nclose\n"
                                  "arc 30 15 30 15 25 15 5\nclose\npoint 1 1\n"
                                  "layout kind=1 columns=2 rows=2 gapx=5 gapy=5\n";

TEST(Simulation, BesideTheViewRunsAtOnce)
{
    const PostStation station(PointTable);
    LoadCase(SmallNest);
    GenerateProgram("P");
    const auto program = PointsOf(station.Program("P"));
    ASSERT_FALSE(program.empty());
    for (const auto& [left, bottom] : {std::pair{-9000.0, 0.0}, {5000.0, 5000.0}}) {
        ShowView(left, bottom);
        Screen.Pauses = 0;
        GenerateProgram("SIMULA");
        EXPECT_THAT(TakeStrokes(), IsEmpty());
        EXPECT_EQ(Screen.Pauses, 0);
        EXPECT_EQ(AppState.SimX, program.back().first);
        EXPECT_EQ(AppState.SimY, program.back().second);
    }
}

TEST(Simulation, BesideTheViewLetsKeysIn)
{
    const PostStation station;
    LoadCase("sense 1\nline 0 0 0 40\nline 0 40 50 40\nline 50 40 50 0\nline 50 0 0 0\nclose\n"
             "arc 30 15 30 15 25 15 5\nclose\nlayout kind=1 columns=100 rows=100 gapx=5 gapy=5\n");
    ShowView(-9000, 0);
    Screen.ClockTick = 1e-3; // a second for each thousand moves
    int keys = 0;
    Screen.OnPause = [&keys] {
        if (++keys == 3) {
            StopSimulation();
        }
    };
    GenerateProgram("SIMULA");
    EXPECT_EQ(keys, 3);
    EXPECT_LT(Screen.Clock, 1.0);
    EXPECT_LT(AppState.SimY, 50) << "still in the first row";
}

int Redraws = 0;

TEST(Simulation, StopsAtAnyPoint)
{
    const PostStation station;
    LoadCase(SmallNest);
    ShowView(-20, -20, 0.5);
    Screen.ClockTick = SlowStep;
    AppState.Redraw = [](Flag) { ++Redraws; };
    GenerateProgram("SIMULA");
    const std::int64_t pauses = Screen.Pauses;
    ASSERT_GT(pauses, 500);
    for (std::int64_t stopAt = 1; stopAt <= pauses; stopAt += 37) {
        std::int64_t seen = 0;
        Redraws = 0;
        Screen.OnPause = [&] {
            EXPECT_NE(AppState.SimRunning, FlagOff);
            EXPECT_NE(AppState.SimWalking, FlagOff);
            if (++seen == stopAt) {
                StopSimulation();
                EXPECT_EQ(AppState.SimRunning, FlagOff);
                TakeStrokes();
            }
        };
        GenerateProgram("SIMULA");
        EXPECT_EQ(seen, stopAt) << "nothing moves any more";
        EXPECT_EQ(Redraws, 1);
        EXPECT_THAT(TakeStrokes(), IsEmpty());
        EXPECT_EQ(AppState.SimRunning, FlagOff);
        EXPECT_EQ(AppState.SimWalking, FlagOff);
        EXPECT_EQ(AppState.SimHeadShown, FlagOff);
    }
}

TEST(Simulation, AStopEndsTheWalkOfCopiesAndProfiles)
{
    const PostStation station("[PartProgram_PartHead]\nCOLLECTION1=*part_nr\n"
                              "[PartProgram_StartCUT]\nCOLLECTION1=cut\n");
    LoadCase(SmallNest);
    ShowView(-20, -20, 0.5);
    Screen.ClockTick = SlowStep;
    GenerateProgram("SIMULA");
    EXPECT_THAT(AppState.CollectionBuffer,
                ElementsAre("1", "cut", "cut", "2", "cut", "cut", "3", "cut", "cut", "4", "cut", "cut"));
    Screen.OnPause = [] {
        if (AppState.SimX > 50) { // on the way to the second copy
            StopSimulation();
        }
    };
    GenerateProgram("SIMULA");
    EXPECT_THAT(AppState.CollectionBuffer, ElementsAre("1", "cut", "cut", "2"));
}

TEST(Simulation, AStopEndsTheMovesOfAProfile)
{
    const PostStation station;
    LoadCase(SmallNest);
    ShowView(-20, -20, 0.5);
    AppState.LineNumbering = FlagOn;
    AppState.LineNumberStep = 1;
    Screen.ClockTick = SlowStep;
    std::int32_t moves = 0;
    Screen.OnPause = [&moves] {
        if (AppState.SimY > 15) { // in the middle of a cut
            moves = AppState.LineNumber;
            StopSimulation();
        }
    };
    GenerateProgram("SIMULA");
    EXPECT_GT(moves, 0);
    EXPECT_EQ(AppState.LineNumber, moves) << "none behind it";
}

TEST(Simulation, AStoppedOneCountsLinesBeyondTheirEnd)
{
    const PostStation station("[PartProgram_EndCUT]\nLINE1=_M05\n");
    LoadCase(SmallNest);
    ShowView(-20, -20, 0.5);
    AppState.LineNumbering = FlagOn;
    AppState.LineNumberStep = 10;
    AppState.LineNumber = 2147483647;
    Screen.ClockTick = SlowStep;
    Screen.OnPause = [] {
        if (AppState.SimY > 15) { // in the middle of a cut
            StopSimulation();
        }
    };
    GenerateProgram("SIMULA");
    EXPECT_NE(AppState.SimStop, FlagOff);
    EXPECT_EQ(AppState.LineNumber, 2147483647);
}

TEST(Simulation, AStopWithoutOneDoesNothing)
{
    const PostStation station;
    AppState.Redraw = [](Flag) { ++Redraws; };
    Redraws = 0;
    StopSimulation();
    EXPECT_EQ(Redraws, 0);
    EXPECT_EQ(AppState.SimStop, FlagOff);
}

TEST(Simulation, BearsNoOtherRunInside)
{
    const PostStation station;
    LoadCase(SmallNest);
    ShowView(-20, -20, 0.5);
    Screen.ClockTick = SlowStep;
    bool tried = false;
    Screen.OnPause = [&tried] {
        if (!tried) {
            tried = true;
            FaultOf([] { GenerateProgram("SIMULA"); });
            FaultOf([] { GenerateProgram("P"); });
        }
    };
    GenerateProgram("SIMULA");
    EXPECT_TRUE(tried);
    EXPECT_FALSE(station.Folder.Holds("NC/P"));
    EXPECT_EQ(AppState.SimRunning, FlagOff);
}

TEST(Simulation, AHundredPartsAtTheHighestSpeedTakeSeconds)
{
    const PostStation station;
    PutSettings(station, "SIMSPEED=25\n");
    LoadCase("sense 1\nline 0 0 0 40\nline 0 40 50 40\nline 50 40 50 0\nline 50 0 0 0\nclose\n"
             "layout kind=1 columns=10 rows=10 gapx=5 gapy=5\n");
    ShowView(-5, -5); // the sheet fills the picture
    GenerateProgram("SIMULA");
    EXPECT_GT(Screen.Clock, 2.0);
    EXPECT_LT(Screen.Clock, 8.0);
}

TEST(Simulation, AProgramStoresTheSpeedThatItLeft)
{
    const PostStation station;
    PutSettings(station, "SIMSPEED=9\n");
    LoadCase(SmallNest);
    GenerateProgram("SIMULA");
    PutSettings(station, "SIMSPEED=4\n");
    GenerateProgram("P");
    EXPECT_EQ(ReadConfig("SETUP", "SIMSPEED", ""), "9");
}

TEST(Simulation, ASpeedTypedMeanwhileCountsFromTheNextStep)
{
    const PostStation station;
    PutSettings(station, "SIMSPEED=5\n");
    StartAt100();
    Screen.ClockTick = SlowStep;
    Screen.OnPause = [] {
        AppState.TextNesting[FieldSimulation].Text = "20";
        ApplySimulationSpeed();
    };
    StepTo(HeadMode::Cut, 110, 100);
    const Lines trail = TakeStrokesLike("line 10");
    EXPECT_THAT(trail, Contains("line 100 100 101 100 #ff0000 3"));
    EXPECT_THAT(trail, Contains("line 101 100 105 100 #ff0000 3"));
}

TEST(Simulation, AnotherViewMeanwhileHasItsOwnStep)
{
    const PostStation station;
    PutSettings(station, "SIMSPEED=5\n");
    StartAt100();
    Screen.ClockTick = SlowStep;
    Screen.OnPause = [] { AppState.UnitsPerPixelX = 3.0; };
    StepTo(HeadMode::Cut, 110, 100);
    EXPECT_THAT(TakeStrokes(), Contains("line 101 100 104 100 #ff0000 3"));
}
} // namespace
