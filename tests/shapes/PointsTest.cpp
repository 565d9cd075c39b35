// Shapes whose points come out in round numbers, worked out by hand, and the oddities that are meant.
#include "profile/Korvanta_ProfileCut.h"
#include "shapes/Drawings.h"
#include "shapes/Korvanta_Develop.h"
#include "support/PartTables.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace
{
/// Builds a shape from its defaults with some values changed, and nothing else.
void Build(const char* name, const char* changes = "")
{
    StartCase();
    ShapeDrawing drawing{"", "", "", "", "", "", "", 0};
    drawing.Name = name;
    drawing.Case = changes;
    ASSERT_EQ(BuildRaw(IdOf(drawing), ParametersOf(drawing, DefaultNames(drawing))), 0) << name;
    // TableText cuts off; what is a whole number but for rounding is made one.
    for (ProfileElement& e : AppState.ElementTable) {
        for (double* value : {&e.StartX, &e.StartY, &e.EndX, &e.EndY, &e.GeoA, &e.GeoB, &e.GeoC}) {
            if (std::fabs(*value - std::round(*value)) < 1e-9) {
                *value = std::round(*value);
            }
        }
    }
}

std::string Circle(std::int32_t slot)
{
    const auto number = [](double value) { return std::to_string(static_cast<long>(value)); };
    const ProfileElement& arc = Slot(slot);
    return number(arc.GeoA) + "," + number(arc.GeoB) + " r" + number(arc.GeoC);
}
} // namespace

TEST(Points, PlatesOfTheRectangularFamily)
{
    Build("R-01", "R=0");
    EXPECT_EQ(TableText(), "L0,0>0,200 L0,200>300,200 L300,200>300,0 L300,0>0,0 9");
    Build("R-01");
    EXPECT_EQ(TableText(), "L0,20>0,280 A-0,280>20,300 L20,300>180,300 A-180,300>200,280 L200,280>200,20 "
                           "A-200,20>180,0 L180,0>20,0 A-20,0>0,20 9");
    EXPECT_EQ(Circle(2), "20,280 r-20");
    EXPECT_EQ(Slot(9).GeoC, 2.0);
    Build("R-02", "R=0");
    EXPECT_EQ(TableText(), "A+100,80>100,80 . L0,0>0,200 L0,200>300,200 L300,200>300,0 L300,0>0,0 9");
    Build("R-05");
    EXPECT_EQ(TableText(),
              "L0,20>0,300 L0,300>200,300 L200,300>200,20 L200,20>180,0 L180,0>20,0 L20,0>0,20 9");
    Build("R-15");
    EXPECT_EQ(TableText(),
              "L0,0>0,100 L0,100>170,300 L170,300>200,300 L200,300>200,250 L200,250>50,0 L50,0>0,0 9");
    Build("R-29");
    EXPECT_EQ(TableText(),
              "L30,0>0,20 L0,20>0,190 L0,190>15,200 L15,200>285,200 L285,200>300,190 L300,190>300,35 "
              "L300,35>260,0 L260,0>30,0 9");
    Build("H-02");
    EXPECT_EQ(TableText(),
              "L5,0>95,0 A+95,0>100,5 L100,5>100,45 A+100,45>95,50 L95,50>5,50 A+5,50>0,45 L0,45>0,5 "
              "A+0,5>5,0 9");
}

TEST(Points, BothContoursOfR06RunCounterClockwiseAsBuilt)
{
    Build("R-06");
    EXPECT_EQ(TableText(),
              "L40,100>70,100 A+70,100>80,110 L80,110>80,190 A+80,190>70,200 L70,200>40,200 "
              "A+40,200>30,190 L30,190>30,110 A+30,110>40,100 . L20,0>180,0 A+180,0>200,20 "
              "L200,20>200,280 A+200,280>180,300 L180,300>20,300 A+20,300>0,280 L0,280>0,20 A+0,20>20,0 9");
    for (std::int32_t i = 1; i <= 9; ++i) {
        EXPECT_EQ(Slot(i).Sense, 1) << i;
    }
    for (std::int32_t i = 10; i <= 17; ++i) {
        EXPECT_EQ(Slot(i).Sense, -1) << i; // the scrap lies on the right
    }
    EXPECT_EQ(Slot(18).Sense, 1);
}

