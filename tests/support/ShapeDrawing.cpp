#include "support/ShapeDrawing.h"

#include "profile/Korvanta_ProfileCut.h"
#include "shapes/Builders.h"
#include "shapes/Korvanta_Parameters.h"
#include "shell/ValueFields.h"
#include "state/AppState.h"

#include <charconv>
#include <cstdio>
#include <stdexcept>

namespace
{
/// Values to start from for the shapes outside the catalogue.
struct OutsideRow {
    std::int16_t ShapeId;
    std::vector<double> Values;
};

const std::vector<OutsideRow>& OutsideRows()
{
    static const std::vector<OutsideRow> rows = {
        {11, {100, 160, 90}},   {25, {120, 200, 50}},     {36, {200, 60, 40}},
        {46, {50, 30, 90, 10}}, {50, {200, 160, 40, 50}}, {58, {40, 150}},
        {59, {120, 50}},        {67, {80, 70, 60}},       {69, {100, 150, 25}},
    };
    return rows;
}

const OutsideRow& OutsideRowOf(std::int16_t shapeId)
{
    for (const OutsideRow& row : OutsideRows()) {
        if (row.ShapeId == shapeId) {
            return row;
        }
    }
    throw std::runtime_error("no shape " + std::to_string(shapeId));
}

FormulaNames PlainDefaults(const ShapeDrawing& drawing)
{
    FormulaNames names;
    const std::int16_t id = IdOf(drawing);
    const std::vector<std::string> letters = LettersOf(drawing);
    const ShapeRow* row = FindShape(id);
    for (std::size_t i = 0; i < letters.size(); ++i) {
        names[letters[i]] = row != nullptr ? row->Parameters[i].Default : OutsideRowOf(id).Values[i];
    }
    return names;
}

/// "x,y" or "x,y,r".
std::vector<double> Numbers(std::string_view token, const FormulaNames& names, std::size_t count)
{
    std::vector<double> values;
    for (const std::string_view part : SplitText(token, ',')) {
        values.push_back(Evaluate(part, names));
    }
    if (values.size() != count) {
        throw std::runtime_error("outline at '" + std::string(token) + "'");
    }
    return values;
}

void ReadSense(std::string_view token, DrawnContour& contour)
{
    const std::string_view text = token.substr(token.find('=') + 1);
    const std::vector<std::string_view> parts = SplitText(text, '/');
    const auto number = [](std::string_view part) {
        return static_cast<std::int16_t>(Evaluate(part, FormulaNames()));
    };
    contour.Sense = number(parts.front());
    contour.ClosingSense = number(parts.back());
}

std::vector<DrawnContour> ReadOutline(std::string_view outline, const FormulaNames& names)
{
    std::vector<DrawnContour> contours;
    const std::vector<std::string_view> tokens = SplitText(outline, ' ');
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const std::string_view token = tokens[i];
        if (token.starts_with("in") || token.starts_with("out")) {
            DrawnContour contour;
            contour.Kind = token.starts_with("in") ? KindEnd : KindOuterEnd;
            contour.Hint = token.back() - '0';
            if (tokens[i + 1].starts_with("sense")) {
                ReadSense(tokens[++i], contour);
            }
            const std::vector<double> start = Numbers(tokens[++i], names, 2);
            contour.EndX = start[0];
            contour.EndY = start[1];
            contours.push_back(contour);
            continue;
        }
        DrawnContour& contour = contours.back();
        DrawnMove move{contour.EndX, contour.EndY};
        if (token == "cw" || token == "ccw") {
            const std::vector<double> circle = Numbers(tokens[++i], names, 3);
            move.Arc = true;
            move.CentreX = circle[0];
            move.CentreY = circle[1];
            move.Radius = token == "cw" ? -circle[2] : circle[2];
            ++i;
        }
        const std::vector<double> end = Numbers(tokens[i], names, 2);
        contour.Moves.push_back(move);
        contour.EndX = end[0];
        contour.EndY = end[1];
    }
    return contours;
}

std::string ExactText(double value)
{
    char text[40];
    std::snprintf(text, sizeof text, "%.17g", value);
    return text;
}
} // namespace

