#include "shell/InputScreen.h"

#include "config/Korvanta_Utility.h"
#include "jobfiles/JobFiles.h"
#include "platform/Paths.h"
#include "platform/SafeFile.h"
#include "platform/Screen.h"
#include "platform/Surface.h"
#include "post/Korvanta_PostProcessor.h"
#include "shapes/Korvanta_Parameters.h"
#include "shell/Exit.h"
#include "shell/InputLists.h"
#include "shell/KeyBar.h"
#include "shell/Korvanta_Interface.h"
#include "shell/Korvanta_VELInterface.h"
#include "shell/MsgBox_Unicode.h"
#include "shell/ValueFields.h"

#include <algorithm>
#include <string_view>

namespace
{
constexpr int MessageJobExists = 3;
constexpr int MessageOverwrite = 4;
constexpr int MessageDelete = 37;

std::string JobPath(const std::string& baseName)
{
    return AppState.NestingPath + baseName + ".nst";
}

/// The longest name of a file.
constexpr std::size_t LongestFileName = 255;

/// The name under which a program is shown and not written.

/// A name that no file can have isn't worth a fault: the operator is asked again, and the nest is still there. The same
/// for the name that would run the simulation and write nothing.
bool CanNameFiles(const std::string& baseName)
{
    return !Trim(baseName).empty() && baseName != SimulationName &&
           std::max(ProgramFileName(baseName).size(), JobFileName(baseName).size()) +
                   std::string_view(UnfinishedEnd).size() <=
               LongestFileName;
}

bool ConfirmOverwrite(const std::string& name)
{
    bool confirmed = false;
    ShowBox(name, MessageText(MessageJobExists), MessageText(MessageOverwrite), true, confirmed);
    return confirmed;
}

void EndSaveMode()
{
    AppState.SaveMode = FlagOff;
    AppState.PreviewNest = FlagOff;
}
} // namespace

void OpenJob()
{
    const bool isJob = AppState.InputTab == TabPrograms;
    const ListItem* item = SelectedItem(AppState.InputTab);
    if (item == nullptr && !isJob) {
        return;
    }
    const std::string name = isJob ? AppState.TextFileName.Text : item->Text;
    if (isJob && !FileExists(AppState.NestingPath + JobFileName(name))) {
        FillJobList(name); // it went since the list was filled
        return;
    }
    ShowPanel(Panel::TabInput, false);
    ShowPanel(Panel::TabCam, true);
    AppState.CamTab = TabParameters;
    SurfaceClear(Picture::Param);
    switch (AppState.InputTab) {
    case TabPrograms:
        OpenSavedJob(name);
        break;
    case TabDxfIn:
        OpenImport(ImportKind::Drawing, name);
        break;
    case TabIsoIn:
        OpenImport(ImportKind::Program, name);
        break;
    default:
        OpenShape(ShapeIdOfName(name));
        break;
    }
}

void EnterSaveMode()
{
    AppState.ScreenState = ScreenInput;
    ShowPanel(Panel::TabCam, false);
    ShowPanel(Panel::TabInput, true);
    if (AppState.InputTab != TabPrograms) {
        SelectInputTab(TabPrograms);
    }
    ShowCurrentList();
    RefreshKeyBar();
    AppState.SaveMode = FlagOn;
    Yield();
    if (AppState.SaveMode == FlagOff) {
        return; // a key has gone back to the nest meanwhile
    }
    SetText(AppState.TextFileName, UpperCase(BaseName(AppState.JobName, ".")));
    FocusField(AppState.TextFileName);
}

void LeaveSaveMode()
{
    EndSaveMode();
    FocusField(AppState.TextFileName);
    AppState.ScreenState = ScreenCutting;
    EnterCamTab(AppState.CamTab);
}

void SaveCurrentJob()
{
    AppState.JobName = UpperCase(AppState.TextFileName.Text);
    const std::string baseName = BaseName(AppState.JobName, ".");
    if (!CanNameFiles(baseName)) {
        FocusField(AppState.TextFileName);
        return;
    }
    if (FileExists(JobPath(baseName)) && !ConfirmOverwrite(AppState.JobName)) {
        Yield();
        if (AppState.SaveMode != FlagOff) { // no key has gone back to the nest meanwhile
            FocusField(AppState.TextFileName);
        }
        return;
    }
    SaveJob(baseName);
    if (AppState.ExitAfterSave != FlagOff) {
        if (AppState.HostMode == Hosted) {
            HostOpenProgram(ProgramFileName(baseName));
        }
        WriteExitLog(false);
        EndProcess(0);
    }
    EndSaveMode();
    RefreshKeyBar();
    ClearNestResults();
    SetText(AppState.TextFileName, "");
    FocusList(TabPrograms);
}

void HandOverJob(const std::string& name)
{
    HostOpenProgram(ProgramFileName(name));
    if (AppState.ExitAfterSave != FlagOff) {
        EndProcess(0);
    }
}

void DeleteJob(const std::string& name)
{
    const std::string baseName = BaseName(name, ".");
    if (!FileExists(JobPath(baseName))) {
        return;
    }
    bool confirmed = false;
    ShowBox("", MessageText(MessageDelete), name, true, confirmed);
    if (!confirmed) {
        return;
    }
    if (DeleteFileIfThere(JobPath(baseName))) { // a job that stays keeps what belongs to it
        const std::string companion = AppState.NestingPath + "DATA\\" + baseName;
        for (const std::string& path :
             {companion + ".bmp", companion + ".drw", AppState.NcPath + ProgramFileName(baseName)}) {
            static_cast<void>(DeleteFileIfThere(path));
        }
    }
    FillJobList(AppState.TextFileName.Text);
}

void FocusInputControl()
{
    if (AppState.SaveMode != FlagOff) {
        FocusField(AppState.TextFileName);
    } else {
        FocusList(AppState.InputTab);
    }
}
