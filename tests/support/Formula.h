// Formula.h -- formulas as text, for tables of expected values that read like the drawing they belong to.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

using FormulaNames = std::map<std::string, double, std::less<>>;

/// Value of "A/2+sqrt(R^2-4)": + - * / ^, parentheses, pi, abs, sqrt, sin, cos, tan, asin, acos, atan. An unknown name or a
/// broken formula throws std::runtime_error.
double Evaluate(std::string_view formula, const FormulaNames& names);

/// "2*R>=B": one of < <= > >= between two formulas. False when a side is no number.
bool Holds(std::string_view condition, const FormulaNames& names);

/// True when all conditions of a list "A>B; 2*R<B" hold. An empty list holds.
bool AllHold(std::string_view conditions, const FormulaNames& names);

/// True when any does. In an empty list none does.
bool AnyHolds(std::string_view conditions, const FormulaNames& names);

/// Gives the names of a list "R=0; d=sqrt(A^2+B^2)" their values, in order. "T=tangent(x1,y1,r1,x2,y2,r2)" gives Tfx,
/// Tfy, Ttx, Tty: the points in which the line from one directed circle to another touches them (see the body).
void Define(std::string_view list, FormulaNames& names);

/// Parts of a text between separators that stand outside parentheses, blanks at their ends cut; empty ones are left out.
std::vector<std::string_view> SplitText(std::string_view text, char separator);
