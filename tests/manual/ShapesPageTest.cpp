// The page of the shapes beside the program: letters, defaults, what is refused, and what the page tells to keep.
#include "shapes/Korvanta_Develop.h"
#include "shapes/Korvanta_Parameters.h"
#include "shell/ValueFields.h"
#include "support/Formula.h"
#include "support/RecordingScreen.h"
#include "support/TableGeometry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace
{
constexpr unsigned RandomSeed = 20270114;
constexpr int RandomSets = 150;
constexpr int Tries = 20000; ///< to meet a condition
const std::string Folder = KORVANTA_SOURCE_DIR "/docs/manual/";

struct PageLetter {
    std::string Letter;
    std::string Default;
    std::string Least; ///< "0.1", "above 0", "any"
    std::string Meaning;
};

struct PageShape {
    std::string Name;
    std::string Title;
    std::string Picture;
    std::vector<PageLetter> Letters;
    std::vector<std::string> Refused;
    std::vector<std::string> Keep;
};

/// Shapes whose page tells in words what to keep: they are tried close to their defaults only.
constexpr std::array<std::string_view, 3> KeptInWords = {"R-37", "C-13", "C-23"};

/// Shapes of one stroke that crosses itself, as it is meant to.
constexpr std::array<std::string_view, 2> Strokes = {"R-39", "R-40"};

template <std::size_t N> bool IsOneOf(const std::array<std::string_view, N>& names, const std::string& name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// The formulas in back quotes that a line lists behind a word.
std::vector<std::string> FormulasBehind(const std::string& line, const std::string& word)
{
    std::vector<std::string> formulas;
    std::size_t at = line.find(word + ": `");
    if (at == std::string::npos) {
        return formulas;
    }
    at += word.size() + 2;
    while (at < line.size() && line[at] == '`') {
        const std::size_t end = line.find('`', at + 1);
        formulas.push_back(line.substr(at + 1, end - at - 1));
        at = line.compare(end + 1, 2, ", ") == 0 ? end + 3 : line.size();
    }
    return formulas;
}

std::string Bare(const std::string& cell)
{
    const auto first = cell.find_first_not_of(" `");
    return first == std::string::npos ? "" : cell.substr(first, cell.find_last_not_of(" `") - first + 1);
}

/// "| `A` | 300 | 0.1 | height |"
PageLetter ReadRow(const std::string& line)
{
    std::vector<std::string> cells;
    for (std::size_t at = 1; at < line.size();) {
        const std::size_t end = line.find('|', at);
        cells.push_back(Bare(line.substr(at, end - at)));
        at = end == std::string::npos ? line.size() : end + 1;
    }
    cells.resize(4);
    return {cells[0], cells[1], cells[2], cells[3]};
}

std::vector<PageShape> ReadShapesPage()
{
    std::vector<PageShape> shapes;
    std::ifstream file(Folder + "04-shapes.md");
    EXPECT_TRUE(file.is_open());
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("### ") && line.size() > 8 && line[5] == '-') {
            shapes.push_back({line.substr(4, 4), line.substr(10), "", {}, {}, {}});
            continue;
        }
        if (line.starts_with("#")) {
            continue;
        }
        if (shapes.empty()) {
            continue;
        }
        PageShape& shape = shapes.back();
        if (line.starts_with("![") && shape.Picture.empty()) {
            const std::size_t at = line.find('(') + 1;
            shape.Picture = line.substr(at, line.find(')', at) - at);
        } else if (line.starts_with("| `")) {
            shape.Letters.push_back(ReadRow(line));
        }
        for (const std::string& formula : FormulasBehind(line, "Refused")) {
            shape.Refused.push_back(formula);
        }
        for (const std::string& formula : FormulasBehind(line, "Keep")) {
            shape.Keep.push_back(formula);
        }
    }
    return shapes;
}

const std::vector<PageShape>& Page()
{
    static const std::vector<PageShape> Shapes = ReadShapesPage();
    return Shapes;
}

double NumberOf(const std::string& text)
{
    double value = NAN;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

std::string TextOf(double value)
{
    std::array<char, 64> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, 9);
    return {digits.data(), end.ptr};
}

FormulaNames DefaultsOf(const PageShape& shape)
{
    FormulaNames names{{"pi", std::acos(-1.0)}};
    for (const PageLetter& letter : shape.Letters) {
        names[letter.Letter] = NumberOf(letter.Default);
    }
    return names;
}

