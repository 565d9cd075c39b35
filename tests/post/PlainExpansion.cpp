#include "PlainExpansion.h"

#include "config/Korvanta_Utility.h"
#include "platform/Fault.h"

#include <cmath>

namespace
{
constexpr auto None = std::string::npos;

/// Text up to the tag found in a lower-cased copy, the value, the text behind the tag.
bool Replace(std::string& line, const std::string& tag, const std::string& value)
{
    const std::size_t at = LowerCase(line).find(tag);
    if (at == None) {
        return false;
    }
    line = line.substr(0, at) + value + line.substr(at + tag.size());
    return true;
}

bool Has(const std::string& line, const std::string& tag)
{
    return LowerCase(line).find(tag) != None;
}

std::string Field(std::string_view vector, int number)
{
    VectorFields fields;
    std::int16_t count = 0;
    SplitVector(vector, ',', fields, count);
    return std::string(fields[static_cast<std::size_t>(number)]);
}

std::string Signed(std::int32_t value)
{
    return (value < 0 ? "" : " ") + std::to_string(value);
}

void WholeLineTags(std::string& line, std::string_view vector, Flag& written)
{
    if (line.find("*SIZ") != None) {
        double x = AppState.ViewWidth;
        double y = std::fabs(AppState.ViewHeight);
        if (AppState.SheetSizeX > 0.0) {
            x = AppState.SheetSizeX + 10.0;
        }
        if (AppState.SheetSizeY > 0.0) {
            y = AppState.SheetSizeY + 10.0;
        }
        line = "<SIZ:XYZ;-10;" + FormatNumber(x, 1, 0) + ";-10;" + FormatNumber(y, 1, 0) + ";-10;1000>";
    }
    if (line.find("*RAPID_MOVE") != None) {
        if (Field(vector, 2) == "NO_RAPID") {
            line = "";
            written = FlagOff;
        } else {
            line = ReadPprValue("PartProgram_RapidMOVE", "INIT_LINE", "") + AppState.RapidCode +
                   AppState.Separator + AppState.AxisX + Trim(Field(vector, 2)) + AppState.Separator +
                   AppState.AxisY + Trim(Field(vector, 3)) +
                   ReadPprValue("PartProgram_RapidMOVE", "END_LINE", "");
        }
    }
}

void KerfTags(std::string& line)
{
    const std::string none;
    if (line.find("*KERF_ON") != None) {
        if (AppState.NoKerfCodes == 0) {
            AppState.KerfState = 41;
        }
        Replace(line, "*kerf_on", AppState.NoKerfCodes == 0 ? AppState.KerfLeftWord : none);
    } else if (line.find("*KERF_OFF") != None) {
        AppState.KerfState = 40;
        Replace(line, "*kerf_off", AppState.NoKerfCodes == 0 ? AppState.KerfOffWord : none);
    }
}

void SheetTags(std::string& line)
{
    if (Has(line, "*xsheet")) {
        Replace(line, "*xsheet", FormatNumber(AppState.ProgramMaxX, 1, 0));
    } else {
        Replace(line, "*xsh", AppState.TextNesting[0].Text);
    }
    if (Has(line, "*ysheet")) {
        Replace(line, "*ysheet", FormatNumber(AppState.ProgramMaxY, 1, 0));
    } else {
        Replace(line, "*ysh", AppState.TextNesting[1].Text);
    }
}

void ConditionTags(std::string& line, Flag isInternal)
{
    if (Has(line, "*ifintprf:")) {
        line = isInternal == -1 ? line.substr(10) : "don'tprint";
    } else if (Has(line, "*ifextprf:")) {
        line = isInternal == 0 ? line.substr(10) : "don'tprint";
    }
}

void InputTags(std::string& line)
{
    int rounds = 0;
    while (line.find("#V") != None) {
        const std::size_t at = line.find("#V");
        const char c = at + 2 < line.size() ? line[at + 2] : ' ';
        const int slot = c >= '0' && c <= '9' ? c - '0' : 0;
        if (slot == 9 || ++rounds > 4096 || line.size() > 65536) {
            throw RunTimeFault("#V");
        }
        const std::string rest = at + 3 <= line.size() ? line.substr(at + 3) : "";
        line = line.substr(0, at) + AppState.PprInput[static_cast<std::size_t>(slot)].Value + rest;
    }
}
} // namespace

Flag PlainExpandLine(std::int16_t file, std::string& line, std::string_view vector,
                     const BlockCounters& counters, Flag isInternal)
{
    if (file > 0 && Has(line, "*write_collection")) {
        AppState.CollectionBuffer.clear();
        line = "don'tprint";
        return FlagOn;
    }
    Flag written = FlagOn;
    WholeLineTags(line, vector, written);
    KerfTags(line);
    const std::int64_t repeat = std::int64_t{AppState.CountX} * AppState.CountY;
    if (line.find("*RPT:") != None && repeat >= 1) {
        const std::size_t star = line.find('*');
        line = line.substr(0, star) + std::to_string(repeat) + line.substr(star + 5);
    }
    Replace(line, "*part_nr", std::to_string(counters.PartNr));
    Replace(line, "*subprogram_nr", Signed(counters.SubprogramNr));
    Replace(line, "*trace_nr", Signed(counters.TraceNr));
    while (line.find("profile_nr") != None) {
        if (!Replace(line, "*profile_nr", std::to_string(counters.ProfileNr))) {
            throw RunTimeFault("profile_nr");
        }
    }
    Replace(line, "*part_xmin", FormatNumber(counters.XMin, 1, -1));
    Replace(line, "*part_ymin", FormatNumber(counters.YMin, 1, -1));
    Replace(line, "*part_xmax", FormatNumber(counters.XMax, 1, -1));
    Replace(line, "*part_ymax", FormatNumber(counters.YMax, 1, -1));
    if (Replace(line, "*tracks_list", Trim(AppState.TracksList))) {
        AppState.TracksList.clear();
    }
    Replace(line, "*filename", Trim(AppState.OutputName));
    SheetTags(line);
    ConditionTags(line, isInternal);
    InputTags(line);
    return written;
}
