// PartTables.h -- short ways to lay down and compare element tables.
#pragma once

#include "profile/Korvanta_ProfileCut.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

inline ProfileElement& Slot(std::int32_t slot)
{
    return AppState.ElementTable.at(static_cast<std::size_t>(slot));
}

inline void PutLine(double x1, double y1, double x2, double y2, std::int16_t sense = 1)
{
    GeoLine line{};
    std::int16_t err = 0;
    r_pp(line, {0.0, x1, y1, 0.0}, {0.0, x2, y2, 0.0}, err);
    AddElement(KindLine, x1, y1, line[1], line[2], line[3], x2, y2, sense);
}

inline void PutArc(double x1, double y1, double x2, double y2, double cx, double cy, double r,
                   std::int16_t sense = 1)
{
    AddElement(KindArc, x1, y1, cx, cy, r, x2, y2, sense);
}

/// A full circle of one arc that starts at its right.
inline void PutCircle(double cx, double cy, double r, std::int16_t sense = 1)
{
    const double size = r < 0.0 ? -r : r;
    PutArc(cx + size, cy, cx + size, cy, cx, cy, r, sense);
}

/// Counter-clockwise from the low left corner, or clockwise.
inline void PutBox(double x, double y, double width, double height, bool clockwise = false,
                   std::int16_t sense = 1)
{
    if (clockwise) {
        PutLine(x, y, x, y + height, sense);
        PutLine(x, y + height, x + width, y + height, sense);
        PutLine(x + width, y + height, x + width, y, sense);
        PutLine(x + width, y, x, y, sense);
        return;
    }
    PutLine(x, y, x + width, y, sense);
    PutLine(x + width, y, x + width, y + height, sense);
    PutLine(x + width, y + height, x, y + height, sense);
    PutLine(x, y + height, x, y, sense);
}

/// An end mark at the end point of the element before it.
inline void PutEnd(std::int16_t kind = KindEnd, double hint = 0.0)
{
    const ProfileElement last = Slot(AppState.ElementCount);
    AddElement(kind, last.EndX, last.EndY, 0.0, 0.0, hint, 0.0, 0.0, 0);
}

inline bool SameBits(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

/// Equal to the bit in every member.
inline bool SameElement(const ProfileElement& a, const ProfileElement& b)
{
    return a.Kind == b.Kind && a.Sense == b.Sense && a.Closing == b.Closing && SameBits(a.GeoA, b.GeoA) &&
           SameBits(a.GeoB, b.GeoB) && SameBits(a.GeoC, b.GeoC) && SameBits(a.StartX, b.StartX) &&
           SameBits(a.StartY, b.StartY) && SameBits(a.EndX, b.EndX) && SameBits(a.EndY, b.EndY) &&
           SameBits(a.Length, b.Length);
}

/// First slot in which two tables differ, 0 when they are the same in length and content.
inline std::size_t FirstDifference(const std::vector<ProfileElement>& a, const std::vector<ProfileElement>& b)
{
    for (std::size_t i = 0; i < a.size() && i < b.size(); ++i) {
        if (!SameElement(a[i], b[i])) {
            return i == 0 ? a.size() + b.size() : i;
        }
    }
    return a.size() == b.size() ? 0 : (a.size() < b.size() ? a.size() : b.size());
}

/// "L (0,0)-(1,0)" or "A.." per drawn element, "." per end mark, "9" for the outer one: whole numbers only.
inline std::string TableText()
{
    std::string text;
    const auto number = [](double value) { return std::to_string(static_cast<long>(value)); };
    for (std::int32_t i = 1; i <= AppState.ElementCount; ++i) {
        const ProfileElement& e = Slot(i);
        if (!text.empty()) {
            text += ' ';
        }
        if (IsEndMark(e.Kind)) {
            text += e.Kind == KindEnd ? "." : "9";
            continue;
        }
        text += e.Kind == KindLine ? "L" : (e.GeoC < 0.0 ? "A-" : "A+");
        text += number(e.StartX) + "," + number(e.StartY) + ">" + number(e.EndX) + "," + number(e.EndY);
    }
    return text;
}
