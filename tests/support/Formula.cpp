#include "support/Formula.h"

#include <charconv>
#include <cmath>
#include <numbers>
#include <stdexcept>

namespace
{
struct Reader {
    std::string_view Text;
    const FormulaNames& Names;
    std::size_t At = 0;

    [[noreturn]] void Fail() const
    {
        throw std::runtime_error("formula '" + std::string(Text) + "' at " + std::to_string(At));
    }

    bool Take(char wanted)
    {
        if (At < Text.size() && Text[At] == wanted) {
            ++At;
            return true;
        }
        return false;
    }

    double Sum()
    {
        double value = Product();
        while (true) {
            if (Take('+')) {
                value += Product();
            } else if (Take('-')) {
                value -= Product();
            } else {
                return value;
            }
        }
    }

    double Product()
    {
        double value = Signed();
        while (true) {
            if (Take('*')) {
                value *= Signed();
            } else if (Take('/')) {
                value /= Signed();
            } else {
                return value;
            }
        }
    }

    double Signed()
    {
        return Take('-') ? -Signed() : Power();
    }

    double Power()
    {
        const double base = Atom();
        return Take('^') ? std::pow(base, Atom()) : base;
    }

    double Atom()
    {
        if (Take('(')) {
            const double value = Sum();
            if (!Take(')')) {
                Fail();
            }
            return value;
        }
        double number = 0.0;
        const auto read = std::from_chars(Text.data() + At, Text.data() + Text.size(), number);
        if (read.ec == std::errc()) {
            At = static_cast<std::size_t>(read.ptr - Text.data());
            return number;
        }
        const std::size_t begin = At;
        while (At < Text.size() && std::isalnum(static_cast<unsigned char>(Text[At])) != 0) {
            ++At;
        }
        const std::string_view name = Text.substr(begin, At - begin);
        return Take('(') ? Function(name) : Named(name);
    }

    double Named(std::string_view name) const
    {
        const auto found = Names.find(name);
        if (found != Names.end()) {
            return found->second;
        }
        if (name == "pi") {
            return std::numbers::pi;
        }
        Fail();
    }

    double Function(std::string_view name)
    {
        using Plain = double (*)(double);
        static constexpr struct {
            std::string_view Name;
            Plain Call;
        } functions[] = {
            {"abs", [](double x) { return std::fabs(x); }},  {"sqrt", [](double x) { return std::sqrt(x); }},
            {"sin", [](double x) { return std::sin(x); }},   {"cos", [](double x) { return std::cos(x); }},
            {"tan", [](double x) { return std::tan(x); }},   {"asin", [](double x) { return std::asin(x); }},
            {"acos", [](double x) { return std::acos(x); }}, {"atan", [](double x) { return std::atan(x); }},
        };
        const double argument = Sum();
        for (const auto& function : functions) {
            if (name == function.Name && Take(')')) {
                return function.Call(argument);
            }
        }
        Fail();
    }
};

std::string WithoutBlanks(std::string_view text)
{
    std::string result;
    for (const char c : text) {
        if (c != ' ') {
            result += c;
        }
    }
    return result;
}

/// The tangent runs from circle 1 to circle 2, its left normal m is at the signed distance r from both centres (r above
/// 0: the circle runs counter-clockwise and lies on the left). With u the direction from centre 1 to centre 2 and n its
/// left normal, m = s u + q n, where d s = r2 - r1 and q is the positive root that makes m a unit vector. The circles are
/// touched at their centres - r m.
void DefineTangent(const std::string& name, std::string_view arguments, FormulaNames& names)
{
    double v[6] = {};
    std::size_t count = 0;
    for (const std::string_view argument : SplitText(arguments, ',')) {
        v[count++] = Evaluate(argument, names);
    }
    const double d = std::hypot(v[3] - v[0], v[4] - v[1]);
    const double ux = (v[3] - v[0]) / d;
    const double uy = (v[4] - v[1]) / d;
    const double s = (v[5] - v[2]) / d;
    const double q = std::sqrt(1.0 - s * s);
    const double mx = s * ux - q * uy;
    const double my = s * uy + q * ux;
    names[name + "fx"] = v[0] - v[2] * mx;
    names[name + "fy"] = v[1] - v[2] * my;
    names[name + "tx"] = v[3] - v[5] * mx;
    names[name + "ty"] = v[4] - v[5] * my;
}
} // namespace

double Evaluate(std::string_view formula, const FormulaNames& names)
{
    const std::string text = WithoutBlanks(formula);
    Reader reader{text, names};
    const double value = reader.Sum();
    if (reader.At != text.size()) {
        reader.Fail();
    }
    return value;
}

bool Holds(std::string_view condition, const FormulaNames& names)
{
    const std::size_t at = condition.find_first_of("<>");
    if (at == std::string_view::npos) {
        throw std::runtime_error("no comparison in '" + std::string(condition) + "'");
    }
    const bool orEqual = condition.substr(at + 1, 1) == "=";
    const double left = Evaluate(condition.substr(0, at), names);
    const double right = Evaluate(condition.substr(at + (orEqual ? 2 : 1)), names);
    if (orEqual && left == right) {
        return true;
    }
    return condition[at] == '<' ? left < right : left > right;
}

bool AllHold(std::string_view conditions, const FormulaNames& names)
{
    for (const std::string_view condition : SplitText(conditions, ';')) {
        if (!Holds(condition, names)) {
            return false;
        }
    }
    return true;
}

bool AnyHolds(std::string_view conditions, const FormulaNames& names)
{
    for (const std::string_view condition : SplitText(conditions, ';')) {
        if (Holds(condition, names)) {
            return true;
        }
    }
    return false;
}

void Define(std::string_view list, FormulaNames& names)
{
    constexpr std::string_view tangent = "tangent(";
    for (const std::string_view entry : SplitText(list, ';')) {
        const std::size_t at = entry.find('=');
        if (at == std::string_view::npos) {
            throw std::runtime_error("no value in '" + std::string(entry) + "'");
        }
        const std::string name = WithoutBlanks(entry.substr(0, at));
        const std::string value = WithoutBlanks(entry.substr(at + 1));
        if (value.starts_with(tangent)) {
            DefineTangent(name, value.substr(tangent.size(), value.size() - tangent.size() - 1), names);
        } else {
            names[name] = Evaluate(value, names);
        }
    }
}

std::vector<std::string_view> SplitText(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    int depth = 0;
    std::size_t begin = 0;
    for (std::size_t i = 0; i <= text.size(); ++i) {
        if (i < text.size() && (text[i] != separator || depth > 0)) {
            depth += text[i] == '(' ? 1 : text[i] == ')' ? -1 : 0;
            continue;
        }
        const std::string_view part = text.substr(begin, i - begin);
        begin = i + 1;
        const std::size_t first = part.find_first_not_of(' ');
        if (first != std::string_view::npos) {
            parts.push_back(part.substr(first, part.find_last_not_of(' ') - first + 1));
        }
    }
    return parts;
}
