// Stage 3 of a program run: one writer for each block that a template describes.
#include "post/Korvanta_PostProcessor.h"
#include "post/Simulation.h"

#include "config/Korvanta_Configuration.h"
#include "config/Korvanta_Utility.h"

namespace
{
std::int32_t Counter(const VectorFields& fields, std::size_t field, const char* what)
{
    return RoundToInt32(TextToNumber(fields[field]), what);
}

/// In a simulation the head goes to fields 2 and 3 of a vector, not cutting.
void StepHead(std::int16_t file, std::string_view vector)
{
    if (file == FileNone) {
        VectorFields fields;
        std::int16_t count = 0;
        SplitVector(vector, ',', fields, count);
        StepTo(HeadMode::Rapid, TextToNumber(fields[2]), TextToNumber(fields[3]));
    }
}

void WritePlainBlock(std::int16_t file, std::string_view section, std::string_view vector)
{
    WriteBlock(file, section, vector, BlockCounters(), FlagOn);
}

/// The vectors of cuts differ in where the three counters begin.
BlockCounters CutCounters(std::string_view vector, std::size_t firstField)
{
    VectorFields fields;
    std::int16_t count = 0;
    SplitVector(vector, ',', fields, count);
    BlockCounters counters;
    counters.ProfileNr = Counter(fields, firstField, "profile number of a cut");
    counters.TraceNr = Counter(fields, firstField + 1, "trace number of a cut");
    counters.PartNr = Counter(fields, firstField + 2, "part number of a cut");
    return counters;
}

BlockCounters PartCounters(std::string_view vector)
{
    VectorFields fields;
    std::int16_t count = 0;
    SplitVector(vector, ',', fields, count);
    BlockCounters counters;
    counters.PartNr = Counter(fields, 2, "part number");
    counters.XMin = TextToNumber(fields[3]);
    counters.YMin = TextToNumber(fields[4]);
    counters.XMax = TextToNumber(fields[5]);
    counters.YMax = TextToNumber(fields[6]);
    return counters;
}
} // namespace

void WriteProgramBegin(std::int16_t file)
{
    if (file == FileNone) {
        AppState.CollectionBuffer.clear(); // no load empties it in a simulation
        BeginHead();
        return;
    }
    LoadPostProcessorValues();
    LoadLineNumbering();
    WritePlainBlock(file, "PartProgram_BEGIN", "");
    AppState.KerfState = KerfOff;
}

void WriteProgramEnd(std::int16_t file, std::string_view vector)
{
    WritePlainBlock(file, "PartProgram_END", vector);
    if (file == FileNone) {
        EndHead();
    } else if (AppState.SimSpeed > 0) { // without a simulation so far the stored speed stands
        WriteConfig("SETUP", "SIMSPEED", std::to_string(AppState.SimSpeed));
    }
}

void WriteMainBegin(std::int16_t file, std::string_view vector)
{
    WritePlainBlock(file, "MainProgram_BEGIN", vector);
}

void WriteMainEnd(std::int16_t file, std::string_view vector)
{
    WritePlainBlock(file, "MainProgram_END", vector);
}

void WritePartHead(std::int16_t file, std::string_view vector)
{
    BlockCounters counters;
    counters.PartNr = PartCounters(vector).PartNr;
    WriteBlock(file, "PartProgram_PartHead", vector, counters, FlagOn);
}

void WritePartEnd(std::int16_t file, std::string_view vector)
{
    WriteBlock(file, "PartProgram_PartEnd", vector, PartCounters(vector), FlagOn);
}

void WriteStartCut(std::int16_t file, std::string_view vector)
{
    WriteBlock(file, "PartProgram_StartCUT", vector, CutCounters(vector, 5), FlagOn);
    StepHead(file, vector);
    constexpr TemplatePlace place{"PartProgram_FirstMOVE", "END_LINE"};
    AppState.PendingFirstMove = ReadPprValue(place.Section, place.Key, "");
    ExpandLine(FileNone, AppState.PendingFirstMove, "", BlockCounters(), FlagOn, place);
}

void WriteEndCut(std::int16_t file, std::string_view vector)
{
    WriteBlock(file, "PartProgram_EndCUT", vector, CutCounters(vector, 4), FlagOn);
    AppState.KerfState = KerfOff;
}

void WriteEndLeadIn(std::int16_t file)
{
    WritePlainBlock(file, "PartProgram_EndLeadIn", "");
}

void WriteEndProfileCut(std::int16_t file)
{
    WritePlainBlock(file, "PartProgram_EndProfileCut", "");
}

void WriteFlyOff(std::int16_t file)
{
    WritePlainBlock(file, "PartProgram_FLYOFF", "");
}

void WriteStartPoint(std::int16_t file, std::string_view vector)
{
    WritePlainBlock(file, "PartProgram_StartPOINT", vector);
}

void WritePoint(std::int16_t file, std::string_view vector)
{
    WritePlainBlock(file, "PartProgram_POINT", vector);
    StepHead(file, vector);
}

void WriteEndPoint(std::int16_t file, std::string_view vector)
{
    WritePlainBlock(file, "PartProgram_EndPOINT", vector);
}

void WriteCallHead(std::int16_t file, std::string_view vector)
{
    BlockCounters counters;
    counters.PartNr = PartCounters(vector).PartNr;
    WriteBlock(file, "SubProgram_CALLHEAD", vector, counters, FlagOn);
}

void WriteCall(std::int16_t file, std::string_view vector)
{
    VectorFields fields;
    std::int16_t count = 0;
    SplitVector(vector, ',', fields, count);
    BlockCounters counters;
    counters.PartNr = Counter(fields, 5, "part number of a call");
    counters.SubprogramNr = Counter(fields, 6, "sub-program number of a call");
    counters.ProfileNr = Counter(fields, 7, "profile number of a call");
    counters.TraceNr = Counter(fields, 8, "trace number of a call");
    WriteBlock(file, "SubProgram_CALL", vector, counters, FlagOn);
}

void WriteSubBegin(std::int16_t file, std::string_view vector)
{
    VectorFields fields;
    std::int16_t count = 0;
    SplitVector(vector, ',', fields, count);
    BlockCounters counters;
    counters.SubprogramNr = Counter(fields, 4, "sub-program number");
    WriteBlock(file, "SubProgram_BEGIN", vector, counters, FlagOn);
}

void WriteSubEnd(std::int16_t file, std::string_view vector)
{
    WritePlainBlock(file, "SubProgram_END", vector);
}
