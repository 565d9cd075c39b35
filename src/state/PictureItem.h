// PictureItem.h -- one item of a shape's dimensioned drawing, as a record of the drawings' file holds it.
#pragma once

#include <cstdint>
#include <string>

/// Values of PictureItem::ItemKind. Others draw nothing.
inline constexpr std::int16_t ItemLine = 1;
inline constexpr std::int16_t ItemArc = 2;
inline constexpr std::int16_t ItemFill = 4;
inline constexpr std::int16_t ItemLetter = 6;
inline constexpr std::int16_t ItemDimension = 7;

/// What the points mean depends on the kind:
///   line       point 1 to point 2
///   arc        point 1 to point 2 about (V1, V2), V3 the radius, above 0 counter-clockwise
///   fill       point 1 the seed
///   letter     point 1 its place
///   dimension  points 1 and 2 the places that it measures. (V1, V2) is the foot of point 1 on the dimension line, V3
///              the way of the letter from the line's middle towards point 2. But when V3 is above 0 and (V1, V2) as far
///              from the one as from the other point, it measures along an arc: from point 1 counter-clockwise to point 2
///              about (V1, V2), V3 the radius of the dimension line.
struct PictureItem {
    std::int16_t Shape = 0; ///< ShapeId
    std::int16_t ItemKind = 0;
    std::int16_t Slot = 1; ///< counts the dimensions that carry one letter
    double X1 = 0.0;
    double Y1 = 0.0;
    double X2 = 0.0;
    double Y2 = 0.0;
    double V1 = 0.0;
    double V2 = 0.0;
    double V3 = 0.0;
    std::string Label;           ///< caption of the parameter; in the file 10 characters, padded with blanks
    std::uint32_t ItemColor = 0; ///< 0xRRGGBB
};
