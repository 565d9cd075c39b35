// Every check of every builder, hit at its place in the order, and the value next to it that passes.
#include "geometry/Orbalib.h"
#include "shapes/Drawings.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <charconv>
#include <set>
#include <string>

namespace
{
constexpr double Step = 0.0001;

/// Values that hit one check, and values next to them that pass all of them.
struct EdgeRow {
    const char* Name;
    const char* Condition;
    const char* Refused;
    const char* Accepted; ///< null when other checks leave no values that pass
};

/// The checks that have more than one letter, or need other values moved out of the way.
constexpr EdgeRow Edges[] = {
    {"R-01", "2*R>=B", "R=100", "R=99.9999"},
    {"R-06", "A<0.1", "A=0.0999", "A=0.1; R=0"},
    {"R-06", "B<0.1", "B=0.0999", "B=0.1; R=0"},
    {"R-06", "E<0.1", "E=0.0999", "E=0.1; Ri=0"},
    {"R-06", "F<0.1", "F=0.0999", "F=0.1; Ri=0"},
    {"R-06", "2*Ri>=E", "Ri=50; F=200", "Ri=49.9999; F=200"},
    {"R-06", "2*R>=A", "R=150; B=1000", "R=149.9999; B=1000"},
    {"R-07", "A<0.1", "A=0.0999", nullptr}, // A must be above 2 D
    {"R-07", "B<0.1", "B=0.0999", "B=0.1; Ri=0; Re=0"},
    {"R-07", "2*Ri>=A-2*D", "Ri=100; B=1000", "Ri=99.9999; B=1000"},
    {"R-07", "2*Re>=A", "Re=150; B=1000", "Re=149.9999; B=1000"},
    {"R-09", "A<0.1", "A=0.0999", nullptr}, // A must be above 2 Y
    {"R-09", "A/2<=Y", "Y=150", "Y=149.9999"},
    {"R-10", "A<0.1", "A=0.0999", "A=0.1; Y=0"},
    {"R-10", "B<0", "B=-0.0001", "B=0; X=-1"},
    {"R-10", "B/2<=X", "X=100", "X=99.9999"},
    {"R-10", "Y>=A", "Y=300", "Y=299.9999"},
    {"R-11", "B<0.1", "B=0.0999", nullptr}, // B must be above E + Df / 2
    {"R-11", "E<0.1", "E=0.0999", "E=0.1; Df=0.1"},
    {"R-11", "Df/2>=E", "Df=200", "Df=199.9999"},
    {"R-11", "Df/2+E>=B", "E=275", "E=274.9999"},
    {"R-28", "A<0.1", "A=0.0999", nullptr}, // A must be above C
    {"R-28", "B<0.1", "B=0.0999", nullptr}, // B must be above D + E
    {"R-28", "E+D>=B", "D=230", "D=229.9999"},
    {"R-28", "A<=C", "C=300", "C=299.9999"},
    {"R-34", "B<0.1", "B=0.0999", nullptr}, // B must be above both radii
    {"R-34", "Ri+Re>=B/2-E/2", "Ri=60", "Ri=59.9999"},
    {"R-36", "A<R", "R=300.0001", "R=300"},
    {"R-36", "A<0.1", "A=0.0999; R=0", "A=0.1; R=0"},
    {"C-02", "A<0.1", "A=0.0999", nullptr}, // A must be above B
    {"C-02", "A<=B", "B=100", "B=99.9999"},
    {"C-20", "D<0.1", "D=0.0999", nullptr}, // D must be above A
    {"C-20", "D<=A", "D=250", "D=250.0001"},
    {"C-24", "D2e<0.1", "D2e=0.0999", nullptr},
    {"C-24", "D2e<=D2i", "D2e=40", "D2e=40.0001"},
    {"C-24", "D1e<0.1", "D1e=0.0999", nullptr},
    {"C-24", "D1e<=D1i", "D1e=100", "D1e=100.0001"},
    {"H-03", "0.8*A<R", "R=80.0001", "R=80"},
    {"69", "p3>89.9", "p3=89.9001", "p3=89.9"},
};

const EdgeRow* FindEdge(std::string_view name, std::string_view condition)
{
    for (const EdgeRow& edge : Edges) {
        if (name == edge.Name && condition == edge.Condition) {
            return &edge;
        }
    }
    return nullptr;
}

FormulaNames With(const ShapeDrawing& drawing, std::string_view changes)
{
    FormulaNames names = DefaultNames(drawing);
    Define(changes, names);
    return names;
}

void ExpectRefused(const ShapeDrawing& drawing, std::string_view condition, const FormulaNames& names)
{
    for (const std::string_view check : SplitText(drawing.Checks, ';')) { // none ahead of it holds, it does
        ASSERT_EQ(Holds(check, names), check == condition) << ValuesText(drawing, names) << " at " << check;
        if (check == condition) {
            break;
        }
    }
    const ShapeParameters parameters = ParametersOf(drawing, names);
    EXPECT_EQ(BuildRaw(IdOf(drawing), parameters), ErrBadShape) << ValuesText(drawing, names) << condition;
    EXPECT_EQ(AppState.ElementCount, 0) << ValuesText(drawing, names) << condition;
    EXPECT_EQ(AppState.ProfileCount, 0) << ValuesText(drawing, names) << condition;
    EXPECT_EQ(BuildRaw(IdOf(drawing), parameters, 15), ErrBadShape);
    EXPECT_EQ(DevelopWith(drawing, names), ErrBadShape) << ValuesText(drawing, names) << condition;
}

/// The geometry may fail with its own words on such values, the builder may not refuse them.
void ExpectAccepted(const ShapeDrawing& drawing, const FormulaNames& names)
{
    EXPECT_FALSE(AnyHolds(drawing.Checks, names)) << ValuesText(drawing, names);
    EXPECT_NE(BuildRaw(IdOf(drawing), ParametersOf(drawing, names)), ErrBadShape)
        << ValuesText(drawing, names);
    EXPECT_GT(AppState.ElementCount, 0) << ValuesText(drawing, names);
}

/// "X<0.1" and "X<=0.1" with one letter: the limit and a hair beside it.
void CheckLimit(const ShapeDrawing& drawing, std::string_view condition)
{
    const std::size_t at = condition.find('<');
    const bool orEqual = condition.substr(at + 1, 1) == "=";
    const std::string letter(condition.substr(0, at));
    const double limit = Evaluate(condition.substr(at + (orEqual ? 2 : 1)), FormulaNames());
    FormulaNames names = DefaultNames(drawing);
    ASSERT_EQ(names.count(letter), 1U) << drawing.Name << " " << condition;
    names[letter] = orEqual ? limit : limit - Step;
    ExpectRefused(drawing, condition, names);
    names[letter] = orEqual ? limit + Step : limit;
    ExpectAccepted(drawing, names);
}

void CheckRefusals(std::span<const ShapeDrawing> drawings)
{
    for (const ShapeDrawing& drawing : drawings) {
        for (const std::string_view condition : SplitText(drawing.Checks, ';')) {
            StartCase();
            const EdgeRow* edge = FindEdge(drawing.Name, condition);
            if (edge == nullptr) {
                CheckLimit(drawing, condition);
                continue;
            }
            ExpectRefused(drawing, condition, With(drawing, edge->Refused));
            if (edge->Accepted != nullptr) {
                ExpectAccepted(drawing, With(drawing, edge->Accepted));
            }
        }
    }
}

std::int16_t Build(const char* name, const char* changes)
{
    static constexpr ShapeDrawing plain{"", "", "", "", "", "", "", 0};
    ShapeDrawing drawing = plain;
    drawing.Name = name;
    return BuildRaw(IdOf(drawing), ParametersOf(drawing, With(drawing, changes)));
}
} // namespace

