// Builders.h -- one procedure for each shape: it reads its parameters, checks them, and draws. Its only effects are
// records of the element table and the error word (and ShapeFlagTwin of the twin-half shapes).
#pragma once

#include "shapes/Korvanta_Develop.h"

#include <cstdint>

using ShapeBuilder = void (*)(const ShapeParameters& p, std::int16_t& err);

/// The builder of an identifier, of the catalogue or outside it; null when there is none. have a second one
/// for a radius of exactly 0, which `p` decides.
ShapeBuilder FindBuilder(std::int16_t shapeId, const ShapeParameters& p);

// Rectangular shapes.
void BuildR01(const ShapeParameters& p, std::int16_t& err);
void BuildR01Square(const ShapeParameters& p, std::int16_t& err);
void BuildR02(const ShapeParameters& p, std::int16_t& err);
void BuildR02Square(const ShapeParameters& p, std::int16_t& err);
void BuildR03(const ShapeParameters& p, std::int16_t& err);
void BuildR04(const ShapeParameters& p, std::int16_t& err);
void BuildR05(const ShapeParameters& p, std::int16_t& err);
void BuildR06(const ShapeParameters& p, std::int16_t& err);
void BuildR07(const ShapeParameters& p, std::int16_t& err);
void BuildR08(const ShapeParameters& p, std::int16_t& err);
void BuildR09(const ShapeParameters& p, std::int16_t& err);
void BuildR10(const ShapeParameters& p, std::int16_t& err);
void BuildR11(const ShapeParameters& p, std::int16_t& err);
void BuildR12(const ShapeParameters& p, std::int16_t& err);
void BuildR13(const ShapeParameters& p, std::int16_t& err);
void BuildR14(const ShapeParameters& p, std::int16_t& err);
void BuildR15(const ShapeParameters& p, std::int16_t& err);
void BuildR16(const ShapeParameters& p, std::int16_t& err);
void BuildR17(const ShapeParameters& p, std::int16_t& err);
void BuildR18(const ShapeParameters& p, std::int16_t& err);
void BuildR19(const ShapeParameters& p, std::int16_t& err);
void BuildR20(const ShapeParameters& p, std::int16_t& err);
void BuildR21(const ShapeParameters& p, std::int16_t& err);
void BuildR22(const ShapeParameters& p, std::int16_t& err);
void BuildR23(const ShapeParameters& p, std::int16_t& err);
void BuildR24(const ShapeParameters& p, std::int16_t& err);
void BuildR25(const ShapeParameters& p, std::int16_t& err);
void BuildR26(const ShapeParameters& p, std::int16_t& err);
void BuildR27(const ShapeParameters& p, std::int16_t& err);
void BuildR28(const ShapeParameters& p, std::int16_t& err);
void BuildR29(const ShapeParameters& p, std::int16_t& err);
void BuildR30(const ShapeParameters& p, std::int16_t& err);
void BuildR31(const ShapeParameters& p, std::int16_t& err);
void BuildR32(const ShapeParameters& p, std::int16_t& err);
void BuildR33(const ShapeParameters& p, std::int16_t& err);
void BuildR34(const ShapeParameters& p, std::int16_t& err);
void BuildR35(const ShapeParameters& p, std::int16_t& err);
void BuildR36(const ShapeParameters& p, std::int16_t& err);
void BuildR37(const ShapeParameters& p, std::int16_t& err);
void BuildR38(const ShapeParameters& p, std::int16_t& err);
void BuildR39(const ShapeParameters& p, std::int16_t& err);
void BuildR40(const ShapeParameters& p, std::int16_t& err);
void BuildR41(const ShapeParameters& p, std::int16_t& err);

// Circular shapes.
void BuildC01(const ShapeParameters& p, std::int16_t& err);
void BuildC02(const ShapeParameters& p, std::int16_t& err);
void BuildC03(const ShapeParameters& p, std::int16_t& err);
void BuildC04(const ShapeParameters& p, std::int16_t& err);
void BuildC05(const ShapeParameters& p, std::int16_t& err);
void BuildC06(const ShapeParameters& p, std::int16_t& err);
void BuildC07(const ShapeParameters& p, std::int16_t& err);
void BuildC08(const ShapeParameters& p, std::int16_t& err);
void BuildC09(const ShapeParameters& p, std::int16_t& err);
void BuildC10(const ShapeParameters& p, std::int16_t& err);
void BuildC11(const ShapeParameters& p, std::int16_t& err);
void BuildC12(const ShapeParameters& p, std::int16_t& err);
void BuildC13(const ShapeParameters& p, std::int16_t& err);
void BuildC14(const ShapeParameters& p, std::int16_t& err);
void BuildC15(const ShapeParameters& p, std::int16_t& err);
void BuildC16(const ShapeParameters& p, std::int16_t& err);
void BuildC17(const ShapeParameters& p, std::int16_t& err);
void BuildC18(const ShapeParameters& p, std::int16_t& err);
void BuildC19(const ShapeParameters& p, std::int16_t& err);
void BuildC20(const ShapeParameters& p, std::int16_t& err);
void BuildC21(const ShapeParameters& p, std::int16_t& err);
void BuildC22(const ShapeParameters& p, std::int16_t& err);
void BuildC23(const ShapeParameters& p, std::int16_t& err);
void BuildC24(const ShapeParameters& p, std::int16_t& err);
void BuildC25(const ShapeParameters& p, std::int16_t& err);
void BuildC26(const ShapeParameters& p, std::int16_t& err);

// Hole shapes.
void BuildH01(const ShapeParameters& p, std::int16_t& err);
void BuildH02(const ShapeParameters& p, std::int16_t& err);
void BuildH03(const ShapeParameters& p, std::int16_t& err);

// Shapes outside the catalogue, which only stored jobs name.
void BuildRightTrapezium(const ShapeParameters& p, std::int16_t& err);
void BuildRectangleWithHole(const ShapeParameters& p, std::int16_t& err);
void BuildUprightLink(const ShapeParameters& p, std::int16_t& err);
void BuildDiscOnStem(const ShapeParameters& p, std::int16_t& err);
void BuildTPlate(const ShapeParameters& p, std::int16_t& err);
void BuildRoundEndedStrip(const ShapeParameters& p, std::int16_t& err);
void BuildDiscWithWindow(const ShapeParameters& p, std::int16_t& err);
void BuildLens(const ShapeParameters& p, std::int16_t& err);
void BuildParallelogram(const ShapeParameters& p, std::int16_t& err);
