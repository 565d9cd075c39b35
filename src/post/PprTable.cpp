// Stage 1 of a program run: the words of the post-processor table and the operator's answers.
#include "post/Korvanta_PostProcessor.h"

#include "config/JobKeys.h"
#include "config/Korvanta_Utility.h"
#include "platform/Fault.h"
#include "platform/Screen.h"

#include <algorithm>

namespace
{
constexpr std::string_view ConfigSection = "PartProgram_CONFIG";
constexpr std::string_view InputSection = "PartProgram_INPUT";
constexpr std::string_view MirrorMark = "*&";
constexpr std::string_view JobExtension = ".nst";
constexpr std::size_t InputFields = 4;

/// A text of the table that stays in AppState until the next load.
struct TableWord {
    std::string_view Section;
    std::string_view Key;
    std::string_view Default;
    std::string AppStateRecord::*Word;
};

constexpr TableWord TableWords[] = {
    {ConfigSection, "KERF_LEFT", "G41", &AppStateRecord::KerfLeftWord},
    {ConfigSection, "KERF_RIGHT", "G42", &AppStateRecord::KerfRightWord},
    {ConfigSection, "KERF_OFF", "G40", &AppStateRecord::KerfOffWord},
    {ConfigSection, "RADIUS", "NULL", &AppStateRecord::RadiusWord},
    {"PartProgram_LinearMOVE", "GCODE", "G01", &AppStateRecord::LinearCode},
    {"PartProgram_CircularMOVE", "CW_GCODE", "G02", &AppStateRecord::ClockwiseCode},
    {"PartProgram_CircularMOVE", "CCW_GCODE", "G03", &AppStateRecord::CounterClockwiseCode},
    {"PartProgram_RapidMOVE", "GCODE", "G00", &AppStateRecord::RapidCode},
};

/// An address with the mirror address that may stand behind "*&".
struct TableAxis {
    std::string_view Key;
    std::string_view Default;
    std::string AppStateRecord::*Address;
    std::string AppStateRecord::*Mirror;
};

constexpr TableAxis TableAxes[] = {
    {"X_AXIS", "X", &AppStateRecord::AxisX, &AppStateRecord::MirrorX},
    {"Y_AXIS", "Y", &AppStateRecord::AxisY, &AppStateRecord::MirrorY},
    {"I_AXIS", "I", &AppStateRecord::AxisI, &AppStateRecord::MirrorI},
    {"J_AXIS", "J", &AppStateRecord::AxisJ, &AppStateRecord::MirrorJ},
};

void LoadAxis(const TableAxis& axis)
{
    const std::string value = ReadPprValue(ConfigSection, axis.Key, axis.Default);
    const std::size_t mark = value.find(MirrorMark);
    AppState.*axis.Address = value.substr(0, mark);
    AppState.*axis.Mirror = mark == std::string::npos ? "" : value.substr(mark + MirrorMark.size());
}

/// Fills a slot from "label,kind,options,default".
void SplitInputKey(const std::string& text, const std::string& key, PprInputValue& slot)
{
    std::array<std::string_view, InputFields> fields;
    std::string_view rest = text;
    for (std::size_t i = 0; i < InputFields; ++i) {
        const std::size_t comma = rest.find(',');
        fields[i] = rest.substr(0, comma);
        if (comma == std::string_view::npos && i + 1 < InputFields) {
            throw RunTimeFault("[" + std::string(InputSection) + "] " + key +
                               ": label, kind, options and default are needed, separated by commas");
        }
        rest.remove_prefix(std::min(rest.size(), comma == std::string_view::npos ? rest.size() : comma + 1));
    }
    const std::string kind = Trim(fields[1]);
    slot.Label = fields[0];
    slot.Kind = kind.empty() ? ' ' : kind.front(); // a blank is a letter like any other: free entry
    slot.Options = Trim(UpperCase(fields[2]));
    slot.Value = Trim(UpperCase(fields[3]));
}

/// What a list shows selected: the option equal to the value without regard to case, else the first.
void SelectOption(PprInputValue& slot)
{
    if (slot.Kind != 'T') {
        return;
    }
    const std::string_view options = slot.Options;
    const std::string wanted = UpperCase(slot.Value);
    slot.Value = options.substr(0, options.find('|'));
    for (std::size_t from = 0; from <= options.size();) { // an option may be empty, the last one too
        const std::size_t bar = std::min(options.find('|', from), options.size());
        const std::string_view option = options.substr(from, bar - from);
        if (UpperCase(option) == wanted) {
            slot.Value = option;
            return;
        }
        from = bar + 1;
    }
}

/// The answers given when this job was last saved stand in for the defaults.
void LoadInputSlots()
{
    std::string jobFile = AppState.JobName;
    if (!Contains(LowerCase(jobFile), JobExtension)) {
        jobFile += JobExtension;
    }
    for (std::size_t i = 1; i <= PprInputSlots; ++i) {
        PprInputValue& slot = AppState.PprInput[i];
        const std::string number = std::to_string(i);
        const std::string key = "#V" + number;
        const std::string text = ReadPprValue(InputSection, key, "");
        if (text.empty()) {
            slot.Kind = 'N';
            continue;
        }
        SplitInputKey(text, key, slot);
        const std::string stored = ReadJobKey(jobFile, "0004", "V" + number, "");
        if (!stored.empty()) {
            slot.Value = stored;
        }
    }
}

/// Asks the operator for the values of the table, when it defines any.
void RunInputBlock()
{
    if (ReadPprValue(InputSection, "#V1", "").empty()) {
        return;
    }
    LoadInputSlots();
    if (AppState.PprInput[1].Kind == 'N') {
        return; // nobody is asked, so the defaults stand as they are
    }
    for (std::size_t i = 1; i <= PprInputSlots; ++i) {
        SelectOption(AppState.PprInput[i]); // what the lists show first
    }
    RunInputDialog(AppState.ProgramName + " [" + AppState.JobName + "]");
    for (std::size_t i = 1; i <= PprInputSlots; ++i) {
        PprInputValue& slot = AppState.PprInput[i];
        if (slot.Kind == 'N') {
            slot.Value.clear();
        }
        SelectOption(slot); // a list can't be left with anything but one of its options
    }
}
} // namespace

