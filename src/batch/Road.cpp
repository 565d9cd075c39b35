#include "batch/Road.h"

#include "batch/LeadCheck.h"
#include "batch/PreviewPainter.h"
#include "batch/SheetCheck.h"
#include "batch/SilentScreen.h"
#include "batch/StateJson.h"
#include "batch/SvgSurface.h"
#include "batch/TableCheck.h"
#include "config/Korvanta_Configuration.h"
#include "config/Korvanta_Utility.h"
#include "jobfiles/JobFiles.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "platform/Fault.h"
#include "platform/Paths.h"
#include "platform/TextFile.h"
#include "post/Korvanta_PostProcessor.h"
#include "post/Verification.h"
#include "shapes/Korvanta_Parameters.h"
#include "shell/InputScreen.h"
#include "shell/Korvanta_Interface.h"
#include "shell/ValueFields.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>
#include <unistd.h>

namespace
{
namespace fs = std::filesystem;

/// More open profiles or doubtful lines than these aren't listed one by one.
constexpr std::size_t OpenProfilesListed = 5;
constexpr std::size_t DoubtsListed = 5;
constexpr std::size_t LeadsListed = 10;

enum class SourceKind { Drawing, Program, Job };

/// Where the source lies, in the form that the imports take, and how it is read.
struct SourceFile {
    SourceKind Kind = SourceKind::Program;
    std::string Name;     ///< plain, or absolute
    std::string Path;     ///< the full path in either case
    bool IsPlain = false; ///< looked up in a folder of the station
};

/// Where plain names are looked up.
const std::string& FolderOfKind(SourceKind kind)
{
    return kind == SourceKind::Drawing ? AppState.DxfPath
           : kind == SourceKind::Job   ? AppState.NestingPath
                                       : AppState.NcPath;
}

SourceFile ResolveSource(const std::string& source)
{
    SourceFile file;
    const std::string extension = LowerCase(fs::path(source).extension().string());
    file.Kind = extension == ".dxf" || extension == ".dwg" ? SourceKind::Drawing
                : extension == ".nst"                      ? SourceKind::Job
                                                           : SourceKind::Program;
    const bool hasDrive = source.size() >= 2 && source[1] == ':';
    if (source.find('/') != std::string::npos) {
        file.Name = fs::absolute(source).lexically_normal().string();
    } else if (source.find('\\') != std::string::npos || hasDrive) {
        file.Name = fs::absolute(NativePath(source)).lexically_normal().string();
    } else {
        file.Name = source;
        file.IsPlain = true;
        file.Path = FolderOfKind(file.Kind) + source;
        return file;
    }
    file.Path = file.Name;
    return file;
}

/// One line why an import gave nothing.
std::string FailureReason(const SourceFile& source)
{
    const std::string native = NativePath(source.Path);
    if (FolderExists(source.Path)) {
        return native + " is a folder";
    }
    if (!FileExists(source.Path)) {
        std::error_code ignored;
        const bool isHere = source.IsPlain && fs::exists(source.Name, ignored);
        const bool maybeShape = !isHere && source.IsPlain && source.Name.find('.') == std::string::npos;
        return native + " doesn't exist" +
               (isHere ? "; for the file in this folder write ./" + source.Name : "") +
               (maybeShape ? "; the names of shapes are told by --list-shapes" : "");
    }
    return native + ": " +
           (source.Kind == SourceKind::Job
                ? "the geometry of the job, in DATA beside it, is missing or broken"
                : AppState.ImportFailure);
}

/// What the station's boxes said, ahead of the line that tells why.
void PrintBoxes()
{
    for (const std::string& box : SilentScreen.Boxes) {
        std::fprintf(stderr, "%s\n", box.c_str());
    }
}

/// A job on a path has its companions beside it, and so its folder is that of the jobs until one is saved.
bool OpenJobFile(const SourceFile& source)
{
    if (!FileExists(source.Path)) {
        return false;
    }
    AppState.NestingPath = FolderOf(source.Path);
    OpenSavedJob(BaseName(source.Path, ""));
    return AppState.ElementCount > 0 || AppState.ShapeId > 0;
}

bool OpenSource(const BatchOptions& options)
{
    if (options.ShapeId != 0) {
        OpenShape(options.ShapeId);
        for (const BatchParameter& parameter : options.Parameters) {
            SetText(AppState.ParamText[parameter.Field], parameter.Value);
        }
        return true;
    }
    const SourceFile source = ResolveSource(options.Source);
    const bool opened =
        source.Kind == SourceKind::Job
            ? OpenJobFile(source)
            : OpenImport(source.Kind == SourceKind::Drawing ? ImportKind::Drawing : ImportKind::Program,
                         source.Name);
    if (opened) {
        return true;
    }
    PrintBoxes();
    std::fprintf(stderr, "korvanta-batch: %s\n", FailureReason(source).c_str());
    return false;
}

/// A shape whose parameters give no part; which of them, no check tells.
int EndWithBadShape(const BatchOptions& options)
{
    PrintBoxes();
    std::fprintf(stderr, "korvanta-batch: %s can't be built with these parameters\n", options.Source.c_str());
    return StatusFailed;
}

/// F10 forward, F9 back. A screen that refuses to be entered ends the way.
void GoToScreen(std::int16_t screen)
{
    while (AppState.ScreenState != screen) {
        const std::int16_t before = AppState.ScreenState;
        if (before < screen) {
            NextCamTab();
        } else {
            PreviousCamTab();
        }
        if (AppState.ScreenState == before) {
            return;
        }
    }
}

/// One field as typed and left by Enter: focus, text, focus to the next field, then what Enter ends with.
void TypeField(const BatchStep& step)
{
    if (step.Screen == ScreenCutting) {
        CuttingFieldEntered(step.Field);
        SetText(AppState.TextCutting[static_cast<std::size_t>(step.Field)], step.Value);
        CuttingFieldLeft(step.Field);
        CuttingFieldEntered(NextField(step.Field, CuttingFieldCount));
        EndCuttingEntry(step.Field);
    } else {
        NestingFieldEntered(step.Field);
        SetText(AppState.TextNesting[static_cast<std::size_t>(step.Field)], step.Value);
        NestingFieldLeft(step.Field);
        NestingFieldEntered(NextField(step.Field, NestingFieldCount));
        EndNestingEntry(step.Field);
    }
}

void RunStep(const BatchStep& step)
{
    GoToScreen(step.Screen);
    if (step.Key != nullptr) {
        step.Key();
    } else {
        TypeField(step);
    }
}

/// Copies that a program of the nest holds.
std::int64_t CopiesOfNest()
{
    double originX = 0.0;
    double originY = 0.0;
    ProgramOrigin(originX, originY);
    return CountCopies(originX, originY);
}

void WarnOpenProfiles()
{
    std::size_t listed = 0;
    for (const OpenProfile& open : AppState.ImportOpen) {
        if (++listed > OpenProfilesListed) {
            std::fprintf(stderr, "warning: and %zu open profiles more\n",
                         AppState.ImportOpen.size() - OpenProfilesListed);
            return;
        }
        std::fprintf(stderr, "warning: profile %d is open by %s at %s, %s\n", open.Profile,
                     FormatNumber(open.Gap).c_str(), FormatNumber(open.X).c_str(),
                     FormatNumber(open.Y).c_str());
    }
}

/// What ISO-IN had to read by its rules, though hardly as it was meant.
void WarnDoubts()
{
    long long left = AppState.ImportDoubtCount;
    for (std::size_t i = 0; i < std::min(AppState.ImportDoubts.size(), DoubtsListed); ++i, --left) {
        const ImportDoubt& doubt = AppState.ImportDoubts[i];
        const long long line = doubt.Line;
        std::fprintf(stderr, "warning: line %lld: %s\n", line, doubt.What.c_str());
    }
    if (left > 0) {
        std::fprintf(stderr, "warning: and %lld lines more\n", left);
    }
}

void WarnLeads()
{
    const std::vector<std::int32_t> profiles = LeadsInMaterial();
    if (profiles.empty()) {
        return;
    }
    std::string list;
    for (std::size_t i = 0; i < std::min(profiles.size(), LeadsListed); ++i) {
        list += (i > 0 ? ", " : "") + std::to_string(profiles[i]);
    }
    std::fprintf(stderr,
                 "warning: the lead-in of profile%s %s%s starts in the part: shorten or move it, or take a "
                 "smaller Move Step\n",
                 profiles.size() > 1 ? "s" : "", list.c_str(), profiles.size() > LeadsListed ? ", ..." : "");
}

void WarnInputs()
{
    for (std::size_t slot = 1; slot <= PprInputSlots; ++slot) {
        const std::optional<std::string>& answer = SilentScreen.Inputs[slot];
        const PprInputValue& input = AppState.PprInput[slot];
        if (!answer.has_value()) {
            continue;
        }
        if (input.Kind == 'N' ||
            AppState.PprInput[1].Kind == 'N') { // without the first there are no questions
            std::fprintf(stderr, "warning: the post-processor table doesn't ask for value %zu\n", slot);
        } else if (input.Kind == 'T' && UpperCase(*answer) != UpperCase(input.Value)) {
            std::fprintf(stderr, "warning: value %zu is %s: \"%s\" is none of its options\n", slot,
                         input.Value.c_str(), answer->c_str());
        }
    }
}

/// What was given for a program, when none is to be written.
void WarnIdleOptions(const BatchOptions& options)
{
    if (!options.Out.empty()) {
        std::fputs("warning: --out has no effect without --program or --save\n", stderr);
    }
    for (const std::optional<std::string>& answer : options.Inputs) {
        if (answer.has_value()) {
            std::fputs("warning: --input has no effect without --program or --save\n", stderr);
            return;
        }
    }
}

/// What the operator would see at a glance on the screen.
void WarnPart(std::int64_t copies)
{
    WarnDoubts();
    WarnOpenProfiles();
    if (AppState.ImportCutOff != FlagOff) {
        std::fputs("warning: the drawing has no EOF at its end: a part of it may be missing\n", stderr);
    }
    if (AppState.ProfileCount == 0 && AppState.MarkPointCount == 0) {
        std::fputs("warning: the drawing holds nothing to cut\n", stderr);
    }
    if (copies == 0) {
        std::fputs("warning: the sheet is too small for this nest: it holds no copy of the part\n", stderr);
    }
    for (const std::string& overrun : EdgesOverrun()) {
        std::fprintf(stderr, "warning: %s\n", overrun.c_str());
    }
}

bool WritesProgram(const BatchOptions& options)
{
    return !options.Program.empty() || !options.Save.empty();
}

/// Results go to standard output, unless the JSON is there: then it stands alone.
void PrintResults(const BatchOptions& options, std::int64_t copies, const std::string& verified)
{
    std::FILE* to = options.Json == "-" ? stderr : stdout;
    std::fprintf(to, "Copies: %lld\n", static_cast<long long>(copies));
    std::fprintf(to, "Pierces: %lld\n", static_cast<long long>(copies) * AppState.ProfileCount);
    std::fprintf(to, "Cutting length: %s\n",
                 FormatNumber(static_cast<double>(copies) * AppState.TotalCutLength).c_str());
    if (WritesProgram(options)) {
        std::fprintf(to, "Program: %s\n", NativePath(AppState.ProgramPath).c_str());
    }
    std::fputs(verified.c_str(), to);
}

/// A plain file appears only when it is complete; devices and pipes are written as they stand.
void WriteJson(const BatchOptions& options, const std::string& text)
{
    if (options.Json == "-") {
        std::fwrite(text.data(), 1, text.size(), stdout);
        return;
    }
    std::error_code ignored;
    const fs::file_status status = fs::status(options.Json, ignored);
    if (!fs::exists(status) || fs::is_regular_file(status)) {
        WriteWholeText(options.Json, text);
        return;
    }
    std::ofstream file(options.Json, std::ios::binary);
    file << text << std::flush;
    if (!file) {
        throw RunTimeFault("can't write " + options.Json);
    }
}

/// The job of that name by the routines of the station, which then stands on the Nesting screen again.
void SaveAsJob(const std::string& name)
{
    EnterSaveMode();
    AppState.JobName = UpperCase(name);
    std::string reason;
    if (!StartPainter(AppState.Window.PreviewWidth, AppState.Window.PreviewHeight, reason)) {
        std::fprintf(stderr, "warning: no preview of the job is painted: %s\n", reason.c_str());
    }
    SaveJob(BaseName(AppState.JobName, "."));
    StopPainter();
    LeaveSaveMode();
}

/// The differences that were found, and the program out of use.
void RejectProgram(const Verification& verification)
{
    const std::string path = NativePath(AppState.ProgramPath);
    for (const std::string& difference : verification.Differences) {
        std::fprintf(stderr, "%s\n", difference.c_str());
    }
    const std::int64_t more =
        verification.DifferenceCount - static_cast<std::int64_t>(verification.Differences.size());
    if (more > 0) {
        std::fprintf(stderr, "and %lld more\n", static_cast<long long>(more));
    }
    const bool withdrawn = WithdrawProgram();
    std::fprintf(stderr, "korvanta-batch: %s differs from the part%s\n", path.c_str(),
                 withdrawn ? "; it stands under that name + .part" : "");
}

/// Reads the program that was just written back; `verified` becomes the line that tells so. The exit status that it
/// asks for.
int VerifyWritten(const BatchOptions& options, std::string& verified)
{
    if (!options.Verify) {
        return StatusDone;
    }
    ClearProgress();
    const Verification verification = VerifyProgram();
    if (verification.Outcome == VerifyOutcome::Different) {
        RejectProgram(verification);
        return StatusFailed;
    }
    if (verification.Outcome == VerifyOutcome::Unreadable) {
        std::fprintf(stderr, "korvanta-batch: %s is written but not verified: %s\n",
                     NativePath(AppState.ProgramPath).c_str(), verification.Reason.c_str());
        return StatusUnverified;
    }
    verified = "Verified: " + std::to_string(verification.Cuts) + " cuts, " +
               std::to_string(verification.Moves) + " moves" +
               (verification.Sides ? "" : "; no compensation") + "\n";
    return StatusDone;
}

/// Program and job, as far as they are asked for. `nestingPath` is the station's own. The exit status; a program that
/// differs from the part ends the saving. `verified` tells of the verification.
int SaveResults(const BatchOptions& options, const std::string& nestingPath, std::string& verified)
{
    if (!options.Out.empty()) {
        AppState.NcPath = WithBackslash(options.Out);
    }
    ProgramFile.KeepSum = options.Verify;
    int status = StatusDone;
    if (!options.Program.empty()) {
        GenerateProgram(options.Program);
        status = VerifyWritten(options, verified);
    }
    if (!options.Save.empty() && status != StatusFailed) {
        AppState.NestingPath = nestingPath;
        SaveAsJob(options.Save);
        const int saved = VerifyWritten(options, verified);
        status = saved == StatusFailed ? saved : std::max(status, saved);
    }
    ClearProgress();
    WarnInputs();
    for (const std::string& warning : ProgramWarnings()) {
        std::fprintf(stderr, "warning: %s\n", warning.c_str());
    }
    return status;
}
} // namespace

