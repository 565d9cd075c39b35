#include "shapes/Korvanta_Parameters.h"

#include "config/Korvanta_Utility.h"
#include "shapes/DimensionDrawing.h"
#include "shapes/PictureRecords.h"
#include "shell/MsgBox_Unicode.h"
#include "shell/ValueFields.h"

namespace
{
constexpr ShapeRow Rows[] = {
    // id   name    letters and defaults, in field order
    {1001, "R-01", {{"A", 300}, {"B", 200}, {"R", 20}}},
    {1002, "R-02", {{"A", 200}, {"B", 300}, {"R", 20}, {"C", 100}, {"D", 100}, {"Di", 40}}},
    {1003, "R-03", {{"A", 300}, {"B", 200}, {"X", 20}, {"Y", 20}}},
    {1004, "R-04", {{"A", 300}, {"B", 200}, {"C", 150}, {"D", 100}, {"Df", 40}, {"X", 20}, {"Y", 20}}},
    {1005, "R-05", {{"A", 300}, {"B", 200}, {"X", 20}, {"Y", 20}}},
    {1006,
     "R-06",
     {{"A", 300}, {"B", 200}, {"R", 20}, {"C", 100}, {"D", 30}, {"E", 100}, {"F", 50}, {"Ri", 10}}},
    {1007, "R-07", {{"A", 300}, {"B", 200}, {"D", 50}, {"Ri", 30}, {"Re", 40}}},
    {1008, "R-08", {{"A", 300}, {"B", 200}, {"X", 20}, {"Y", 30}}},
    {1009, "R-09", {{"A", 300}, {"B", 200}, {"C", 100}, {"D", 70}, {"Di", 30}, {"X", 30}, {"Y", 20}}},
    {1010, "R-10", {{"A", 300}, {"B", 200}, {"C", 100}, {"D", 70}, {"Di", 30}, {"X", 30}, {"Y", 20}}},
    {1011, "R-11", {{"A", 200}, {"B", 300}, {"C", 20}, {"D", 30}, {"E", 100}, {"Df", 50}}},
    {1012, "R-12", {{"A", 300}, {"B", 200}, {"C", 100}, {"P", 35}, {"L", 50}, {"X", 30}, {"Y", 20}}},
    {1013, "R-13", {{"A", 300}, {"B", 200}}},
    {1014, "R-14", {{"A", 300}, {"B", 200}, {"X", 50}, {"Y", 60}, {"D", 30}}},
    {1015, "R-15", {{"A", 300}, {"B", 200}, {"C", 100}, {"D", 50}, {"E", 50}, {"F", 30}}},
    {1016, "R-16", {{"A", 300}, {"B", 200}}},
    {1017, "R-17", {{"A", 300}, {"B", 200}, {"C", 100}, {"D", 60}}},
    {1018, "R-18", {{"A", 300}, {"B", 200}, {"C", 100}, {"D", 60}}},
    {1019, "R-19", {{"A", 300}, {"B", 200}, {"C", 100}, {"D", 60}, {"R", 30}}},
    {1020, "R-20", {{"A", 200}, {"B", 300}, {"C", 30}, {"D", 30}, {"Di", 20}}},
    {1021, "R-21", {{"A", 200}, {"B", 300}, {"C", 100}, {"D", 50}}},
    {1022, "R-22", {{"A", 200}, {"B", 300}, {"C", 100}, {"D", 50}, {"E", 50}}},
    {1023, "R-23", {{"A", 200}, {"B", 300}, {"C", 20}, {"D", 30}, {"E", 50}, {"F", 150}}},
    {1024, "R-24", {{"A", 300}, {"B", 300}, {"C", 130}, {"D", 100}, {"R1", 25}, {"R2", 25}}},
    {1025,
     "R-25",
     {{"A", 300}, {"B", 300}, {"C", 30}, {"D", 30}, {"D1", 25}, {"E", 150}, {"F", 150}, {"D2", 100}}},
    {1026, "R-26", {{"A", 200}, {"B", 300}, {"R", 20}}},
    {1027, "R-27", {{"A", 200}, {"B", 300}, {"R", 20}}},
    {1028, "R-28", {{"A", 300}, {"B", 300}, {"C", 100}, {"D", 70}, {"E", 70}, {"R", 30}}},
    {1029,
     "R-29",
     {{"A", 200},
      {"B", 300},
      {"C", 20},
      {"D", 30},
      {"E", 40},
      {"F", 35},
      {"G", 10},
      {"H", 15},
      {"I", 15},
      {"L", 10}}},
    {1030, "R-30", {{"A", 300}, {"B", 300}, {"R", 30}, {"C", 30}, {"D", 30}, {"Di", 20}}},
    {1031,
     "R-31",
     {{"A", 300}, {"B", 300}, {"C", 130}, {"D", 150}, {"E", 50}, {"F", 50}, {"Ri", 50}, {"Re", 40}}},
    {1032,
     "R-32",
     {{"A", 300},
      {"B", 300},
      {"C", 30},
      {"D", 30},
      {"E", 25},
      {"F", 30},
      {"G", 10},
      {"H", 15},
      {"I", 100},
      {"R1", 20},
      {"R2", 40},
      {"R3", 20}}},
    {1033, "R-33", {{"A", 300}, {"B", 200}, {"C", 30}, {"D", 30}, {"R1", 40}, {"R2", 50}}},
    {1034, "R-34", {{"A", 300}, {"B", 200}, {"C", 50}, {"D", 50}, {"E", 50}, {"Re", 15}, {"Ri", 20}}},
    {1035,
     "R-35",
     {{"A", 200}, {"B", 300}, {"C", 30}, {"D", 30}, {"E", 80}, {"F", 180}, {"Di", 20}, {"Nx", 4}, {"Ny", 3}}},
    {1036, "R-36", {{"A", 300}, {"R", 5}}},
    {1037, "R-37", {{"A", 100}, {"B", 150}, {"C", -20}, {"D", 100}, {"R1", 30}, {"R2", 20}, {"R3", 15}}},
    {1038, "R-38", {{"A", 200}, {"B", 300}, {"C", 150}}},
    {1039, "R-39", {{"A", 400}, {"B", 250}, {"X", 50}, {"Y", 50}, {"L", 50}}},
    {1040, "R-40", {{"A", 400}, {"B", 600}, {"L", 5}, {"Offset", 0}}},
    {1041, "R-41", {{"A", 400}, {"B", 600}, {"R", 20}, {"L", 10}, {"LR", 5}, {"Tail", 0}, {"Swap", 0}}},
    {2001, "C-01", {{"A", 200}}},
    {2002, "C-02", {{"A", 100}, {"B", 80}}},
    {2003, "C-03", {{"A", 100}, {"B", 50}, {"Df", 75}, {"D", 10}, {"Nr", 6}}},
    {2004, "C-04", {{"A", 100}, {"B", 150}, {"R", 40}, {"D", 50}}},
    {2005, "C-05", {{"A", 150}, {"B", 200}, {"R", 40}, {"D", 50}}},
    {2006, "C-06", {{"A", 200}, {"B", 200}, {"C", 40}, {"R", 40}, {"D", 50}}},
    {2007, "C-07", {{"A", 200}, {"B", 200}, {"C", 40}, {"D", 160}, {"R", 40}, {"Di", 60}}},
    {2008, "C-08", {{"A", 150}, {"B", 200}, {"D", 70}}},
    {2009, "C-09", {{"A", 200}, {"B", 150}, {"C", 100}, {"D", 40}}},
    {2010, "C-10", {{"A", 200}, {"B", 150}, {"C", 100}, {"D", 40}}},
    {2011, "C-11", {{"B", 200}, {"R1", 150}, {"R2", 80}, {"D1", 150}, {"D2", 80}}},
    {2012, "C-12", {{"B", 500}, {"R1", 150}, {"R2", 80}, {"D1", 250}, {"D2", 130}}},
    {2013, "C-13", {{"B", 500}, {"R1", 150}, {"R2", 80}, {"R3", 400}, {"D1", 220}, {"D2", 110}}},
    {2014, "C-14", {{"A", 110}, {"Ri", 100}, {"Re", 200}}},
    {2015, "C-15", {{"A", 100}, {"Ri", 150}, {"Re", 200}}},
    {2016, "C-16", {{"A", 100}, {"B", 50}, {"C", 100}, {"Ri", 150}, {"Re", 200}}},
    {2017, "C-17", {{"B", 200}, {"R1", 150}, {"R2", 100}}},
    {2018, "C-18", {{"A", 50}, {"B", 300}, {"R1", 80}, {"R2", 70}, {"D1", 80}, {"D2", 70}}},
    {2019, "C-19", {{"A", 50}, {"B", 300}, {"Di", 100}, {"De", 200}}},
    {2020, "C-20", {{"A", 250}, {"D", 300}}},
    {2021, "C-21", {{"A", 50}, {"B", 100}, {"D", 300}}},
    {2022, "C-22", {{"A", 150}, {"B", 300}, {"P", 10}}},
    {2023, "C-23", {{"A", 150}, {"B", 300}, {"R1", 50}, {"R2", 50}, {"R3", 50}, {"R4", 50}}},
    {2024, "C-24", {{"D1e", 200}, {"D1i", 100}, {"D2e", 80}, {"D2i", 40}}},
    {2025, "C-25", {{"A", 200}, {"L", 10}, {"LR", 10}, {"Tail", 0}, {"Swap", 0}}},
    {2026, "C-26", {{"A", 200}, {"B", 80}, {"L", 10}, {"LR", 10}, {"Tail", 0}, {"Swap", 0}}},
    {3001, "H-01", {{"D", 100}}},
    {3002, "H-02", {{"A", 50}, {"B", 100}, {"R", 5}}},
    {3003, "H-03", {{"A", 100}, {"R", 5}}},
};

/// Messages that caption the two parameters without a letter.
constexpr int MessageTail = 22;
constexpr int MessageSwap = 38;
} // namespace