void LoadPostProcessorValues()
{
    for (const TableWord& word : TableWords) {
        AppState.*word.Word = ReadPprValue(word.Section, word.Key, word.Default);
    }
    for (const TableAxis& axis : TableAxes) {
        LoadAxis(axis);
    }
    const std::int16_t blanks = CutToInt16(TextToNumber(ReadPprValue(ConfigSection, "SPACEBETWEENCODE", "1")),
                                           "SPACEBETWEENCODE of the table");
    AppState.Separator.assign(static_cast<std::size_t>(std::max<std::int16_t>(blanks, 0)), ' ');
    AppState.FirstMoveKerfOn = ReadPprValue("PartProgram_FirstMOVE", "KERF_ON", "YES") == "YES" ? 1 : 0;
    RunInputBlock();
    AppState.CollectionBuffer.clear();
}

void LoadLineNumbering()
{
    constexpr std::int16_t unread = 10;
    AppState.LineNumber = unread;
    AppState.LineNumberStep = unread;
    AppState.LineNumbering = ToFlag(Contains(ReadPprValue(ConfigSection, "LINENUMBER", "ON"), "ON"));
    if (AppState.LineNumbering == FlagOff) {
        return;
    }
    AppState.LineNumber = RoundToInt32(TextToNumber(ReadPprValue(ConfigSection, "LINENUMBER_START", "10")),
                                       "LINENUMBER_START of the table");
    AppState.LineNumberStep = RoundToInt16(TextToNumber(ReadPprValue(ConfigSection, "LINENUMBER_STEP", "10")),
                                           "LINENUMBER_STEP of the table");
}

void SplitVector(std::string_view text, char delimiter, VectorFields& fields, std::int16_t& count)
{
    fields.fill({});
    count = 0;
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return;
    }
    text = text.substr(first, text.find_last_not_of(' ') - first + 1);
    while (!text.empty()) {
        if (count + 1 >= static_cast<std::int16_t>(fields.size())) {
            throw RunTimeFault("A block vector has more than 15 fields");
        }
        const std::size_t end = text.find(delimiter);
        fields[static_cast<std::size_t>(++count)] = text.substr(0, end);
        if (end == std::string_view::npos) {
            return;
        }
        text.remove_prefix(end + 1);
        text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    }
}