TEST(Refusals, RectanglesTo20)
{
    CheckRefusals(DrawingsRect01To20());
}

TEST(Refusals, RectanglesFrom21)
{
    CheckRefusals(DrawingsRect21To41());
}

TEST(Refusals, Circular)
{
    CheckRefusals(DrawingsCircular());
}

TEST(Refusals, Holes)
{
    CheckRefusals(DrawingsHoles());
}

TEST(Refusals, OutsideTheCatalogue)
{
    CheckRefusals(DrawingsOutside());
    StartCase();
    EXPECT_EQ(Build("69", "p3=-89.9001"), ErrBadShape);
    EXPECT_EQ(AppState.ElementCount, 0);
}

TEST(Refusals, EveryListedEdgeBelongsToACheck)
{
    std::set<std::string> checks;
    for (const auto drawings : {DrawingsRect01To20(), DrawingsRect21To41(), DrawingsCircular(),
                                DrawingsHoles(), DrawingsOutside()}) {
        for (const ShapeDrawing& drawing : drawings) {
            for (const std::string_view check : SplitText(drawing.Checks, ';')) {
                checks.insert(drawing.Name + std::string(" ") + std::string(check));
            }
        }
    }
    for (const EdgeRow& edge : Edges) {
        EXPECT_EQ(checks.count(edge.Name + std::string(" ") + edge.Condition), 1U)
            << edge.Name << edge.Condition;
    }
}