TEST(Points, TheHolesOfR25BeginWhereTheyAlwaysDid)
{
    Build("R-25", "E=100; C=30; D=40; A=310; D1=26");
    // (150, 310 - 100 + 50) about (150, 100); the upper right one (300 - 30, 310 - 30 - 13) about (260, 280).
    EXPECT_EQ(Slot(1).StartX, 150.0);
    EXPECT_EQ(Slot(1).StartY, 260.0);
    EXPECT_EQ(Circle(1), "150,100 r50");
    EXPECT_EQ(Slot(3).StartX, 40.0);
    EXPECT_EQ(Slot(3).StartY, 267.0);
    EXPECT_EQ(Circle(3), "40,280 r13");
    EXPECT_EQ(Slot(5).StartX, 270.0);
    EXPECT_EQ(Slot(5).StartY, 267.0);
    EXPECT_EQ(Circle(5), "260,280 r13");
    EXPECT_EQ(Circle(7), "260,30 r13");
    EXPECT_EQ(Circle(9), "40,30 r13");
    // All are full turns, however they begin.
    MeasureProfiles(FlagOn);
    EXPECT_NEAR(Slot(1).Length, 2 * Pi * 50, 1e-9);
    EXPECT_NEAR(Slot(5).Length, 2 * Pi * 13, 1e-9);
}

TEST(Points, TheHolesOfR35GoOnceRound)
{
    Build("R-35", "A=200; B=300; C=30; D=30; Nx=4.9; Ny=3.9; E=80; F=180"); // columns 80 apart, rows 70
    const double places[][2] = {{30, 30},   {110, 30},  {190, 30},  {270, 30}, {270, 100},
                                {270, 170}, {190, 170}, {110, 170}, {30, 170}, {30, 100}};
    for (std::int32_t i = 0; i < 10; ++i) {
        EXPECT_EQ(Slot(2 * i + 1).StartX, places[i][0] + 10) << i;
        EXPECT_EQ(Slot(2 * i + 1).StartY, places[i][1]) << i;
        EXPECT_EQ(Slot(2 * i + 1).GeoA, places[i][0]) << i;
        EXPECT_EQ(Slot(2 * i + 1).GeoC, 10.0) << i;
        EXPECT_EQ(Slot(2 * i + 2).GeoC, 2.0) << i;
    }
    EXPECT_EQ(Slot(21).StartX, 60.0);
    EXPECT_EQ(Slot(21).StartY, 60.0);
    EXPECT_EQ(Slot(23).StartX, 240.0);
    EXPECT_EQ(Slot(23).StartY, 140.0);
    EXPECT_EQ(Slot(25).Kind, KindEnd);
}

TEST(Points, TheStrokeOfR39IsOpenAndWithoutASide)
{
    Build("R-39");
    EXPECT_EQ(TableText(), "L0,0>0,50 L0,50>0,250 L0,250>50,300 L50,300>400,300 L400,300>0,50 L0,50>350,50 "
                           "L350,50>400,100 L400,100>400,350 L400,350>50,350 L50,350>0,400 L0,400>0,600 "
                           "L0,600>400,350 L400,350>400,550 L400,550>350,600 L350,600>0,600 9");
    for (std::int32_t i = 1; i <= 16; ++i) {
        EXPECT_EQ(Slot(i).Sense, 0) << i;
    }
    EXPECT_EQ(Slot(16).StartX, 0.0); // where the stroke ends
    EXPECT_EQ(Slot(16).StartY, 600.0);
    Build("R-39", "X=0");
    EXPECT_EQ(TableText(), "L0,0>0,50 L0,50>0,300 L0,300>400,300 L400,300>0,50 L0,50>400,50 L400,50>400,350 "
                           "L400,350>0,350 L0,350>0,600 L0,600>400,350 L400,350>400,600 L400,600>0,600 9");
}