std::string ParameterCaption(std::string_view letter)
{
    if (letter == TailLetter) {
        return MessageText(MessageTail);
    }
    if (letter == SwapLetter) {
        return MessageText(MessageSwap);
    }
    return std::string(letter);
}

std::span<const ShapeRow> ShapeCatalogue()
{
    return Rows;
}

const ShapeRow* FindShape(std::int16_t shapeId)
{
    for (const ShapeRow& row : Rows) {
        if (row.ShapeId == shapeId) {
            return &row;
        }
    }
    return nullptr;
}

std::int16_t ShapeIdOfName(std::string_view name)
{
    for (const ShapeRow& row : Rows) {
        if (name == row.Name) {
            return row.ShapeId;
        }
    }
    return 0;
}

int ParameterCount(const ShapeRow& row)
{
    int count = 0;
    while (count < MaxShapeParameters && row.Parameters[count].Letter != nullptr) {
        ++count;
    }
    return count;
}

namespace
{
void ShowParameterFields(std::int16_t shapeId, Flag withDefaults)
{
    for (ValueField& field : AppState.ParamText) {
        field.Visible = FlagOff;
    }
    const ShapeRow* row = FindShape(shapeId);
    if (row == nullptr) {
        return;
    }
    for (int i = 0; i < ParameterCount(*row); ++i) {
        const auto index = static_cast<std::size_t>(i);
        AppState.ParamText[index].Visible = FlagOn;
        AppState.ParamLabel[index] = ParameterCaption(row->Parameters[i].Letter);
        if (withDefaults != 0) {
            SetText(AppState.ParamText[index], PlainNumber(row->Parameters[i].Default));
        }
    }
}
} // namespace

void ShowShapeParameters(std::int16_t shapeId, Flag withDefaults)
{
    ShowParameterFields(shapeId, withDefaults);
    LoadPictureItems(shapeId);
    DrawShapePicture(Picture::Param, 0);
}