int ListShapes(const BatchOptions& options)
{
    if (!options.Json.empty()) {
        WriteJson(options, ShapesJson());
        return StatusDone;
    }
    for (const ShapeRow& row : ShapeCatalogue()) {
        std::string line = row.Name;
        for (int i = 0; i < ParameterCount(row); ++i) {
            line +=
                std::string("  ") + row.Parameters[i].Letter + "=" + PlainNumber(row.Parameters[i].Default);
        }
        std::puts(line.c_str());
    }
    return StatusDone;
}

int DeleteSavedJob(const BatchOptions& options)
{
    HoldConfigWrites();
    StartStation(options.Station, options.Language);
    const std::string baseName = BaseName(options.Delete, ".");
    const std::string path = AppState.NestingPath + baseName + ".nst";
    const std::string native = NativePath(path);
    if (!FileExists(path)) {
        std::fprintf(stderr, "korvanta-batch: %s doesn't exist\n", native.c_str());
        return StatusFailed;
    }
    DeleteJob(baseName); // the box that asks is answered by OK
    if (FileExists(path)) {
        std::fprintf(stderr, "korvanta-batch: %s can't be deleted\n", native.c_str());
        return StatusFailed;
    }
    if (!options.Quiet) {
        std::printf("Deleted: %s\n", native.c_str());
    }
    return StatusDone;
}

