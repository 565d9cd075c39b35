// Stage 2 of a program run: what a template line of the table becomes, and where the finished line goes.
#include "post/Korvanta_PostProcessor.h"

#include "config/Korvanta_Utility.h"
#include "platform/Fault.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

TextWriter ProgramFile;

namespace
{
constexpr std::string_view EndOfBlock = "//END";
constexpr std::string_view ConditionInternal = "*ifintprf:";
constexpr std::string_view ConditionExternal = "*ifextprf:";
constexpr double SheetMargin = 10.0;

// Values of the input block may hold further tags, even their own: such a text is given up at these limits.
constexpr int MaxInputReplacements = 4096;
constexpr std::size_t MaxExpandedLine = 65536;

[[noreturn]] void TemplateFault(const TemplatePlace& place, std::string_view what)
{
    std::string text;
    if (!place.Section.empty()) {
        text.append("[").append(place.Section).append("] ").append(place.Key).append(": ");
    }
    throw RunTimeFault(text.append(what));
}

char LowerChar(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// First occurrence of `tag`, which begins with a star and is in lower case, in any case of the line's letters.
std::size_t FindTag(std::string_view line, std::string_view tag)
{
    for (std::size_t at = line.find('*'); at != std::string_view::npos; at = line.find('*', at + 1)) {
        const std::string_view piece = line.substr(at, tag.size());
        if (piece.size() == tag.size() && std::equal(piece.begin(), piece.end(), tag.begin(),
                                                     [](char a, char b) { return LowerChar(a) == b; })) {
            return at;
        }
    }
    return std::string_view::npos;
}

/// Replaces the first `tag` (any case); false when the line holds none.
bool ReplaceTag(std::string& line, std::string_view tag, std::string_view value)
{
    const std::size_t at = FindTag(line, tag);
    if (at == std::string::npos) {
        return false;
    }
    line.replace(at, tag.size(), value);
    return true;
}

/// The same for numbers, which are formed only when the tag is there.
void ReplaceNumber(std::string& line, std::string_view tag, double value, std::int16_t decimals,
                   const TemplatePlace& place)
{
    if (FindTag(line, tag) == std::string_view::npos) {
        return;
    }
    if (!std::isfinite(value)) {
        TemplateFault(place, std::string(tag) + " has no finite value");
    }
    ReplaceTag(line, tag, FormatNumber(value, 1, decimals));
}

/// `leadingBlank`: the form that keeps a place for the sign.
void ReplaceCounter(std::string& line, std::string_view tag, std::int32_t value, bool leadingBlank)
{
    if (FindTag(line, tag) == std::string_view::npos) {
        return;
    }
    ReplaceTag(line, tag, (leadingBlank && value >= 0 ? " " : "") + std::to_string(value));
}

void ExpandSize(std::string& line, const TemplatePlace& place)
{
    if (!Contains(line, "*SIZ")) {
        return;
    }
    const double x = AppState.SheetSizeX > 0.0 ? AppState.SheetSizeX + SheetMargin : AppState.ViewWidth;
    const double y =
        AppState.SheetSizeY > 0.0 ? AppState.SheetSizeY + SheetMargin : std::fabs(AppState.ViewHeight);
    if (!std::isfinite(x) || !std::isfinite(y)) {
        TemplateFault(place, "*SIZ has no finite value");
    }
    line = "<SIZ:XYZ;-10;" + FormatNumber(x, 1, 0) + ";-10;" + FormatNumber(y, 1, 0) + ";-10;1000>";
}

/// False when the vector says that there is no rapid move here.
bool ExpandRapid(std::string& line, std::string_view vector)
{
    if (!Contains(line, "*RAPID_MOVE")) {
        return true;
    }
    VectorFields fields;
    std::int16_t count = 0;
    SplitVector(vector, ',', fields, count);
    if (fields[2] == "NO_RAPID") {
        line.clear();
        return false;
    }
    line = ReadPprValue("PartProgram_RapidMOVE", "INIT_LINE", "");
    line += AppState.RapidCode;
    line += AppState.Separator;
    line += AppState.AxisX;
    line += Trim(fields[2]);
    line += AppState.Separator;
    line += AppState.AxisY;
    line += Trim(fields[3]);
    line += ReadPprValue("PartProgram_RapidMOVE", "END_LINE", "");
    return true;
}

/// The test looks at the case of the tag, the replacement doesn't.
void ExpandKerf(std::string& line)
{
    const bool silent = AppState.NoKerfCodes != FlagOff;
    if (Contains(line, "*KERF_ON")) {
        if (!silent) {
            AppState.KerfState = KerfLeft;
        }
        ReplaceTag(line, "*kerf_on", silent ? "" : AppState.KerfLeftWord);
    } else if (Contains(line, "*KERF_OFF")) {
        AppState.KerfState = KerfOff;
        ReplaceTag(line, "*kerf_off", silent ? "" : AppState.KerfOffWord);
    }
}

/// Cuts at the first star of the line, be it the tag's or not.
void ExpandRepeat(std::string& line)
{
    constexpr std::string_view tag = "*RPT:";
    const std::int64_t count = std::int64_t{AppState.CountX} * AppState.CountY;
    if (count >= 1 && Contains(line, tag)) {
        line.replace(line.find('*'), tag.size(), std::to_string(count));
    }
}

void ExpandProfileNumber(std::string& line, std::int32_t profileNr, const TemplatePlace& place)
{
    while (Contains(line, "profile_nr")) {
        if (!ReplaceTag(line, "*profile_nr", std::to_string(profileNr))) {
            TemplateFault(place, "profile_nr without its star");
        }
    }
}

void ExpandNames(std::string& line, const TemplatePlace& place)
{
    if (ReplaceTag(line, "*tracks_list", Trim(AppState.TracksList))) {
        AppState.TracksList.clear();
    }
    ReplaceTag(line, "*filename", Trim(AppState.OutputName));
    if (FindTag(line, "*xsheet") != std::string_view::npos) {
        ReplaceNumber(line, "*xsheet", AppState.ProgramMaxX, 0, place);
    } else {
        ReplaceTag(line, "*xsh", AppState.TextNesting[FieldSheetX].Text);
    }
    if (FindTag(line, "*ysheet") != std::string_view::npos) {
        ReplaceNumber(line, "*ysheet", AppState.ProgramMaxY, 0, place);
    } else {
        ReplaceTag(line, "*ysh", AppState.TextNesting[FieldSheetY].Text);
    }
}

/// A condition that holds costs the line its first characters, wherever the tag stands.
void ExpandCondition(std::string& line, Flag isInternal)
{
    bool holds = false;
    if (FindTag(line, ConditionInternal) != std::string_view::npos) {
        holds = isInternal == FlagOn;
    } else if (FindTag(line, ConditionExternal) != std::string_view::npos) {
        holds = isInternal == FlagOff;
    } else {
        return;
    }
    if (holds) {
        line.erase(0, ConditionInternal.size());
    } else {
        line = DontPrint;
    }
}

void ExpandInputValues(std::string& line, const TemplatePlace& place)
{
    constexpr std::string_view tag = "#V";
    int replaced = 0;
    for (std::size_t at = line.find(tag); at != std::string::npos;) {
        const char digit = at + tag.size() < line.size() ? line[at + tag.size()] : '0';
        const std::size_t slot = digit >= '0' && digit <= '9' ? static_cast<std::size_t>(digit - '0') : 0;
        if (slot >= AppState.PprInput.size()) {
            TemplateFault(place, "#V9 is no input value, they are #V1 to #V8");
        }
        if (++replaced > MaxInputReplacements || line.size() > MaxExpandedLine) {
            TemplateFault(place, "the values of #V lead back to themselves without end");
        }
        line.replace(at, tag.size() + 1, AppState.PprInput[slot].Value);
        at = line.find(tag, at > 0 ? at - 1 : 0); // a sign ahead of the tag may form a new one with the value
    }
}

/// What stands in the collection buffer goes to the file; the template line itself is lost.
void FlushCollection(std::int16_t file, std::string& line)
{
    for (const std::string& text : AppState.CollectionBuffer) {
        WriteLine(file, text, false);
    }
    AppState.CollectionBuffer.clear();
    line = DontPrint;
}

/// "LINE12" in a buffer of the caller.
struct KeyName {
    std::array<char, 32> Text{};

    std::string_view Form(std::string_view word, int number)
    {
        char* end = std::copy(word.begin(), word.end(), Text.data());
        end = std::to_chars(end, Text.data() + Text.size(), number).ptr;
        return {Text.data(), static_cast<std::size_t>(end - Text.data())};
    }
};

/// The template in `key`, less the mark of a numbered line; false at the end of the block.
bool ReadBlockLine(std::string_view section, std::string_view key, std::string& line, bool& numbered)
{
    std::string_view text = FindPprValue(section, key, EndOfBlock);
    if (text == EndOfBlock) {
        return false;
    }
    numbered = text.starts_with('_');
    text.remove_prefix(numbered ? 1 : 0);
    line = text;
    return true;
}
} // namespace

Flag ExpandLine(std::int16_t file, std::string& line, std::string_view vector, const BlockCounters& counters,
                Flag isInternal, const TemplatePlace& place)
{
    if (line.find('*') == std::string::npos && line.find('#') == std::string::npos &&
        !Contains(line, "profile_nr")) {
        return FlagOn; // nothing of what follows can be in such a line
    }
    if (file > 0 && FindTag(line, "*write_collection") != std::string_view::npos) {
        FlushCollection(file, line);
        return FlagOn;
    }
    ExpandSize(line, place);
    const bool written = ExpandRapid(line, vector);
    ExpandKerf(line);
    ExpandRepeat(line);
    ReplaceCounter(line, "*part_nr", counters.PartNr, false);
    ReplaceCounter(line, "*subprogram_nr", counters.SubprogramNr, true);
    ReplaceCounter(line, "*trace_nr", counters.TraceNr, true);
    ExpandProfileNumber(line, counters.ProfileNr, place);
    ReplaceNumber(line, "*part_xmin", counters.XMin, -1, place);
    ReplaceNumber(line, "*part_ymin", counters.YMin, -1, place);
    ReplaceNumber(line, "*part_xmax", counters.XMax, -1, place);
    ReplaceNumber(line, "*part_ymax", counters.YMax, -1, place);
    ExpandNames(line, place);
    ExpandCondition(line, isInternal);
    ExpandInputValues(line, place);
    return ToFlag(written);
}

std::vector<std::string> BlockLines(std::string_view section)
{
    KeyName name;
    std::vector<std::string> lines;
    std::string line;
    bool numbered = false;
    for (int n = 1; ReadBlockLine(section, name.Form("LINE", n), line, numbered); ++n) {
        lines.push_back(line);
    }
    return lines;
}

bool BlockHolds(std::string_view section, std::string_view text)
{
    const std::vector<std::string> lines = BlockLines(section);
    return std::any_of(lines.begin(), lines.end(),
                       [text](const std::string& line) { return Contains(line, text); });
}

void WriteLine(std::int16_t file, std::string_view text, bool numbered)
{
    std::string numberedText;
    if (numbered && AppState.LineNumbering != FlagOff) {
        numberedText.reserve(text.size() + 16);
        numberedText.append("N").append(std::to_string(AppState.LineNumber)).append(" ").append(text);
        text = numberedText;
        const std::int64_t next = std::int64_t{AppState.LineNumber} + AppState.LineNumberStep;
        if (next >= std::numeric_limits<std::int32_t>::min() &&
            next <= std::numeric_limits<std::int32_t>::max()) {
            AppState.LineNumber = static_cast<std::int32_t>(next);
        } else if (AppState.SimWalking == FlagOff) { // simulations count on without a load, run for run
            throw RunTimeFault("Line numbers pass 32 bits; choose another LINENUMBER_START and _STEP");
        }
    }
    if (file == FileCollection) {
        AppState.CollectionBuffer.emplace_back(text);
    } else if (file >= FileProgram) {
        WriteTextLine(ProgramFile, text);
        ++AppState.ProgramLines;
    }
}

void WriteBlock(std::int16_t file, std::string_view section, std::string_view vector,
                const BlockCounters& counters, Flag /*isInternal*/)
{
    KeyName name;
    std::string line;
    BlockCounters withoutLimits = counters;
    withoutLimits.XMin = withoutLimits.YMin = withoutLimits.XMax = withoutLimits.YMax = 0.0;
    for (int n = 1;; ++n) {
        const std::string_view key = name.Form("LINE", n);
        bool numbered = false;
        if (!ReadBlockLine(section, key, line, numbered)) {
            break;
        }
        const Flag written = ExpandLine(file, line, vector, withoutLimits, FlagOn, {section, key});
        if (written != FlagOff && line != DontPrint) {
            WriteLine(file, line, numbered);
        }
    }
    for (int n = 1;; ++n) {
        const std::string_view key = name.Form("COLLECTION", n);
        bool numbered = false;
        if (!ReadBlockLine(section, key, line, numbered)) {
            break;
        }
        if (ExpandLine(FileCollection, line, vector, counters, FlagOn, {section, key}) != FlagOff) {
            WriteLine(FileCollection, line, numbered);
        }
    }
}
