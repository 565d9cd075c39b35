#include "shell/ValueFields.h"

#include "config/Korvanta_Utility.h"
#include "platform/Screen.h"

namespace
{
struct FieldRow {
    const char* Tag;
    const char* Start;
};

constexpr FieldRow CuttingRows[CuttingFieldCount] = {
    // tag              start
    {"1;-360,360", "0"},   // Angle
    {"1;0,4", "0"},        // Mirror
    {"1;0.01,99999", "1"}, // Scale
    {"1;0,32767", "1"},    // Profile nr.
    {"1;0.1,99999", "10"}, // Move Step
    {"0.5;0,999", "5"},    // LeadIn : A
    {"0.5;0,999", "2"},    // LeadIn : B
    {"0.5;0,999", "2"},    // LeadOut : C
    {"0.5;0,999", "3"},    // LeadOut : D
    {"1;1,30", "1"},       // Zoom
};

constexpr FieldRow NestingRows[NestingFieldCount] = {
    // tag              start
    {"10;10,99999", "0"},   // X Sheet
    {"10;10,99999", "0"},   // Y Sheet
    {"0.10;0,999", "0"},    // Kerf
    {"1;-9999,9999", "10"}, // X Gap
    {"1;-9999,9999", "10"}, // Y Gap
    {"1;1,4", "1"},         // Nesting
    {"1;1,25", "2"},        // Simulation
    {"1;1,30", "1"},        // Zoom
};

void ResetArray(FieldArray fields, const char* controlName, const FieldRow* rows)
{
    std::int16_t index = 0;
    for (ValueField& field : fields) {
        field = ValueField();
        field.ControlName = controlName;
        field.Index = index;
        if (rows != nullptr) {
            field.FieldTag = rows[index].Tag;
            field.Text = rows[index].Start;
        }
        ++index;
    }
}
} // namespace

void ResetFields()
{
    ResetArray(AppState.TextCutting, "TextCutting", CuttingRows);
    ResetArray(AppState.TextNesting, "TextNesting", NestingRows);
    ResetArray(AppState.ParamText, "ParamText", nullptr);
    AppState.TextFileName = ValueField();
    AppState.TextFileName.ControlName = "TextFileName";
}

void ParseFieldTag(const std::string& tag, double& min, double& max, double& step)
{
    if (tag.empty()) {
        step = 1.0;
        min = -999999.0;
        max = 999999.0;
        return;
    }
    const std::size_t semicolon = tag.find(';');
    const std::size_t comma = tag.find(',');
    step = TextToNumber(tag.substr(0, semicolon));
    min = semicolon == std::string::npos ? 0.0 : TextToNumber(tag.substr(semicolon + 1));
    max = comma == std::string::npos ? 0.0 : TextToNumber(tag.substr(comma + 1));
}

void ValidateField(FieldArray fields, double value)
{
    ValidateFieldAt(fields, AppState.CurrentField, value);
}

void ValidateFieldAt(FieldArray fields, std::int16_t index, double value)
{
    ValueField& field = fields[static_cast<std::size_t>(index)];
    double min = 0.0;
    double max = 0.0;
    double step = 0.0;
    ParseFieldTag(field.FieldTag, min, max, step);
    if (value >= min && value <= max) {
        SetText(field, FormatNumber(value, 0, 2));
        return;
    }
    SetText(field, PlainNumber(value > max ? max : min));
    FocusField(field);
    SelectFieldText(field, 0, static_cast<std::int32_t>(field.Text.size()));
}

void StepField(FieldArray fields, bool increase, double step)
{
    const ValueField& field = fields[static_cast<std::size_t>(AppState.CurrentField)];
    if (IsNoValue(step)) {
        double min = 0.0;
        double max = 0.0;
        ParseFieldTag(field.FieldTag, min, max, step);
    }
    ValidateField(fields, FieldNumber(field) + (increase ? step : -step));
}

void SetText(ValueField& field, const std::string& text)
{
    if (field.Text == text) {
        return;
    }
    field.Text = text;
    if (field.Change != nullptr) {
        field.Change(field.Index);
    }
}

double FieldNumber(const ValueField& field)
{
    return TextToNumber(field.Text);
}