std::int16_t IdOf(const ShapeDrawing& drawing)
{
    const std::string_view name = drawing.Name;
    const std::int16_t id = ShapeIdOfName(name);
    if (id != 0) {
        return id;
    }
    int outside = 0;
    std::from_chars(name.data(), name.data() + name.size(), outside);
    return static_cast<std::int16_t>(outside);
}

std::string TitleOf(const ShapeDrawing& drawing)
{
    const std::string_view text = drawing.Case;
    return std::string(drawing.Name) + (text.empty() ? "" : " with ") + std::string(text);
}

std::vector<std::string> LettersOf(const ShapeDrawing& drawing)
{
    std::vector<std::string> letters;
    const std::int16_t id = IdOf(drawing);
    if (const ShapeRow* row = FindShape(id)) {
        for (int i = 0; i < ParameterCount(*row); ++i) {
            letters.emplace_back(row->Parameters[i].Letter);
        }
        return letters;
    }
    for (std::size_t i = 1; i <= OutsideRowOf(id).Values.size(); ++i) {
        letters.push_back("p" + std::to_string(i));
    }
    return letters;
}

FormulaNames DefaultNames(const ShapeDrawing& drawing)
{
    FormulaNames names = PlainDefaults(drawing);
    Define(drawing.Case, names);
    return names;
}

FormulaNames RandomNames(const ShapeDrawing& drawing, std::mt19937& random)
{
    std::uniform_real_distribution<double> factor(0.33, 2.0);
    const FormulaNames defaults = PlainDefaults(drawing);
    for (int tries = 0; tries < 1000000; ++tries) {
        FormulaNames names = defaults;
        for (auto& [letter, value] : names) {
            value *= factor(random);
        }
        Define(drawing.Case, names);
        if (AnyHolds(drawing.Checks, names)) {
            continue;
        }
        FormulaNames helped = names;
        Define(drawing.Where, helped);
        if (AllHold(drawing.Sane, helped)) {
            return names;
        }
    }
    throw std::runtime_error("no legal values for " + TitleOf(drawing));
}

ShapeParameters ParametersOf(const ShapeDrawing& drawing, const FormulaNames& names)
{
    ShapeParameters parameters{};
    std::size_t field = 0;
    for (const std::string& letter : LettersOf(drawing)) {
        parameters[++field] = names.at(letter);
    }
    return parameters;
}

std::vector<DrawnContour> ContoursOf(const ShapeDrawing& drawing, FormulaNames names)
{
    Define(drawing.Where, names);
    if (drawing.Outline == nullptr) {
        return drawing.Draw(names);
    }
    std::vector<DrawnContour> contours = ReadOutline(drawing.Outline, names);
    const std::vector<std::string_view> areas = SplitText(drawing.Areas, ';');
    if (areas.size() != contours.size()) {
        throw std::runtime_error(TitleOf(drawing) + ": as many areas as contours");
    }
    for (std::size_t i = 0; i < areas.size(); ++i) {
        contours[i].Area = areas[i] == "open" ? 0.0 : Evaluate(areas[i], names);
    }
    return contours;
}

std::int16_t BuildRaw(std::int16_t shapeId, const ShapeParameters& parameters, std::int16_t before)
{
    ClearPart();
    std::int16_t err = before;
    FindBuilder(shapeId, parameters)(parameters, err);
    return err;
}

std::int16_t DevelopWith(const ShapeDrawing& drawing, const FormulaNames& names)
{
    AppState.ShapeId = IdOf(drawing);
    ShowShapeParameters(AppState.ShapeId, FlagOn);
    std::size_t field = 0;
    for (const std::string& letter : LettersOf(drawing)) {
        AppState.ParamText[field].Visible = FlagOn; // for those outside the catalogue
        SetText(AppState.ParamText[field], ExactText(names.at(letter)));
        ++field;
    }
    std::int16_t err = 99;
    DevelopShape(err);
    return err;
}

std::string ValuesText(const ShapeDrawing& drawing, const FormulaNames& names)
{
    std::string text = TitleOf(drawing) + ":";
    for (const std::string& letter : LettersOf(drawing)) {
        text += " " + letter + "=" + ExactText(names.at(letter)) + ";";
    }
    return text;
}