/// True when a value is as large as the page asks for.
bool IsLarge(const PageLetter& letter, double value)
{
    const std::string above = "above ";
    if (letter.Least == "any") {
        return true;
    }
    return letter.Least.starts_with(above) ? value > NumberOf(letter.Least.substr(above.size()))
                                           : value >= NumberOf(letter.Least);
}

bool AllLarge(const PageShape& shape, const FormulaNames& names)
{
    return std::all_of(shape.Letters.begin(), shape.Letters.end(), [&](const PageLetter& letter) {
        return IsLarge(letter, names.find(letter.Letter)->second);
    });
}

bool AnyOf(const std::vector<std::string>& conditions, const FormulaNames& names)
{
    return std::any_of(conditions.begin(), conditions.end(),
                       [&](const std::string& condition) { return Holds(condition, names); });
}

bool AllOf(const std::vector<std::string>& conditions, const FormulaNames& names)
{
    return std::all_of(conditions.begin(), conditions.end(),
                       [&](const std::string& condition) { return Holds(condition, names); });
}

/// What the page calls a good set of values.
bool IsGood(const PageShape& shape, const FormulaNames& names)
{
    return AllLarge(shape, names) && !AnyOf(shape.Refused, names) && AllOf(shape.Keep, names);
}

/// Values from `low` to `high` times the defaults, some of any size up to the part's. Those that may be anything get either
/// sign, and a default of 0 becomes a few units.
FormulaNames RandomNames(const PageShape& shape, double low, double high, std::mt19937& random)
{
    const auto between = [&](double from, double to) {
        return std::uniform_real_distribution<>(from, to)(random);
    };
    const bool nearby = IsOneOf(KeptInWords, shape.Name);
    FormulaNames names = DefaultsOf(shape);
    double largest = 0.0;
    for (const PageLetter& letter : shape.Letters) {
        largest = std::max(largest, names[letter.Letter]);
    }
    for (const PageLetter& letter : shape.Letters) {
        double& value = names[letter.Letter];
        const bool count = letter.Letter.starts_with("N");
        if (!nearby && !count && random() % 3 == 0) {
            value = between(0.0, high * largest);
        } else {
            value = value == 0.0 ? between(-6.0, 6.0) : value * between(low, high);
        }
        value *= letter.Least == "any" && !nearby && random() % 4 == 0 ? -1.0 : 1.0;
        value = count ? std::floor(value) : value;
    }
    return names;
}

std::string ValuesText(const PageShape& shape, const FormulaNames& names)
{
    std::string text = shape.Name;
    for (const PageLetter& letter : shape.Letters) {
        text += " " + letter.Letter + "=" + TextOf(names.find(letter.Letter)->second);
    }
    return text;
}

/// Types the values into the fields and develops the shape. False when it is refused.
bool Develops(const PageShape& shape, const FormulaNames& names)
{
    StartCase();
    AppState.ShapeId = ShapeIdOfName(shape.Name);
    ShowShapeParameters(AppState.ShapeId, FlagOn);
    for (std::size_t i = 0; i < shape.Letters.size(); ++i) {
        SetText(AppState.ParamText[i], TextOf(names.find(shape.Letters[i].Letter)->second));
    }
    std::int16_t err = 0;
    DevelopShape(err);
    return err == 0;
}

double Cross(const TablePoint& a, const TablePoint& b, const TablePoint& c)
{
    return (b.X - a.X) * (c.Y - a.Y) - (b.Y - a.Y) * (c.X - a.X);
}

/// True when a-b and c-d cross in the middle of both; to touch is not to cross.
bool Crosses(const TablePoint& a, const TablePoint& b, const TablePoint& c, const TablePoint& d)
{
    constexpr double Nothing = 1e-7;
    if (std::max(a.X, b.X) < std::min(c.X, d.X) || std::max(c.X, d.X) < std::min(a.X, b.X) ||
        std::max(a.Y, b.Y) < std::min(c.Y, d.Y) || std::max(c.Y, d.Y) < std::min(a.Y, b.Y)) {
        return false;
    }
    const double ofC = Cross(a, b, c);
    const double ofD = Cross(a, b, d);
    const double ofA = Cross(c, d, a);
    const double ofB = Cross(c, d, b);
    return std::min(std::fabs(ofC), std::fabs(ofD)) > Nothing &&
           std::min(std::fabs(ofA), std::fabs(ofB)) > Nothing && (ofC > 0) != (ofD > 0) &&
           (ofA > 0) != (ofB > 0);
}