TEST(Refusals, WhatIsLeftUncheckedStaysSo)
{
    StartCase();
    // A plate lower than its corners, a notch wider than its plate: drawn as told, however odd.
    EXPECT_EQ(Build("R-01", "A=0"), 0);
    EXPECT_EQ(AppState.ElementCount, 9);
    EXPECT_EQ(Build("R-01", "R=-5"), 0);
    EXPECT_EQ(AppState.ElementCount, 9);
    EXPECT_EQ(Build("R-09", "X=100.5"), 0);
    EXPECT_EQ(AppState.ElementCount, 15);
    EXPECT_EQ(Build("H-02", "R=45"), 0);
    EXPECT_EQ(AppState.ElementCount, 9);
    EXPECT_EQ(Build("C-22", "A=0"), 0);
    EXPECT_EQ(Build("C-26", "B=-1"), 0);
    EXPECT_EQ(AppState.ElementCount, 8);
}

TEST(Refusals, CornersThatDontFitEndARoundedPlateWhereItStands)
{
    StartCase();
    // Corners of the window as wide as the window: nothing was added before.
    EXPECT_EQ(Build("R-06", "Ri=25"), ErrBadShape);
    EXPECT_EQ(AppState.ElementCount, 0);
    // Corners of the plate as wide as the plate: the window's nine records stay.
    EXPECT_EQ(Build("R-06", "R=100"), ErrBadShape);
    EXPECT_EQ(AppState.ElementCount, 9);
    EXPECT_EQ(AppState.ProfileCount, 1);
    EXPECT_EQ(Build("R-07", "Re=100"), ErrBadShape);
    EXPECT_EQ(AppState.ElementCount, 9);
    EXPECT_EQ(Build("R-07", "Ri=50"), ErrBadShape);
    EXPECT_EQ(AppState.ElementCount, 0);
}

TEST(Refusals, TheGeometryFailsWithItsOwnWords)
{
    StartCase();
    // A line of no length.
    EXPECT_EQ(Build("R-03", "X=100"), GeoNoLine); // the top edge of 200
    EXPECT_EQ(Build("R-14", "B=0"), GeoNoLine);
    EXPECT_EQ(Build("H-03", "A=0; R=0"), GeoNoLine);
    // A circle inside the other has no tangent.
    EXPECT_EQ(Build("C-11", "B=50"), GeoNoTangent);
    EXPECT_EQ(Build("C-17", "B=40"), GeoNoTangent);
    EXPECT_EQ(Build("R-24", "R1=0.1; R2=900"), GeoNoTangent);
    // A bar wider than the disc doesn't meet it.
    EXPECT_EQ(Build("C-18", "A=150"), GeoNoMeeting);
    EXPECT_EQ(Build("C-19", "A=201"), GeoNoMeeting);
    EXPECT_GT(Build("C-21", "A=151"), ErrBadShape); // and its flat has no length
    // Fillets too small to reach both circles.
    EXPECT_EQ(Build("C-13", "R3=5"), GeoNoMeeting);
    // Circles apart from each other.
    EXPECT_EQ(Build("67", "p3=151"), GeoNoMeeting);
}

TEST(Refusals, ALaterTangentDoesntHideAMissingOne)
{
    StartCase();
    // The bite about (150, 290) of radius 50 holds (140, 300), so the first tangent is missing; from (250, 300) there is one.
    EXPECT_EQ(Build("R-31", "C=290; F=140"), GeoNoTangent);
    EXPECT_EQ(Build("R-31", "C=290; F=50"), 0);
}