TEST(Points, TheStrokeOfR40SharesItsMiddleLine)
{
    Build("R-40");
    EXPECT_EQ(TableText(), "L300,-5>300,0 L300,0>0,0 L0,0>0,400 L0,400>300,400 L300,400>300,0 L300,0>600,0 "
                           "L600,0>600,400 L600,400>300,400 9");
    EXPECT_EQ(Slot(9).StartX, 300.0);
    EXPECT_EQ(Slot(9).StartY, 400.0);
    EXPECT_EQ(Slot(9).Sense, 1);
    Build("R-40", "Offset=2; L=0");
    EXPECT_EQ(TableText(), "L302,-2>-2,-2 L-2,-2>-2,402 L-2,402>302,402 L302,402>302,-2 L302,-2>606,-2 "
                           "L606,-2>606,402 L606,402>302,402 9");
}

TEST(Points, TwinHalvesOfR41)
{
    const std::string left =
        "L305,-15>305,-5 A+305,-5>300,0 L300,0>20,0 A-20,0>0,20 L0,20>0,380 A-0,380>20,400 "
        "L20,400>300,400";
    const std::string right = "L295,-15>295,-5 A-295,-5>300,0 L300,0>580,0 A+580,0>600,20 L600,20>600,380 "
                              "A+600,380>580,400 L580,400>300,400";
    Build("R-41");
    EXPECT_EQ(TableText(), left + " 9 " + right + " 9");
    EXPECT_EQ(AppState.ShapeFlagTwin, FlagOn);
    EXPECT_EQ(AppState.ProfileCount, 2);
    for (std::int32_t i = 1; i <= 16; ++i) {
        EXPECT_EQ(Slot(i).Sense, i <= 8 ? 1 : -1) << i;
    }
    Build("R-41", "Swap=1; Tail=7");
    EXPECT_EQ(TableText(), right + " L300,400>300,407 9 " + left + " L300,400>300,407 9");
    for (std::int32_t i = 1; i <= 18; ++i) {
        EXPECT_EQ(Slot(i).Sense, i <= 9 ? -1 : 1) << i; // the side stays with its half
    }
    EXPECT_EQ(Slot(9).StartX, 300.0); // an open profile ends at its last point
    EXPECT_EQ(Slot(9).StartY, 407.0);
}

TEST(Points, TwinHalvesOfACircle)
{
    Build("C-26", "L=20");
    EXPECT_EQ(TableText(), "A+100,60>100,60 . L110,-30>110,-10 A+110,-10>100,0 A-100,0>100,200 9 "
                           "L90,-30>90,-10 A-90,-10>100,0 A+100,0>100,200 9");
    EXPECT_EQ(Circle(5), "100,100 r-100");
    EXPECT_EQ(Circle(9), "100,100 r100");
    EXPECT_EQ(Slot(2).Kind, KindEnd);
    EXPECT_EQ(Slot(6).Kind, KindOuterEnd);
    EXPECT_EQ(Slot(10).Sense, -1);
}

TEST(Points, ARightAngledTangent)
{
    // Corner (0, 0), eye (30, 40) of radius 30: the tangent is the left side, it touches at (0, 40).
    Build("C-05", "B=60; A=40; R=30; D=0");
    EXPECT_EQ(TableText(), "L0,0>0,40 A-0,40>60,40 L60,40>60,0 L60,0>0,0 9");
    // Corner (0, 0), eye (70, 240) of radius 150: 250 away, tangent 200. The touching point is the corner's image: 200 along
    // the direction (70, 240) / 250 turned left by the angle with sine 0.6 and cosine 0.8.
    Build("C-04", "B=220; A=240; R=150; D=20");
    EXPECT_EQ(TableText(), "A+70,230>70,230 . L0,0>-70,187 A--70,187>220,240 L220,240>220,0 L220,0>0,0 9");
    EXPECT_NEAR(Slot(4).StartX, 200 * (0.28 * 0.8 - 0.96 * 0.6), 1e-9);
    EXPECT_NEAR(Slot(4).StartY, 200 * (0.96 * 0.8 + 0.28 * 0.6), 1e-9);
}