bool CrossesItself(const TableProfile& profile)
{
    std::vector<TablePoint> points = PointsAlong(profile);
    points.push_back(points.front());
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        for (std::size_t j = i + 2; j + 1 < points.size(); ++j) {
            if (Crosses(points[i], points[i + 1], points[j], points[j + 1])) {
                return true;
            }
        }
    }
    return false;
}

/// "" or what is wrong with the contours in the table.
std::string WrongContour(const PageShape& shape)
{
    for (const TableProfile& profile : ProfilesInTable()) {
        const bool closed = AppState.ElementTable[static_cast<std::size_t>(profile.Mark)].GeoB != 0.0;
        if (closed && CrossesItself(profile)) {
            return "a contour crosses itself";
        }
        if (!closed && shape.Name != "R-41" && shape.Name != "C-25" && shape.Name != "C-26" &&
            !IsOneOf(Strokes, shape.Name)) {
            return "a contour is open";
        }
    }
    return "";
}
} // namespace

TEST(ShapesPage, ShowsEveryShapeWithItsLettersAndDefaults)
{
    const std::vector<PageShape>& shapes = Page();
    const std::span<const ShapeRow> rows = ShapeCatalogue();
    ASSERT_EQ(shapes.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(shapes[i].Name, rows[i].Name);
        EXPECT_FALSE(shapes[i].Title.empty()) << rows[i].Name;
        EXPECT_EQ(shapes[i].Picture, "images/shape-" + std::string(rows[i].Name) + ".png");
        EXPECT_TRUE(std::filesystem::exists(Folder + shapes[i].Picture)) << shapes[i].Picture;
        ASSERT_EQ(shapes[i].Letters.size(), static_cast<std::size_t>(ParameterCount(rows[i])))
            << rows[i].Name;
        for (std::size_t j = 0; j < shapes[i].Letters.size(); ++j) {
            const PageLetter& letter = shapes[i].Letters[j];
            EXPECT_EQ(letter.Letter, rows[i].Parameters[j].Letter) << rows[i].Name;
            EXPECT_EQ(NumberOf(letter.Default), rows[i].Parameters[j].Default)
                << rows[i].Name << letter.Letter;
            EXPECT_FALSE(letter.Meaning.empty()) << rows[i].Name << letter.Letter;
        }
    }
}

TEST(ShapesPage, EachShapeIsBuiltWithItsDefaults)
{
    for (const PageShape& shape : Page()) {
        const FormulaNames names = DefaultsOf(shape);
        EXPECT_TRUE(IsGood(shape, names)) << shape.Name;
        EXPECT_TRUE(Develops(shape, names)) << shape.Name;
        EXPECT_EQ(WrongContour(shape), "") << shape.Name;
    }
}

TEST(ShapesPage, WhatIsBelowTheLeastIsRefused)
{
    for (const PageShape& shape : Page()) {
        for (const PageLetter& letter : shape.Letters) {
            if (letter.Least == "any") {
                continue;
            }
            const bool above = letter.Least.starts_with("above ");
            const double least = NumberOf(above ? letter.Least.substr(6) : letter.Least);
            FormulaNames names = DefaultsOf(shape);
            names[letter.Letter] = above ? least : least - 0.0001;
            EXPECT_FALSE(Develops(shape, names)) << ValuesText(shape, names);
        }
    }
}

TEST(ShapesPage, WhatItCallsRefusedIsRefused)
{
    std::mt19937 random(RandomSeed);
    for (const PageShape& shape : Page()) {
        for (const std::string& condition : shape.Refused) {
            int met = 0;
            for (int i = 0; i < Tries && met < RandomSets; ++i) {
                const FormulaNames names = RandomNames(shape, 0.1, 4.0, random);
                if (!AllLarge(shape, names) || !Holds(condition, names)) {
                    continue;
                }
                ++met;
                EXPECT_FALSE(Develops(shape, names)) << condition << ": " << ValuesText(shape, names);
            }
            EXPECT_EQ(met, RandomSets) << shape.Name << " " << condition;
        }
    }
}

TEST(ShapesPage, WhatKeepsToThePageIsBuiltAndCrossesNowhere)
{
    std::mt19937 random(RandomSeed);
    for (const PageShape& shape : Page()) {
        const bool inWords = IsOneOf(KeptInWords, shape.Name);
        int met = 0;
        for (int i = 0; i < Tries && met < RandomSets; ++i) {
            const FormulaNames names =
                inWords ? RandomNames(shape, 0.95, 1.05, random) : RandomNames(shape, 0.3, 2.5, random);
            if (!IsGood(shape, names)) {
                continue;
            }
            ++met;
            ASSERT_TRUE(Develops(shape, names)) << ValuesText(shape, names);
            ASSERT_EQ(WrongContour(shape), "") << ValuesText(shape, names);
        }
        EXPECT_EQ(met, RandomSets) << shape.Name;
    }
}