int RunRoad(const BatchOptions& options)
{
    SilentScreen.Inputs = options.Inputs;
    SilentScreen.Progress = !options.Quiet && isatty(STDERR_FILENO) != 0;
    if (!options.Remember) {
        HoldConfigWrites();
    }
    StartStation(options.Station, options.Language);
    PlanPreview();
    const std::string nestingPath = AppState.NestingPath;
    if (!OpenSource(options)) {
        return StatusFailed;
    }
    GoToScreen(ScreenCutting);
    if (AppState.ScreenState != ScreenCutting) {
        return EndWithBadShape(options);
    }
    for (const BatchStep& step : options.Steps) {
        RunStep(step);
    }
    GoToScreen(ScreenNesting);
    int status = StatusDone;
    std::string verified;
    if (WritesProgram(options)) {
        status = SaveResults(options, nestingPath, verified);
        if (status == StatusFailed) {
            return status;
        }
    } else {
        WarnIdleOptions(options);
    }
    const std::int64_t copies = WritesProgram(options) ? AppState.ProgramCopies : CopiesOfNest();
    WarnPart(copies);
    WarnLeads();
    if (!options.Quiet) {
        PrintResults(options, copies, verified);
    }
    if (!options.Json.empty()) {
        WriteJson(options, StateJson(WritesProgram(options)));
    }
    if (!options.Svg.empty()) {
        WriteWholeText(options.Svg, PartSvg());
    }
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        throw RunTimeFault("can't write to standard output");
    }
    return status;
}
