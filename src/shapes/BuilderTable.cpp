#include "shapes/Builders.h"

#include "shapes/Korvanta_Parameters.h"

namespace
{
struct BuilderRow {
    std::int16_t ShapeId;
    ShapeBuilder Build;
};

constexpr BuilderRow Rows[] = {
    {FamilyRect + 1, BuildR01},      {FamilyRect + 2, BuildR02},      {FamilyRect + 3, BuildR03},
    {FamilyRect + 4, BuildR04},      {FamilyRect + 5, BuildR05},      {FamilyRect + 6, BuildR06},
    {FamilyRect + 7, BuildR07},      {FamilyRect + 8, BuildR08},      {FamilyRect + 9, BuildR09},
    {FamilyRect + 10, BuildR10},     {FamilyRect + 11, BuildR11},     {FamilyRect + 12, BuildR12},
    {FamilyRect + 13, BuildR13},     {FamilyRect + 14, BuildR14},     {FamilyRect + 15, BuildR15},
    {FamilyRect + 16, BuildR16},     {FamilyRect + 17, BuildR17},     {FamilyRect + 18, BuildR18},
    {FamilyRect + 19, BuildR19},     {FamilyRect + 20, BuildR20},     {FamilyRect + 21, BuildR21},
    {FamilyRect + 22, BuildR22},     {FamilyRect + 23, BuildR23},     {FamilyRect + 24, BuildR24},
    {FamilyRect + 25, BuildR25},     {FamilyRect + 26, BuildR26},     {FamilyRect + 27, BuildR27},
    {FamilyRect + 28, BuildR28},     {FamilyRect + 29, BuildR29},     {FamilyRect + 30, BuildR30},
    {FamilyRect + 31, BuildR31},     {FamilyRect + 32, BuildR32},     {FamilyRect + 33, BuildR33},
    {FamilyRect + 34, BuildR34},     {FamilyRect + 35, BuildR35},     {FamilyRect + 36, BuildR36},
    {FamilyRect + 37, BuildR37},     {FamilyRect + 38, BuildR38},     {FamilyRect + 39, BuildR39},
    {FamilyRect + 40, BuildR40},     {FamilyRect + 41, BuildR41},     {FamilyCircular + 1, BuildC01},
    {FamilyCircular + 2, BuildC02},  {FamilyCircular + 3, BuildC03},  {FamilyCircular + 4, BuildC04},
    {FamilyCircular + 5, BuildC05},  {FamilyCircular + 6, BuildC06},  {FamilyCircular + 7, BuildC07},
    {FamilyCircular + 8, BuildC08},  {FamilyCircular + 9, BuildC09},  {FamilyCircular + 10, BuildC10},
    {FamilyCircular + 11, BuildC11}, {FamilyCircular + 12, BuildC12}, {FamilyCircular + 13, BuildC13},
    {FamilyCircular + 14, BuildC14}, {FamilyCircular + 15, BuildC15}, {FamilyCircular + 16, BuildC16},
    {FamilyCircular + 17, BuildC17}, {FamilyCircular + 18, BuildC18}, {FamilyCircular + 19, BuildC19},
    {FamilyCircular + 20, BuildC20}, {FamilyCircular + 21, BuildC21}, {FamilyCircular + 22, BuildC22},
    {FamilyCircular + 23, BuildC23}, {FamilyCircular + 24, BuildC24}, {FamilyCircular + 25, BuildC25},
    {FamilyCircular + 26, BuildC26}, {FamilyHoles + 1, BuildH01},     {FamilyHoles + 2, BuildH02},
    {FamilyHoles + 3, BuildH03},     {11, BuildRightTrapezium},       {25, BuildRectangleWithHole},
    {36, BuildUprightLink},          {46, BuildDiscOnStem},           {50, BuildTPlate},
    {58, BuildRoundEndedStrip},      {59, BuildDiscWithWindow},       {67, BuildLens},
    {69, BuildParallelogram},
};

/// Field of the corner radius of.
constexpr std::size_t CornerRadiusField = 3;
} // namespace

ShapeBuilder FindBuilder(std::int16_t shapeId, const ShapeParameters& p)
{
    const bool square = p[CornerRadiusField] == 0.0;
    if (shapeId == FamilyRect + 1 && square) {
        return BuildR01Square;
    }
    if (shapeId == FamilyRect + 2 && square) {
        return BuildR02Square;
    }
    for (const BuilderRow& row : Rows) {
        if (row.ShapeId == shapeId) {
            return row.Build;
        }
    }
    return nullptr;
}
