#include "CaseFile.h"

#include "platform/TextFile.h"
#include "profile/Korvanta_ProfileCut.h"
#include "support/RecordingScreen.h"

#include <map>
#include <sstream>
#include <stdexcept>

namespace
{
struct Case {
    std::int16_t Sense = 0;
    std::string Program = "JOB";
};

double Take(std::istringstream& words)
{
    double value = 0.0;
    if (!(words >> value)) {
        throw std::runtime_error("a number is missing: " + words.str());
    }
    return value;
}

/// The words "name=value" that are left.
std::map<std::string, std::string> TakePairs(std::istringstream& words)
{
    std::map<std::string, std::string> pairs;
    std::string word;
    while (words >> word) {
        const std::size_t equals = word.find('=');
        pairs[word.substr(0, equals)] = word.substr(equals + 1);
    }
    return pairs;
}

std::string Rest(std::istringstream& words)
{
    std::string rest;
    std::getline(words >> std::ws, rest);
    return rest;
}

void AddDrawn(const Case& part, std::int16_t kind, std::istringstream& words)
{
    const double x1 = Take(words);
    const double y1 = Take(words);
    const double x2 = Take(words);
    const double y2 = Take(words);
    GeoLine line{};
    std::int16_t err = 0;
    if (kind == KindArc) {
        line[1] = Take(words);
        line[2] = Take(words);
        line[3] = Take(words);
    } else {
        r_pp(line, {0.0, x1, y1, 0.0}, {0.0, x2, y2, 0.0}, err);
    }
    AddElement(kind, x1, y1, line[1], line[2], line[3], x2, y2, part.Sense);
}

void AddEnd(bool closed)
{
    std::int32_t first = AppState.ElementCount;
    while (!IsEndMark(AppState.ElementTable[static_cast<std::size_t>(first) - 1].Kind) && first > 1) {
        --first;
    }
    const ProfileElement& from = AppState.ElementTable[static_cast<std::size_t>(first)];
    const ProfileElement& to = AppState.ElementTable[static_cast<std::size_t>(AppState.ElementCount)];
    const double x = closed ? from.StartX : to.EndX;
    const double y = closed ? from.StartY : to.EndY;
    AddElement(KindEnd, x, y, 0.0, 0.0, 2.0, x, y, 0);
}

void SetFields(std::istringstream& words)
{
    const std::map<std::string, NestingField> fields = {{"sheetx", FieldSheetX},
                                                        {"sheety", FieldSheetY},
                                                        {"kerf", FieldKerf},
                                                        {"gapx", FieldGapX},
                                                        {"gapy", FieldGapY}};
    for (const auto& [name, value] : TakePairs(words)) {
        AppState.TextNesting[fields.at(name)].Text = value;
    }
}

void SetLead(std::istringstream& words)
{
    auto& record = AppState.ProfileTable.at(static_cast<std::size_t>(Take(words)));
    auto pairs = TakePairs(words);
    const auto split = [](const std::string& text, double& length, double& radius) {
        length = std::stod(text);
        radius = std::stod(text.substr(text.find(',') + 1));
    };
    split(pairs.at("in"), record.LeadInLength, record.LeadInRadius);
    split(pairs.at("out"), record.LeadOutLength, record.LeadOutRadius);
    record.LeadInLineOn = ToFlag(record.LeadInLength > 0.0);
    record.LeadInArcOn = ToFlag(record.LeadInRadius > 0.0);
    record.LeadOutLineOn = ToFlag(record.LeadOutLength > 0.0);
    record.LeadOutArcOn = ToFlag(record.LeadOutRadius > 0.0);
    record.LeadPosition = std::stod(pairs.at("at"));
    record.Side = std::stod(pairs.at("side"));
}

void SetLayout(std::istringstream& words)
{
    auto pairs = TakePairs(words);
    AppState.NestKind = static_cast<std::int16_t>(std::stoi(pairs.at("kind")));
    AppState.CountX = std::stoi(pairs.at("columns"));
    AppState.CountY = std::stoi(pairs.at("rows"));
    AppState.GapX = std::stod(pairs.at("gapx"));
    AppState.GapY = std::stod(pairs.at("gapy"));
    AppState.PartSizeX = AppState.MaxX - AppState.MinX;
    AppState.PartSizeY = AppState.MaxY - AppState.MinY;
}

void KeepAnswer(std::istringstream& words)
{
    const auto slot = static_cast<std::size_t>(Take(words));
    Screen.InputDialog = [slot, answer = Rest(words), before = Screen.InputDialog] {
        if (before) {
            before();
        }
        AppState.PprInput.at(slot).Value = answer;
    };
}

/// Lines that draw the part; false for the others.
bool ReadPartLine(Case& part, const std::string& verb, std::istringstream& words)
{
    if (verb == "sense") {
        part.Sense = static_cast<std::int16_t>(Take(words));
    } else if (verb == "line" || verb == "arc") {
        AddDrawn(part, verb == "arc" ? KindArc : KindLine, words);
    } else if (verb == "close" || verb == "open") {
        AddEnd(verb == "close");
    } else if (verb == "point") {
        const double x = Take(words);
        AppState.MarkPoints.push_back({x, Take(words)});
        ++AppState.MarkPointCount;
    } else {
        return false;
    }
    return true;
}

void ReadSettingLine(Case& part, const std::string& verb, std::istringstream& words)
{
    if (verb == "fields") {
        SetFields(words);
    } else if (verb == "origin") {
        AppState.PathOriginSet = FlagOn;
        AppState.PathOriginX = Take(words);
        AppState.PathOriginY = Take(words);
    } else if (verb == "nokerf") {
        AppState.NoKerfCodes = FlagOn;
    } else if (verb == "job") {
        AppState.JobName = Rest(words);
    } else if (verb == "program") {
        part.Program = Rest(words);
    } else if (verb == "answer") {
        KeepAnswer(words);
    } else if (verb == "lead") {
        SetLead(words);
    } else if (verb == "snap") {
        AppState.ProfileTable.at(static_cast<std::size_t>(Take(words))).CornerSnap = FlagOn;
    } else if (verb == "layout") {
        SetLayout(words);
    } else {
        throw std::runtime_error("unknown word " + verb);
    }
}

/// Areas, lengths, bounds and lead records, as behind the import of a part.
void MeasurePart()
{
    if (AppState.ElementCount > 0) {
        AppState.ElementTable[static_cast<std::size_t>(AppState.ElementCount)].Kind = KindOuterEnd;
    }
    std::int16_t largest = 0;
    ComputeProfileAreas(largest);
    MeasureProfiles(FlagOn);
    InitLeadData();
}
} // namespace

std::string LoadCase(std::string_view text)
{
    Case part;
    ClearPart();
    std::string settings; // for when the profiles are measured
    std::string_view line;
    while (NextLine(text, line)) {
        std::istringstream words{std::string(line)};
        std::string verb;
        if (words >> verb && verb.front() != '#' && !ReadPartLine(part, verb, words)) {
            settings.append(line).append("\n");
        }
    }
    MeasurePart();
    std::istringstream lines(settings);
    for (std::string setting; std::getline(lines, setting);) {
        std::istringstream words(setting);
        std::string verb;
        words >> verb;
        ReadSettingLine(part, verb, words);
    }
    return part.Program;
}
