#include "support/SoakChecks.h"

#include "config/PprValues.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "platform/Paths.h"
#include "platform/TextFile.h"
#include "post/Korvanta_PostProcessor.h"
#include "state/AppState.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <string_view>

namespace
{
bool AllFinite(std::initializer_list<double> numbers)
{
    return std::all_of(numbers.begin(), numbers.end(), [](double number) { return std::isfinite(number); });
}

bool Shown(Panel panel)
{
    return AppState.PanelVisible[static_cast<std::size_t>(panel)] != FlagOff;
}

// --- screens ------------------------------------------------------------------------------------------------

std::string BrokenScreen()
{
    const std::int16_t screen = AppState.ScreenState;
    if (screen < ScreenInput || screen > ScreenNesting) {
        return "ScreenState " + std::to_string(screen);
    }
    if (Shown(Panel::TabInput) == Shown(Panel::TabCam) || Shown(Panel::TabInput) != (screen == ScreenInput)) {
        return "tab strips of screen " + std::to_string(screen);
    }
    if (screen != ScreenInput) {
        const bool fits = Shown(Panel::PicParam) == (screen == ScreenParameters) &&
                          Shown(Panel::FrameValue) == (screen == ScreenParameters) &&
                          Shown(Panel::TecnoPic) == (screen == ScreenCutting) &&
                          Shown(Panel::FrameCutting) == (screen == ScreenCutting) &&
                          Shown(Panel::NestingPic) == (screen == ScreenNesting) &&
                          Shown(Panel::FrameNesting) == (screen == ScreenNesting);
        if (!fits) {
            return "panels of screen " + std::to_string(screen);
        }
        if (AppState.CamTab != screen - 1) {
            return "CamTab " + std::to_string(AppState.CamTab) + " on screen " + std::to_string(screen);
        }
        if (AppState.SaveMode != FlagOff) {
            return "SaveMode on screen " + std::to_string(screen);
        }
    }
    if (AppState.InputTab < 0 || AppState.InputTab >= InputTabCount ||
        AppState.FrontList != AppState.InputTab) {
        return "InputTab " + std::to_string(AppState.InputTab) + ", FrontList " +
               std::to_string(AppState.FrontList);
    }
    if (AppState.SaveMode != FlagOff && AppState.InputTab != TabPrograms) {
        return "SaveMode beside the list of the jobs";
    }
    return "";
}

// --- fields -------------------------------------------------------------------------------------------------

constexpr std::int32_t CuttingModes[CuttingFieldCount] = {2, 4, 1, 9, 5, 5, 5, 5, 5, 3};
constexpr std::int32_t NestingModes[NestingFieldCount] = {8, 8, 1, 1, 1, 6, 7, 3};

struct SetRow {
    std::int16_t Screen;
    std::size_t Fields;
    const std::int32_t* Modes; ///< null: 0
};

SetRow RowOf(FieldSet set)
{
    switch (set) {
    case FieldSet::Param:
        return {ScreenParameters, ParamFieldCount, nullptr};
    case FieldSet::Cutting:
        return {ScreenCutting, CuttingFieldCount, CuttingModes};
    case FieldSet::Nesting:
        return {ScreenNesting, NestingFieldCount, NestingModes};
    default:
        return {ScreenInput, 0, nullptr};
    }
}

std::string BrokenFocus()
{
    const FieldSet set = AppState.FocusedSet;
    const std::string where = "FocusedSet " + std::to_string(static_cast<int>(set)) + ", CurrentField " +
                              std::to_string(AppState.CurrentField) + ", FieldMode " +
                              std::to_string(AppState.FieldMode) + ", screen " +
                              std::to_string(AppState.ScreenState);
    if (AppState.CurrentField < 0 || AppState.CurrentField >= ParamFieldCount || AppState.FieldMode < 0 ||
        AppState.FieldMode > 9) {
        return where;
    }
    if (set == FieldSet::None) {
        return "";
    }
    const SetRow row = RowOf(set);
    if (AppState.ScreenState != row.Screen) {
        return where;
    }
    if (set == FieldSet::FileName) {
        return ""; // the number of the last value field may still stand there
    }
    const auto index = static_cast<std::size_t>(AppState.CurrentField);
    const bool fits =
        index < row.Fields && AppState.FieldMode == (row.Modes != nullptr ? row.Modes[index] : 0);
    return fits ? "" : where;
}

std::string BrokenEventState()
{
    if (AppState.ButtonPressed != FlagOff) {
        return "ButtonPressed outside of a click";
    }
    if (AppState.SimRunning != FlagOff) {
        return "SimRunning outside of a walk";
    }
    if (ProgramFile.Handle != nullptr) {
        return "the program's file is open outside of a walk";
    }
    return AppState.ConfigHeld != FlagOff ? "ConfigHeld" : "";
}

// --- lists and keys -----------------------------------------------------------------------------------------

std::string BrokenList()
{
    for (std::size_t tab = 0; tab < AppState.Lists.size(); ++tab) {
        const ListRecord& list = AppState.Lists[tab];
        const auto count = static_cast<std::int32_t>(list.Items.size());
        if (list.Selected < -1 || list.Selected >= count || (list.Selected < 0 && count > 0)) {
            return "list " + std::to_string(tab) + " of " + std::to_string(count) + " items has item " +
                   std::to_string(list.Selected) + " selected";
        }
    }
    return "";
}

std::string BrokenKeyBar()
{
    for (std::size_t i = 0; i < AppState.KeyBar.size(); ++i) {
        const ImageRef& key = AppState.KeyBar[i];
        const auto own =
            static_cast<ImageList>(static_cast<std::int16_t>(ImageList::InputState0) + AppState.ScreenState);
        const bool fits = key.List == ImageList::None ||
                          (key.List == own && key.Image >= 0 && key.Image <= 11) ||
                          (key.List == ImageList::Common && key.Image >= 0 && key.Image <= 29);
        if (!fits) {
            return "key " + std::to_string(i + 1) + " shows image " + std::to_string(key.Image) +
                   " of list " + std::to_string(static_cast<int>(key.List)) + " on screen " +
                   std::to_string(AppState.ScreenState);
        }
    }
    return "";
}

// --- tables -------------------------------------------------------------------------------------------------

bool FiniteElement(const ProfileElement& element)
{
    return AllFinite({element.GeoA, element.GeoB, element.GeoC, element.StartX, element.StartY, element.EndX,
                      element.EndY, element.Length});
}

bool FiniteProfile(const ProfileRecord& profile)
{
    return AllFinite({profile.LeadInLength, profile.LeadInAngle, profile.LeadInRadius, profile.LeadInSpare,
                      profile.LeadOutLength, profile.LeadOutAngle, profile.LeadOutRadius,
                      profile.LeadOutSpare, profile.ProfileLength, profile.LeadPosition, profile.Side,
                      profile.Spare1, profile.Spare2});
}

bool IsPrepared()
{
    return AppState.ScreenState == ScreenCutting || AppState.ScreenState == ScreenNesting ||
           AppState.SaveMode != FlagOff;
}

/// What a shape that was refused has left in the tables stands there until the next development, and nobody looks.
bool PartIsUsed()
{
    return IsPrepared() || (AppState.ScreenState == ScreenParameters && AppState.ShapeId == 0);
}

std::string BrokenTableSize()
{
    const std::int32_t elements = AppState.ElementCount;
    const std::int32_t profiles = AppState.ProfileCount;
    if (elements < 0 || elements > MaxElements ||
        AppState.ElementTable.size() <= static_cast<std::size_t>(elements)) {
        return "ElementCount " + std::to_string(elements) + " in a table of " +
               std::to_string(AppState.ElementTable.size());
    }
    if (profiles < 0 ||
        (PartIsUsed() && AppState.ProfileTable.size() <= static_cast<std::size_t>(profiles))) {
        return "ProfileCount " + std::to_string(profiles) + " in a table of " +
               std::to_string(AppState.ProfileTable.size());
    }
    const auto marks = static_cast<std::size_t>(AppState.MarkPointCount);
    if (AppState.MarkPointCount < 0 || AppState.MarkPoints.size() <= marks) {
        return "MarkPointCount " + std::to_string(AppState.MarkPointCount);
    }
    if (PartIsUsed() && (AppState.CurrentProfile < 0 || AppState.CurrentProfile > profiles)) {
        return "CurrentProfile " + std::to_string(AppState.CurrentProfile) + " of " +
               std::to_string(profiles);
    }
    if (IsPrepared() && AppState.ShadowElements.size() != AppState.ElementTable.size()) {
        return "a shadow of " + std::to_string(AppState.ShadowElements.size()) + " elements for " +
               std::to_string(AppState.ElementTable.size());
    }
    return "";
}

std::string BrokenProfileEnds()
{
    const std::vector<std::int32_t>& ends = AppState.ProfileEnds;
    if (ends.empty() || !PartIsUsed()) {
        return "";
    }
    if (ends.size() != static_cast<std::size_t>(AppState.ProfileCount) + 1 || ends.front() != 0 ||
        ends.back() != AppState.ElementCount) {
        return "ProfileEnds of " + std::to_string(ends.size()) + " for " +
               std::to_string(AppState.ProfileCount) + " profiles, up to " + std::to_string(ends.back()) +
               " of " + std::to_string(AppState.ElementCount);
    }
    for (std::size_t p = 1; p < ends.size(); ++p) {
        if (ends[p] <= ends[p - 1] ||
            !IsEndMark(AppState.ElementTable[static_cast<std::size_t>(ends[p])].Kind)) {
            return "the end of profile " + std::to_string(p);
        }
    }
    return "";
}

std::string BrokenTable()
{
    if (!PartIsUsed()) {
        return "";
    }
    for (std::size_t i = 1; i <= static_cast<std::size_t>(AppState.ElementCount); ++i) {
        if (!FiniteElement(AppState.ElementTable[i])) {
            return "element " + std::to_string(i) + " holds what is no number";
        }
    }
    for (std::size_t i = 1; i < AppState.ShadowElements.size(); ++i) {
        if (!FiniteElement(AppState.ShadowElements[i])) {
            return "shadow element " + std::to_string(i) + " holds what is no number";
        }
    }
    for (std::size_t i = 1; i <= static_cast<std::size_t>(AppState.ProfileCount); ++i) {
        const ProfileRecord& profile = AppState.ProfileTable[i];
        if (!FiniteProfile(profile)) {
            return "profile " + std::to_string(i) + " holds what is no number";
        }
        if (profile.LeadElement < 0 || profile.LeadElement > AppState.ElementCount) {
            return "lead element " + std::to_string(profile.LeadElement) + " of profile " + std::to_string(i);
        }
    }
    for (std::size_t i = 1; i <= static_cast<std::size_t>(AppState.MarkPointCount); ++i) {
        if (!AllFinite({AppState.MarkPoints[i].X, AppState.MarkPoints[i].Y})) {
            return "mark point " + std::to_string(i);
        }
    }
    return "";
}

std::string BrokenNumber()
{
    if (!PartIsUsed()) {
        return "";
    }
    const bool part = AllFinite({AppState.TotalCutLength, AppState.MinX, AppState.MaxX, AppState.MinY,
                                 AppState.MaxY, AppState.MoveStep, AppState.PathCursorDistance,
                                 AppState.PathOriginX, AppState.PathOriginY});
    const bool view = AllFinite({AppState.UnitsPerPixelX, AppState.UnitsPerPixelY, AppState.ViewLeft,
                                 AppState.ViewTop, AppState.ViewWidth, AppState.ViewHeight,
                                 AppState.ViewCentreX, AppState.ViewCentreY, AppState.SavedCentreX,
                                 AppState.SavedCentreY, AppState.ZoomFrame, AppState.PenX, AppState.PenY});
    const bool nest = AllFinite({AppState.PartSizeX, AppState.PartSizeY, AppState.GapX, AppState.GapY});
    const bool post = AllFinite({AppState.ProgramMinX, AppState.ProgramMinY, AppState.ProgramMaxX,
                                 AppState.ProgramMaxY, AppState.MeasureStartX, AppState.MeasureLastX});
    if (!part || !view || !nest || !post) {
        return std::string(part ? "" : "part ") + (view ? "" : "view ") + (nest ? "" : "nest ") +
               (post ? "" : "program ") + "numbers";
    }
    return AppState.CountX < 1 || AppState.CountY < 1 ? "counts below 1" : "";
}

// --- files --------------------------------------------------------------------------------------------------

/// What the last line of a program ends with.
std::string LastTemplateLine()
{
    std::string last;
    for (int line = 1;; ++line) {
        const std::string text = ReadPprValue("PartProgram_END", "LINE" + std::to_string(line), "");
        if (text.empty()) {
            return last.starts_with('_') ? last.substr(1) : last;
        }
        last = text;
    }
}

std::string BrokenProgram(const std::string& path)
{
    std::string text;
    if (!ReadWholeFile(path, text)) {
        return "program " + path + " can't be read";
    }
    const std::string end = LastTemplateLine() + "\r\n";
    return text.ends_with(end) ? "" : "program " + path + " doesn't end with " + end;
}
} // namespace