TEST(Points, ALinkOfCirclesWithASlantOfSixTenths)
{
    // Radii 40 and 10, 50 apart: the touching points stand 0.6 along the line of centres and 0.8 beside it.
    Build("C-11", "B=50; R1=40; R2=10; D1=0; D2=0");
    EXPECT_EQ(TableText(), "L96,32>64,8 A-64,8>64,72 L64,72>96,48 A-96,48>96,32 9");
    EXPECT_EQ(Circle(2), "40,40 r-40");
    EXPECT_EQ(Circle(4), "90,40 r-10");
    Build("C-17", "B=50; R1=40; R2=10");
    EXPECT_EQ(TableText(), "L-8,-56>-32,-24 A--32,-24>32,-24 L32,-24>8,-56 A-8,-56>-8,-56 9");
}

TEST(Points, FlatsAndBarsMeetTheirDiscsInWholeNumbers)
{
    Build("C-18", "A=60; R1=50; R2=34; B=200; D1=0; D2=0"); // roots 40 and 16
    EXPECT_EQ(TableText(), "L40,30>184,30 A-184,30>184,-30 L184,-30>40,-30 A-40,-30>40,30 9");
    EXPECT_EQ(Slot(5).GeoC, 4.0);
    Build("C-19", "A=60; B=200; De=100; Di=20");
    EXPECT_EQ(TableText(), "A+0,-10>0,-10 . L-100,-30>-100,30 L-100,30>-40,30 A--40,30>40,30 L40,30>100,30 "
                           "L100,30>100,-30 L100,-30>40,-30 A-40,-30>-40,-30 L-40,-30>-100,-30 9");
    Build("C-20", "A=90; D=100");
    EXPECT_EQ(TableText(), "A--30,-40>30,-40 L30,-40>-30,-40 9");
    Build("C-21", "A=30; B=40; D=100");
    EXPECT_EQ(TableText(), "L-30,40>30,40 A-30,40>40,-30 L40,-30>-40,-30 A--40,-30>-30,40 9");
}

TEST(Points, AFlatThatTouchesItsDiscLeavesNothing)
{
    // Half the chord is sqrt(1 * 0.00005) = 0.007: below the tolerance it counts as a touch, and the flat has no length.
    StartCase();
    ShapeDrawing drawing{"C-20", "A=1; D=1.00005", "", "", "", "", "", 0};
    EXPECT_EQ(BuildRaw(2020, ParametersOf(drawing, DefaultNames(drawing))), GeoNoLine);
    // Of C-18's bar only the touching points count: the roots are 0.
    Build("C-18", "A=160; R1=80; R2=80");
    EXPECT_EQ(TableText(), "A+0,-40>0,-40 . A+300,-35>300,-35 . L0,80>300,80 A-300,80>300,-80 L300,-80>0,-80 "
                           "A-0,-80>0,80 9");
}

TEST(Points, TheEllipseIsAChainOfChords)
{
    Build("C-22", "A=100; B=300; P=235"); // 2 pi 150 / 235 = 4.01: four chords
    EXPECT_EQ(TableText(), "L-150,0>0,50 L0,50>150,0 L150,0>0,-50 L0,-50>-150,0 L-150,0>-150,0 9");
    for (std::int32_t i = 1; i <= 5; ++i) {
        EXPECT_EQ(Slot(i).GeoA, 0.0) << i;
        EXPECT_EQ(Slot(i).GeoB, 0.0) << i;
        EXPECT_EQ(Slot(i).GeoC, 0.0) << i;
    }
    EXPECT_EQ(Slot(6).GeoC, 2.0);
    MeasureProfiles(FlagOn);
    EXPECT_NEAR(Slot(5).Length, 0.0, 1e-9); // the last one has no length
    Build("C-22", "P=0");                   // chords of 20: 47.1 of them
    EXPECT_EQ(AppState.ElementCount, 47 + 2);
}