/// What single sentences of the page say.
TEST(ShapesPage, ItsNotesHold)
{
    const auto shapeOf = [](const char* name) {
        return *std::find_if(Page().begin(), Page().end(),
                             [&](const PageShape& s) { return s.Name == name; });
    };
    const auto build = [&](const char* name, const char* changes) {
        FormulaNames names = DefaultsOf(shapeOf(name));
        Define(changes, names);
        return Develops(shapeOf(name), names);
    };
    EXPECT_TRUE(build("R-01", "R=0")); // A wide, B high
    EXPECT_DOUBLE_EQ(BoxOfTable().MaxX, 300.0);
    EXPECT_DOUBLE_EQ(BoxOfTable().MaxY, 200.0);
    EXPECT_FALSE(build("R-01", "R=0; A=0.09"));
    EXPECT_FALSE(build("R-01", "R=0; B=0.09"));
    EXPECT_TRUE(build("R-02", "R=0; Di=0.1; C=-1; D=0"));
    EXPECT_EQ(AppState.ProfileCount, 1);
    EXPECT_TRUE(build("R-10", "X=0")); // hole and plain plate of four sides
    EXPECT_EQ(AppState.ElementCount, 2 + 5);
    EXPECT_TRUE(build("R-11", "D=0.009")); // seven sides less two
    EXPECT_EQ(AppState.ElementCount, 1 + 2 + 3 + 1);
    EXPECT_TRUE(build("R-12", "Y=0.009"));
    EXPECT_EQ(AppState.ElementCount, 4 + 4 + 1);
    EXPECT_TRUE(build("R-19", "A=300")); // 300 + 60 / 2 high, 200 + 100 / 2 wide
    EXPECT_NEAR(BoxOfTable().MaxX, 250.0, 1e-9);
    EXPECT_NEAR(BoxOfTable().MaxY, 330.0, 1e-9);
    EXPECT_TRUE(build("R-35", "Nx=4.9; Ny=3.9")); // ten holes, window, outline
    EXPECT_EQ(AppState.ProfileCount, 10 + 2);
    EXPECT_TRUE(build("R-35", "Ny=1; E=0")); // 4 below, 3 above
    EXPECT_EQ(AppState.ProfileCount, 7 + 1);
    EXPECT_TRUE(build("R-39", "X=0")); // 15 lines less the four cut corners
    EXPECT_EQ(AppState.ElementCount, 11 + 1);
    EXPECT_TRUE(build("R-40", "Offset=2; L=0")); // 2 on each of four sides across, of two upward
    EXPECT_NEAR(BoxOfTable().MaxX, 608.0, 1e-9);
    EXPECT_NEAR(BoxOfTable().MaxY, 404.0, 1e-9);
    EXPECT_TRUE(build("C-03", "B=0.1; Nr=2.9"));
    EXPECT_EQ(AppState.ProfileCount, 2 + 1);
    EXPECT_TRUE(build("C-22", "P=10")); // 300 x pi / 10 = 94.2 chords, and one of no length
    EXPECT_EQ(AppState.ElementCount, 94 + 1 + 1);
    EXPECT_TRUE(build("C-22", "P=-1")); // 300 x pi / 20 = 47.1
    EXPECT_EQ(AppState.ElementCount, 47 + 1 + 1);
    EXPECT_FALSE(build("C-18", "A=141")); // wider than the disc of 140
    EXPECT_FALSE(build("C-19", "A=201"));
    EXPECT_FALSE(build("C-21", "A=151"));
    EXPECT_FALSE(build("C-11", "B=60"));         // one circle in the other: no common tangent
    EXPECT_FALSE(build("R-03", "X=100"));        // a side of no length
    EXPECT_TRUE(build("C-25", "L=-10; LR=-10")); // the sign doesn't count: as high as with 10 and 10
    EXPECT_NEAR(BoxOfTable().MaxY, 220.0, 1e-9);
    EXPECT_TRUE(build("H-01", ""));
    EXPECT_GT(ExactArea(ProfilesInTable().at(0)), 0.0); // counter-clockwise
}
