#include "DrawingText.h"

#include "config/Korvanta_Utility.h"
#include "platform/TextFile.h"
#include "shapes/Korvanta_Parameters.h"
#include "state/Numbers.h"

#include <cmath>
#include <stdexcept>

namespace
{
/// A statement from its front.
struct Words {
    std::string_view Rest;

    void SkipBlanks()
    {
        while (!Rest.empty() && (Rest.front() == ' ' || Rest.front() == '\t')) {
            Rest.remove_prefix(1);
        }
    }

    bool Take(std::string_view word)
    {
        SkipBlanks();
        if (!Rest.starts_with(word)) {
            return false;
        }
        Rest.remove_prefix(word.size());
        return true;
    }

    void Need(std::string_view word)
    {
        if (!Take(word)) {
            throw std::runtime_error("'" + std::string(word) + "' is missing before '" + std::string(Rest) +
                                     "'");
        }
    }

    /// Up to one of the characters that stands outside parentheses, which stays.
    std::string_view Until(std::string_view ends)
    {
        SkipBlanks();
        int depth = 0;
        std::size_t at = 0;
        while (at < Rest.size() && (depth > 0 || ends.find(Rest[at]) == std::string_view::npos)) {
            depth += Rest[at] == '(' ? 1 : Rest[at] == ')' ? -1 : 0;
            ++at;
        }
        const std::string_view taken = Rest.substr(0, at);
        Rest.remove_prefix(at);
        return taken;
    }
};

/// Names of formulas are written with blanks around signs.
double Value(std::string_view formula, const FormulaNames& names)
{
    std::string text;
    for (const char c : formula) {
        if (c != ' ' && c != '\t') {
            text += c;
        }
    }
    return Evaluate(text, names);
}

DrawnPlace ReadPlace(Words& words, const FormulaNames& names)
{
    words.Need("(");
    DrawnPlace place;
    place.X = Value(words.Until(","), names);
    words.Need(",");
    place.Y = Value(words.Until(")"), names);
    words.Need(")");
    return place;
}

void ReadRow(Words& words, DrawnDimension& dimension, LinePlace where, const FormulaNames& names)
{
    dimension.Where = where;
    const std::string_view row = words.Until(",");
    if (!Trim(row).empty()) {
        dimension.Measure = Value(row, names);
    }
}

void ReadMeasure(Words& words, DrawnDimension& dimension, LinePlace where, const FormulaNames& names)
{
    dimension.Where = where;
    dimension.Measure = Value(words.Until(","), names);
}

void ReadLinePlace(Words& words, DrawnDimension& dimension, const FormulaNames& names)
{
    if (words.Take("left")) {
        ReadRow(words, dimension, LinePlace::Left, names);
    } else if (words.Take("right")) {
        ReadRow(words, dimension, LinePlace::Right, names);
    } else if (words.Take("above")) {
        ReadRow(words, dimension, LinePlace::Above, names);
    } else if (words.Take("below")) {
        ReadRow(words, dimension, LinePlace::Below, names);
    } else if (words.Take("upright at")) {
        ReadMeasure(words, dimension, LinePlace::Upright, names);
    } else if (words.Take("level at")) {
        ReadMeasure(words, dimension, LinePlace::Level, names);
    } else if (words.Take("beside")) {
        ReadMeasure(words, dimension, LinePlace::Beside, names);
    } else if (words.Take("arc")) {
        dimension.Where = LinePlace::Arc;
        const std::string_view rest = words.Rest;
        const std::size_t about = rest.find(" about ");
        if (about == std::string_view::npos) {
            throw std::runtime_error("an arc needs 'about' its centre");
        }
        dimension.Measure = Value(rest.substr(0, about), names);
        words.Rest.remove_prefix(about);
        words.Need("about");
        dimension.Centre = ReadPlace(words, names);
    } else {
        words.Need("straight");
        dimension.Where = LinePlace::Straight;
    }
}

DrawnDimension ReadDimension(std::string_view letter, Words& words, const FormulaNames& names)
{
    DrawnDimension dimension;
    dimension.Letter = Trim(letter);
    words.Need("from");
    dimension.From = ReadPlace(words, names);
    words.Need("to");
    dimension.To = ReadPlace(words, names);
    words.Need(",");
    ReadLinePlace(words, dimension, names);
    if (words.Take(",")) {
        words.Need("letter");
        dimension.LetterShift = Value(words.Until(","), names);
    }
    return dimension;
}

DrawnShape ReadShape(Words& words)
{
    DrawnShape shape;
    shape.Name = std::string(words.Until(" "));
    shape.ShapeId = ShapeIdOfName(shape.Name);
    const ShapeRow* row = FindShape(shape.ShapeId);
    if (row == nullptr) {
        throw std::runtime_error("there is no shape '" + shape.Name + "'");
    }
    shape.Values["q"] = std::sin(Pi / 4);
    for (int i = 0; i < ParameterCount(*row); ++i) {
        shape.Values[row->Parameters[i].Letter] = row->Parameters[i].Default;
    }
    for (words.SkipBlanks(); !words.Rest.empty(); words.SkipBlanks()) {
        const std::string name(words.Until("="));
        words.Need("=");
        if (shape.Values.count(name) == 0) {
            throw std::runtime_error("there is no parameter '" + name + "'");
        }
        shape.Values[name] = Value(words.Until(" "), shape.Values);
    }
    return shape;
}

void ReadStatement(Words& words, DrawnShape& shape)
{
    if (words.Take("where ")) {
        Define(words.Rest, shape.Values);
        words.Rest = {};
    } else if (words.Take("line ")) {
        const DrawnPlace from = ReadPlace(words, shape.Values);
        words.Need("to");
        shape.Lines.push_back({from, ReadPlace(words, shape.Values)});
    } else if (words.Take("fill ")) {
        shape.Fills.push_back(ReadPlace(words, shape.Values));
    } else {
        const std::string_view letter = words.Until(":");
        words.Need(":");
        shape.Dimensions.push_back(ReadDimension(letter, words, shape.Values));
    }
    if (!Trim(words.Rest).empty()) {
        throw std::runtime_error("what is '" + std::string(words.Rest) + "'");
    }
}
} // namespace

std::vector<DrawnShape> ReadDrawings(std::string_view text)
{
    std::vector<DrawnShape> shapes;
    std::string_view line;
    int number = 0;
    while (NextLine(text, line)) {
        ++number;
        const std::string statement = Trim(line.substr(0, line.find('#')));
        if (statement.empty()) {
            continue;
        }
        Words words{statement};
        try {
            if (words.Take("shape ")) {
                shapes.push_back(ReadShape(words));
            } else if (shapes.empty()) {
                throw std::runtime_error("a drawing begins with 'shape'");
            } else {
                ReadStatement(words, shapes.back());
            }
        } catch (const std::runtime_error& error) {
            throw std::runtime_error((shapes.empty() ? "" : shapes.back().Name + ", ") + "line " +
                                     std::to_string(number) + ": " + error.what());
        }
    }
    return shapes;
}
