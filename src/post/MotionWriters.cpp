// Stage 3 of a program run, the moves: lines that are composed of the words of the table, without a template.
#include "post/Korvanta_PostProcessor.h"

#include "config/Korvanta_Utility.h"
#include "post/Simulation.h"

#include <cmath>

namespace
{
constexpr std::size_t UsualLine = 128; ///< room for a move without growing

/// Trim without a copy.
std::string_view TrimView(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

void AppendWord(std::string& line, const std::string& address, std::string_view value)
{
    line.append(AppState.Separator).append(address).append(TrimView(value));
}

/// The coordinate once more for a second axis, where the table names one.
void AppendMirrorWord(std::string& line, const std::string& address, std::string_view value)
{
    if (!address.empty()) {
        AppendWord(line, address, value);
    }
}

/// The compensation word of the first move of a cut. It keeps one blank whatever the separator is.
void AppendKerfWord(std::string& line, std::string_view sideField)
{
    if (AppState.KerfState != KerfOff || AppState.NoKerfCodes != FlagOff) {
        return;
    }
    if (AppState.FirstMoveKerfOn == 0) {
        AppState.KerfState = KerfSilent;
        return;
    }
    const double side = TextToNumber(sideField);
    if (side == 1.0) {
        line.append(" ").append(AppState.KerfLeftWord);
        AppState.KerfState = KerfLeft;
    } else if (side == -1.0) {
        line.append(" ").append(AppState.KerfRightWord);
        AppState.KerfState = KerfRight;
    }
}
} // namespace

void WriteLinear(std::int16_t file, std::string_view vector)
{
    constexpr std::string_view section = "PartProgram_LinearMOVE";
    VectorFields fields;
    std::int16_t count = 0;
    SplitVector(vector, ',', fields, count);

    std::string line;
    line.reserve(UsualLine);
    line += FindPprValue(section, "INIT_LINE", "");
    line += AppState.LinearCode;
    AppendKerfWord(line, fields[6]);
    AppendWord(line, AppState.AxisX, fields[4]);
    AppendWord(line, AppState.AxisY, fields[5]);
    AppendMirrorWord(line, AppState.MirrorX, fields[4]);
    AppendMirrorWord(line, AppState.MirrorY, fields[5]);
    line.append(" ").append(AppState.PendingFirstMove);
    line += FindPprValue(section, "END_LINE", "");
    WriteLine(file, line, true);
    if (file == FileNone) {
        StepTo(HeadMode::Cut, TextToNumber(fields[4]), TextToNumber(fields[5]));
    }
    AppState.PendingFirstMove.clear();
}

void WriteCircular(std::int16_t file, std::string_view vector)
{
    constexpr std::string_view section = "PartProgram_CircularMOVE";
    VectorFields fields;
    std::int16_t count = 0;
    SplitVector(vector, ',', fields, count);
    const double radius = TextToNumber(fields[8]);

    std::string line;
    line.reserve(UsualLine);
    line += FindPprValue(section, "INIT_LINE", "");
    line += radius > 0.0 ? AppState.CounterClockwiseCode : AppState.ClockwiseCode;
    // Field 6 is the centre here and not the side: the word thus waits for the next linear move, and a centre of
    // exactly 1 or -1 writes it. Controls are set up for that; keep it.
    AppendKerfWord(line, fields[6]);
    AppendWord(line, AppState.AxisX, fields[4]);
    AppendWord(line, AppState.AxisY, fields[5]);
    AppendWord(line, AppState.AxisI, fields[6]);
    AppendWord(line, AppState.AxisJ, fields[7]);
    if (AppState.RadiusWord != "NULL") {
        line.append(AppState.Separator).append(AppState.RadiusWord);
        AppendNumber(line, std::fabs(radius), 1, -3);
    }
    AppendMirrorWord(line, AppState.MirrorX, fields[4]);
    AppendMirrorWord(line, AppState.MirrorY, fields[5]);
    AppendMirrorWord(line, AppState.MirrorI, fields[6]);
    AppendMirrorWord(line, AppState.MirrorJ, fields[7]);
    line += FindPprValue(section, "END_LINE", "");
    WriteLine(file, line, true);
    if (file == FileNone) {
        ArcTo(TextToNumber(fields[2]), TextToNumber(fields[3]), TextToNumber(fields[4]),
              TextToNumber(fields[5]), TextToNumber(fields[6]), TextToNumber(fields[7]), radius);
    }
}