TEST(Points, HalfAChordIsRoundedToTheEvenCount)
{
    // 2 pi (B / 2) / P with P = pi is B.
    Build("C-22", "A=10; B=2.5; P=3.14159265358979");
    EXPECT_EQ(AppState.ElementCount, 2 + 2);
    Build("C-22", "A=10; B=3.5; P=3.14159265358979");
    EXPECT_EQ(AppState.ElementCount, 4 + 2);
    Build("C-22", "A=10; B=4.5; P=3.14159265358979");
    EXPECT_EQ(AppState.ElementCount, 4 + 2);
}

TEST(Points, TheFirstHoleOfAFlangeStandsBelowItsCentre)
{
    Build("C-03", "A=200; B=0; Df=120; D=10; Nr=4.99");
    EXPECT_EQ(TableText(),
              "A+100,35>100,35 . A+160,95>160,95 . A+100,155>100,155 . A+40,95>40,95 . A-0,100>0,100 9");
    EXPECT_EQ(Circle(1), "100,40 r5");
}

TEST(Points, ShapesOutsideTheCatalogue)
{
    Build("11", "p1=100; p2=160; p3=90");
    EXPECT_EQ(TableText(), "L0,0>0,100 L0,100>90,100 L90,100>160,0 L160,0>0,0 9");
    Build("25", "p1=120; p2=200; p3=50");
    EXPECT_EQ(TableText(), "A+100,35>100,35 . L0,0>0,120 L0,120>200,120 L200,120>200,0 L200,0>0,0 9");
    Build("36", "p1=50; p2=40; p3=10");
    EXPECT_EQ(TableText(), "L-32,24>-8,56 A--8,56>8,56 L8,56>32,24 A-32,24>-32,24 9");
    // Fillets 55 + 10 = 65 from the disc's centre, 15 + 10 = 25 beside it, so 60 below it.
    Build("46", "p1=55; p2=30; p3=90; p4=10");
    EXPECT_EQ(TableText(),
              "L-15,-90>-15,-60 A+-15,-60>-21,-50 A--21,-50>21,-50 A+21,-50>15,-60 L15,-60>15,-90 "
              "L15,-90>-15,-90 9");
    EXPECT_EQ(Circle(2), "-25,-60 r10");
    EXPECT_EQ(Circle(3), "0,0 r-55");
    EXPECT_EQ(Circle(4), "25,-60 r10");
    EXPECT_NEAR(Slot(3).StartX, -25 * 55 / 65.0, 1e-9);
    EXPECT_NEAR(Slot(3).StartY, -60 * 55 / 65.0, 1e-9);
    Build("50", "p1=200; p2=160; p3=40; p4=50");
    EXPECT_EQ(TableText(),
              "L55,0>55,160 L55,160>0,160 L0,160>0,200 L0,200>160,200 L160,200>160,160 L160,160>105,160 "
              "L105,160>105,0 L105,0>55,0 9");
    Build("58", "p1=40; p2=150");
    EXPECT_EQ(TableText(), "A-20,0>20,40 L20,40>130,40 A-130,40>130,0 L130,0>20,0 9");
    Build("59", "p1=120; p2=50");
    EXPECT_EQ(TableText(), "L35,35>85,35 L85,35>85,85 L85,85>35,85 L35,85>35,35 . A-60,0>60,0 9");
    // Circles of 15 and 13, 14 apart, cross 12 above and below 9.
    Build("67", "p1=15; p2=13; p3=14");
    EXPECT_EQ(TableText(), "A-9,-12>9,12 A-9,12>9,-12 9");
    EXPECT_EQ(Circle(1), "14,0 r-13");
    EXPECT_EQ(Circle(2), "0,0 r-15");
    Build("69", "p1=100; p2=150; p3=45");
    EXPECT_EQ(TableText(), "L0,0>100,100 L100,100>250,100 L250,100>150,0 L150,0>0,0 9");
}
