// The .nst: sections of keys with the texts of the fields. Order and spelling are fixed.
#include "config/JobKeys.h"
#include "config/Korvanta_Utility.h"
#include "jobfiles/JobFiles.h"
#include "jobfiles/JobNames.h"
#include "platform/SafeFile.h"
#include "shell/ValueFields.h"
#include "state/AppState.h"

namespace
{
constexpr std::string_view ProgramVersion = "2.28"; // key VP
constexpr const char* HeaderSection = "0001";
constexpr const char* CuttingSection = "0002";
constexpr const char* NestingSection = "0003";

std::string JobPath(const std::string& file)
{
    return AppState.NestingPath + file;
}

/// Reading takes a pair of quotes and the blanks of key files off the ends of a value: those that belong to it are kept by
/// a pair around them.
bool NeedsQuotes(std::string_view value)
{
    constexpr std::string_view Blanks = "\t\x0b\x0c\x1a";
    if (value.empty()) {
        return false;
    }
    const bool quoted =
        value.size() > 1 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
    return quoted || Contains(Blanks, value.substr(0, 1)) || Contains(Blanks, value.substr(value.size() - 1));
}

/// A line end or a NUL in a value would be read as something else.
std::string OneLine(std::string_view value)
{
    std::string line = Trim(value);
    for (char& c : line) {
        if (c == '\r' || c == '\n' || c == '\0') {
            c = ' ';
        }
    }
    line = Trim(line);
    return NeedsQuotes(line) ? '"' + line + '"' : line;
}

void AddSection(std::string& text, std::string_view name)
{
    text.append("[").append(name).append("]\r\n");
}

void AddKey(std::string& text, std::string_view key, std::string_view value)
{
    text.append(key).append("=").append(OneLine(value)).append("\r\n");
}

void AddFields(std::string& text, const char* letter, FieldArray fields)
{
    for (std::size_t i = 0; i < fields.size(); ++i) {
        AddKey(text, letter + std::to_string(i), fields[i].Text);
    }
}

double KeyNumber(const std::string& file, const char* section, const std::string& key,
                 const std::string& defaultValue)
{
    return TextToNumber(ReadJobKey(file, section, key, defaultValue));
}

/// CurrentField goes along: the change routines of the fields refer to it.
void ReadFields(const std::string& file, const char* section, const char* letter, FieldArray fields)
{
    const std::int16_t before = AppState.CurrentField;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        AppState.CurrentField = static_cast<std::int16_t>(i);
        const double number = KeyNumber(file, section, letter + std::to_string(i), fields[i].Text);
        SetText(fields[i], PlainNumber(number));
    }
    AppState.CurrentField = before;
}

void ReadCount(const std::string& file, const char* key, std::int32_t& count, std::string& label)
{
    count = RoundAndClampToInt32(KeyNumber(file, NestingSection, key, ""));
    label = count > 0 ? std::to_string(count) : "";
}
} // namespace

void WriteJobHeader(const std::string& file)
{
    NormalisePath(AppState.NestingPath);
    std::string text;
    AddSection(text, "0000");
    AddKey(text, "VP", ProgramVersion);
    AddKey(text, "VL", FormatVersion);
    AddSection(text, HeaderSection);
    AddKey(text, "S", std::to_string(AppState.ShapeId));
    AddKey(text, "F", AppState.SourceName);
    AddFields(text, "P", AppState.ParamText);
    WriteSecondName(JobPath(file), text);
}

void WriteCuttingSection(const std::string& file)
{
    std::string text;
    AddSection(text, CuttingSection);
    AddFields(text, "V", AppState.TextCutting);
    AppendSecondName(JobPath(file), text);
}

void WriteNestingSection(const std::string& file)
{
    std::string text;
    AddSection(text, NestingSection);
    AddFields(text, "V", AppState.TextNesting);
    AddKey(text, "Rx", AppState.LabelNesting[LabelCountX]);
    AddKey(text, "Ry", AppState.LabelNesting[LabelCountY]);
    AppendSecondName(JobPath(file), text);
}

void WritePostInputSection(const std::string& file)
{
    std::string text;
    AddSection(text, "0004");
    for (std::size_t slot = 1; slot <= PprInputSlots; ++slot) {
        const PprInputValue& input = AppState.PprInput[slot];
        AddKey(text, "V" + std::to_string(slot), input.Kind == 'N' ? "" : input.Value);
    }
    AppendSecondName(JobPath(file), text);
}

void PutJobText(const std::string& file)
{
    PutInPlace(JobPath(file));
}

void ReadJobHeader(const std::string& file)
{
    AppState.ShapeId = RoundAndClampToInt16(KeyNumber(file, HeaderSection, "S", "0"));
    AppState.SourceName = ReadJobKey(file, HeaderSection, "F", "");
    AppState.JobName = file;
    ReadFields(file, HeaderSection, "P", AppState.ParamText);
}

void ReadCuttingSection(const std::string& file)
{
    ReadFields(file, CuttingSection, "V", AppState.TextCutting);
}

void ReadNestingSection(const std::string& file)
{
    ReadFields(file, NestingSection, "V", AppState.TextNesting);
    ReadCount(file, "Rx", AppState.NestResultX, AppState.LabelNesting[LabelCountX]);
    ReadCount(file, "Ry", AppState.NestResultY, AppState.LabelNesting[LabelCountY]);
}
