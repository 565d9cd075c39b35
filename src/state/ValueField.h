// ValueField.h -- one value field of a screen. Its text is the only store of its value.
#pragma once

#include "state/Flag.h"

#include <cstdint>
#include <span>
#include <string>

struct ValueField {
    std::string Text;
    const char* FieldTag = "";    ///< "step;min,max"; empty for the limits of no tag
    const char* ControlName = ""; ///< "TextCutting", "TextNesting", "ParamText"
    std::int16_t Index = 0;       ///< place in its array
    Flag Visible = FlagOn;
    std::int32_t BackColor = 0xFFFFFF;            ///< 0xRRGGBB
    void (*Change)(std::int16_t index) = nullptr; ///< runs when the text becomes another text
};

using FieldArray = std::span<ValueField>;

/// Indices of TextCutting.
enum CuttingField : std::int16_t {
    FieldAngle,
    FieldMirror,
    FieldScale,
    FieldProfileNumber,
    FieldMoveStep,
    FieldLeadInA,
    FieldLeadInB,
    FieldLeadOutC,
    FieldLeadOutD,
    FieldCuttingZoom,
    CuttingFieldCount
};

/// Indices of TextNesting. LabelNesting has two labels more: 8 and 9, the counts.
enum NestingField : std::int16_t {
    FieldSheetX,
    FieldSheetY,
    FieldKerf,
    FieldGapX,
    FieldGapY,
    FieldNestType,
    FieldSimulation,
    FieldNestingZoom,
    NestingFieldCount,
    LabelCountX = NestingFieldCount,
    LabelCountY,
    NestingLabelCount
};

inline constexpr std::int16_t ParamFieldCount = 15;
