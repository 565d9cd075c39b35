// The drawings that no file holds: strokes and twin-half contours, whose captions follow the language.
#include "shapes/PictureRecords.h"

#include "shapes/Korvanta_Parameters.h"
#include "shell/MsgBox_Unicode.h"

namespace
{
constexpr std::int16_t RectangleStroke = FamilyRect + 40;
constexpr std::int16_t TwinRectangle = FamilyRect + 41;
constexpr std::int16_t TwinCircle = FamilyCircular + 25;
constexpr std::int16_t TwinRing = FamilyCircular + 26;

// Proportions: one size of entry and exit for all.
constexpr double Length = 400.0;     ///< of the longer or only extent across
constexpr double Height = 300.0;     ///< upward
constexpr double Entry = 70.0;       ///< L
constexpr double EntryRadius = 90.0; ///< LR
constexpr double ExitLength = 80.0;  ///< Tail
constexpr double Corner = 100.0;     ///< R
constexpr double Growth = 40.0;      ///< Offset
constexpr double Off = 45.0;         ///< from an outline to its dimension line
constexpr double Diagonal = 0.70710678118654752;

struct Place {
    double X = 0.0;
    double Y = 0.0;
};

struct ItemWriter {
    std::int16_t Shape;
    std::vector<PictureItem>& Items;

    void Add(std::int16_t kind, const Place& from, const Place& to, const Place& third, double value,
             const std::string& label)
    {
        Items.push_back({Shape, kind, 1, from.X, from.Y, to.X, to.Y, third.X, third.Y, value, label, 0});
    }
    void Line(const Place& from, const Place& to)
    {
        Add(ItemLine, from, to, {}, 0.0, "");
    }
    /// Radius above 0 counter-clockwise.
    void Arc(const Place& from, const Place& to, const Place& centre, double radius)
    {
        Add(ItemArc, from, to, centre, radius, "");
    }
    /// The letter stands on the left of the way from the one to the other place.
    void Dimension(const std::string& label, const Place& from, const Place& to, const Place& foot)
    {
        Add(ItemDimension, from, to, foot, 0.0, label);
    }
};

/// The two entries below the middle of the bottom edge, and the exit above the middle of the top edge.
void AddTwinWays(ItemWriter& writer, double middle, double top)
{
    const Place centre{middle, -EntryRadius};
    const Place left{middle - EntryRadius, -EntryRadius};
    const Place right{middle + EntryRadius, -EntryRadius};
    const double low = -EntryRadius - Entry;
    writer.Line({right.X, low}, right);
    writer.Arc(right, {middle, 0}, centre, EntryRadius);
    writer.Line({left.X, low}, left);
    writer.Arc(left, {middle, 0}, centre, -EntryRadius);
    writer.Line({middle, top}, {middle, top + ExitLength});
}

void AddTwinDimensions(ItemWriter& writer, double middle, double top)
{
    const double leftX = middle - EntryRadius;
    const double rightX = middle + EntryRadius;
    const double low = -EntryRadius - Entry;
    writer.Dimension("L", {rightX, -EntryRadius}, {rightX, low}, {rightX + Off, -EntryRadius});
    writer.Dimension("LR", {middle, -EntryRadius}, {leftX, -EntryRadius}, {middle, -EntryRadius});
    writer.Dimension(ParameterCaption(TailLetter), {middle, top + ExitLength}, {middle, top},
                     {middle + Off, top + ExitLength});
    writer.Dimension(ParameterCaption(SwapLetter), {rightX, low}, {leftX, low}, {rightX, low - Off});
}

/// Two rectangles with a common middle line; a corner of the grown stroke tells the offset.
void MakeRectangleStroke(ItemWriter writer)
{
    const double middle = Length / 2;
    writer.Line({middle, -Entry}, {middle, 0});
    writer.Line({0, 0}, {Length, 0});
    writer.Line({Length, 0}, {Length, Height});
    writer.Line({Length, Height}, {0, Height});
    writer.Line({0, Height}, {0, 0});
    writer.Line({middle, 0}, {middle, Height});
    writer.Line({Length - 2 * Growth, Height + Growth}, {Length + Growth, Height + Growth});
    writer.Line({Length + Growth, Height + Growth}, {Length + Growth, Height - 2 * Growth});
    writer.Dimension("A", {0, 0}, {0, Height}, {-Off, 0});
    writer.Dimension("B", {Length, 0}, {0, 0}, {Length, -Entry - Off});
    writer.Dimension("L", {middle, 0}, {middle, -Entry}, {middle + Off, 0});
    writer.Dimension("Offset", {Length - 2 * Growth, Height}, {Length - 2 * Growth, Height + Growth},
                     {Length - 2 * Growth - Off, Height});
}

void MakeTwinRectangle(ItemWriter writer)
{
    const double middle = Length / 2;
    AddTwinWays(writer, middle, Height);
    const double right = Length - Corner;
    const double upper = Height - Corner;
    writer.Line({middle, 0}, {Corner, 0});
    writer.Arc({Corner, 0}, {0, Corner}, {Corner, Corner}, -Corner);
    writer.Line({0, Corner}, {0, upper});
    writer.Arc({0, upper}, {Corner, Height}, {Corner, upper}, -Corner);
    writer.Line({Corner, Height}, {right, Height});
    writer.Arc({right, Height}, {Length, upper}, {right, upper}, -Corner);
    writer.Line({Length, upper}, {Length, Corner});
    writer.Arc({Length, Corner}, {right, 0}, {right, Corner}, -Corner);
    writer.Line({right, 0}, {middle, 0});
    writer.Dimension("A", {0, 0}, {0, Height}, {-Off, 0});
    writer.Dimension("B", {0, Height / 3}, {Length, Height / 3}, {0, Height / 3});
    writer.Dimension("R", {Corner, upper}, {Corner - Corner * Diagonal, upper + Corner * Diagonal},
                     {Corner, upper});
    AddTwinDimensions(writer, middle, Height);
}

void MakeTwinCircle(ItemWriter writer, bool hole)
{
    const double radius = Length / 2;
    const double inner = radius / 2;
    const Place centre{radius, radius};
    AddTwinWays(writer, radius, Length);
    writer.Arc({radius, 0}, {radius, Length}, centre, -radius);
    writer.Arc({radius, 0}, {radius, Length}, centre, radius);
    if (hole) {
        const Place bottom{radius, radius - inner};
        writer.Arc(bottom, bottom, centre, inner);
    }
    writer.Dimension("A", {radius, 0}, {radius, Length}, {-Off, 0});
    if (hole) {
        writer.Dimension("B", {radius - inner, radius}, {radius + inner, radius}, {radius - inner, radius});
    }
    AddTwinDimensions(writer, radius, Length);
}
} // namespace

bool MakePictureItems(std::int16_t shapeId, std::vector<PictureItem>& items)
{
    switch (shapeId) {
    case RectangleStroke:
        MakeRectangleStroke({shapeId, items});
        return true;
    case TwinRectangle:
        MakeTwinRectangle({shapeId, items});
        return true;
    case TwinCircle:
    case TwinRing:
        MakeTwinCircle({shapeId, items}, shapeId == TwinRing);
        return true;
    default:
        return false;
    }
}
