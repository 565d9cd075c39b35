// The .drw: elements and profiles in records of fixed size, numbered from 1. Record 1 alone tells the counts.
#include "config/JobKeys.h"
#include "config/Korvanta_Utility.h"
#include "jobfiles/DrawingRecord.h"
#include "jobfiles/JobFiles.h"
#include "jobfiles/JobNames.h"
#include "platform/Fault.h"
#include "platform/Paths.h"
#include "platform/SafeFile.h"
#include "platform/Screen.h"
#include "platform/TextFile.h"
#include "shell/MsgBox_Unicode.h"
#include "state/AppState.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr int MessageFailure = 34;
constexpr const char* OldFormatText = "Old file format!";
constexpr int StatusOldFormat = 1;
constexpr double LargestNumber = 1e30; ///< beyond it a coordinate is none
constexpr std::size_t MostRecords = static_cast<std::size_t>(MaxElements) + 1;
constexpr std::size_t LargestDrawing =
    MostRecords * DrawingRecordSize * 2; // what is longer is nothing of ours

std::string DrawingPath(const std::string& file)
{
    return DataFolder() + AheadOfExtension(file) + ".drw";
}

std::string_view RecordOf(const std::string& bytes, std::int32_t number)
{
    return std::string_view(bytes).substr(static_cast<std::size_t>(number - 1) * DrawingRecordSize,
                                          DrawingRecordSize);
}

/// Where record `number` begins; the file grows by cleared records to hold it.
char* MadeRecord(std::string& bytes, std::int32_t number)
{
    const std::size_t end = static_cast<std::size_t>(number) * DrawingRecordSize;
    if (bytes.size() < end) {
        bytes.resize(end, '\0');
    }
    return bytes.data() + end - DrawingRecordSize;
}

/// The counts as record 1 tells them.
std::int32_t ProfilesIn(const std::string& bytes)
{
    return UnpackProfile(RecordOf(bytes, 1)).LeadElement;
}

std::int32_t ElementsIn(const std::string& bytes)
{
    return UnpackCount(RecordOf(bytes, 1), ElementCountAt);
}

bool AreUsable(std::initializer_list<double> numbers)
{
    return std::all_of(numbers.begin(), numbers.end(), [](double number) {
        return std::fabs(number) < LargestNumber; // false for what is no number
    });
}

bool IsUsable(const ProfileElement& e)
{
    const bool exists = e.Kind == KindLine || e.Kind == KindArc || IsEndMark(e.Kind);
    return exists && AreUsable({e.GeoA, e.GeoB, e.GeoC, e.StartX, e.StartY, e.EndX, e.EndY, e.Length});
}

bool IsUsable(const ProfileRecord& r)
{
    return AreUsable({r.LeadInLength, r.LeadInAngle, r.LeadInRadius, r.LeadInSpare, r.LeadOutLength,
                      r.LeadOutAngle, r.LeadOutRadius, r.LeadOutSpare, r.ProfileLength, r.LeadPosition,
                      r.Side, r.Spare1, r.Spare2});
}

/// True when every record that the counts promise is there and makes sense.
bool IsUsable(const std::string& bytes)
{
    if (bytes.size() < DrawingRecordSize) {
        return false;
    }
    const std::int32_t profiles = ProfilesIn(bytes);
    const std::int32_t elements = ElementsIn(bytes);
    const auto whole = static_cast<std::int64_t>(bytes.size() / DrawingRecordSize);
    if (profiles < 0 || elements < 0 || elements > MaxElements || std::max(profiles + 1, elements) > whole) {
        return false;
    }
    for (std::int32_t k = 1; k <= elements; ++k) {
        if (!IsUsable(UnpackElement(RecordOf(bytes, k)))) {
            return false;
        }
    }
    for (std::int32_t j = 1; j <= profiles; ++j) {
        if (!IsUsable(UnpackProfile(RecordOf(bytes, j + 1)))) {
            return false;
        }
    }
    return true;
}

bool ReadDrawing(const std::string& file, std::string& bytes)
{
    return ReadWholeFile(DrawingPath(file), bytes, LargestDrawing) && IsUsable(bytes);
}

/// A job of another format can't be worked on: the operator starts the program again.
void RefuseOldFormat(const std::string& file)
{
    if (ReadJobKey(file, "0000", "VL", "") == FormatVersion) {
        return;
    }
    bool closed = false;
    ShowBox(MessageText(MessageFailure), OldFormatText, "", false, closed);
    EndProcess(StatusOldFormat);
}
} // namespace

void WriteDrawingElements(const std::string& file)
{
    MadeDataFolder();
    const std::string path = DrawingPath(file);
    std::string bytes;
    static_cast<void>(ReadWholeFile(path, bytes, LargestDrawing)); // without an old file it starts empty
    for (std::int32_t k = 1; k <= std::max(AppState.ElementCount, std::int32_t{1}); ++k) {
        char* record = MadeRecord(bytes, k);
        std::fill_n(record, DrawingRecordSize, '\0');
        PackCount(record, ElementCountAt, AppState.ElementCount);
        if (k <= AppState.ElementCount) {
            PackElement(record, AppState.ShadowElements.at(static_cast<std::size_t>(k)));
        }
    }
    WriteSecondName(path, bytes);
}

void WriteDrawingProfiles(const std::string& file)
{
    const std::string path = DrawingPath(file);
    std::string bytes;
    if (!ReadSecondName(path, bytes, LargestDrawing)) { // the elements mustn't be lost silently
        throw RunTimeFault("Cannot read " + NativeNewPath(path) + UnfinishedEnd);
    }
    const auto highest = static_cast<std::int16_t>(AppState.ProfileTable.size() - 1);
    AppState.ProfileTable[0].LeadElement = highest;
    for (std::int32_t j = 0; j <= highest; ++j) {
        char* record = MadeRecord(bytes, j + 1);
        PackCount(record, ProfileCountAt, highest);
        PackProfile(record, AppState.ProfileTable[static_cast<std::size_t>(j)]);
    }
    WriteSecondName(path, bytes);
    PutInPlace(path);
}

void ReadDrawingProfiles(const std::string& file)
{
    std::string bytes;
    if (!ReadDrawing(file, bytes)) {
        return;
    }
    AppState.ProfileTable.assign(1, ProfileRecord());
    const std::int32_t count = ProfilesIn(bytes);
    AppState.ProfileTable.resize(static_cast<std::size_t>(count) + 1);
    RefuseOldFormat(file);
    for (std::int32_t j = 1; j <= count; ++j) {
        AppState.ProfileTable[static_cast<std::size_t>(j)] = UnpackProfile(RecordOf(bytes, j + 1));
    }
    AppState.ProfileCount = count;
}

void ReadDrawingElements(const std::string& file)
{
    std::string bytes;
    if (!ReadDrawing(file, bytes)) {
        return;
    }
    const std::int32_t count = ElementsIn(bytes);
    AppState.ElementTable.assign(static_cast<std::size_t>(count) + 1, ProfileElement());
    AppState.ShadowElements.assign(static_cast<std::size_t>(count) + 1, ProfileElement());
    AppState.ElementCount = count;
    AppState.ProfileEnds.clear();
    AppState.MarkPoints.assign(1, MarkPoint());
    AppState.ShadowMarkPoints.assign(1, MarkPoint());
    AppState.MarkPointCount = 0;
    for (std::int32_t k = 1; k <= count; ++k) {
        AppState.ShadowElements[static_cast<std::size_t>(k)] = UnpackElement(RecordOf(bytes, k));
    }
}