std::string BrokenRule()
{
    for (std::string (*check)() : {BrokenScreen, BrokenFocus, BrokenEventState, BrokenList, BrokenKeyBar,
                                   BrokenTableSize, BrokenProfileEnds, BrokenTable, BrokenNumber}) {
        std::string broken = check();
        if (!broken.empty()) {
            return broken;
        }
    }
    return "";
}

std::string BrokenFile(bool afterFault)
{
    for (const std::string& folder :
         {AppState.NcPath, AppState.NestingPath, AppState.NestingPath + "DATA\\"}) {
        for (const std::string& name : ListFiles(folder)) {
            if (name.ends_with(".part") && !afterFault) {
                return "unfinished " + folder + name;
            }
        }
    }
    const std::string extension = "." + ReadPprValue("PartProgram_CONFIG", "FILE_EXTENSION", "");
    for (const std::string& name : ListFiles(AppState.NcPath)) {
        const std::string broken = name.ends_with(extension) ? BrokenProgram(AppState.NcPath + name) : "";
        if (!broken.empty()) {
            return broken;
        }
    }
    return "";
}

bool IsToldFault(const std::string& text)
{
    return text.find("nest: the gap in") != std::string::npos ||
           text.find("the part has more than") != std::string::npos;
}

bool WalkIsLong()
{
    constexpr double MostElements = 30000.0;
    double x = 0.0;
    double y = 0.0;
    ProgramOrigin(x, y);
    const double copies = std::max(static_cast<double>(CountCopies(x, y)),
                                   AppState.NestKind == 0 ? 1.0 : static_cast<double>(AppState.CountY));
    return copies * std::max(1, AppState.ElementCount) > MostElements;
}
