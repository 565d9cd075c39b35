// The start of the station behind a window: one instance, language, sizes, lists, and the Input screen.
#include "config/Korvanta_Configuration.h"
#include "config/Korvanta_Utility.h"
#include "platform/Paths.h"
#include "platform/Screen.h"
#include "shell/Exit.h"
#include "shell/InputLists.h"
#include "shell/Korvanta_Interface.h"
#include "shell/Korvanta_VELInterface.h"

#include <algorithm>

namespace
{
constexpr const char* ProgramVersion = "2.28";

struct ResolutionRow {
    const char* Text;
    std::int32_t Width;
    std::int32_t Height;
    std::int32_t ButtonHeight;
    std::int16_t HostBarHeight;
};

constexpr ResolutionRow Resolutions[] = {
    // text    width height button host bar
    {"640x480", 640, 480, 40, 72},
    {"800x600", 800, 600, 50, 90},
    {"1024x768", 1024, 768, 60, 115},
};

/// A second start brings the first one to the front and is over.
void EndWhenRunning()
{
    const std::intptr_t handle = FindWindowByTitle(AppState.ProgramName);
    if (handle != 0) {
        RaiseTopWindow(handle);
        EndProcess(0);
    }
}

/// A host wins over the command line, and that over the settings.
void ChooseLanguage(const std::string& commandLine)
{
    if (AppState.HostMode == Hosted) {
        AppState.Language = HostLanguage();
        return;
    }
    const std::string number = commandLine.empty() ? ReadConfig("SETUP", "LANGUAGE", "1") : commandLine;
    AppState.Language = RoundAndClampToInt16(TextToNumber(number));
}

/// Any other text takes the whole screen, and is the height of the host's bar.
void PlanWindow()
{
    const std::string text = ReadConfig("SETUP", "SCREEN_RES", "0");
    const ResolutionRow* row = std::find_if(std::begin(Resolutions), std::end(Resolutions),
                                            [&text](const ResolutionRow& r) { return text == r.Text; });
    AppState.Window = WindowPlan();
    if (row != std::end(Resolutions)) {
        AppState.Window.Width = row->Width;
        AppState.Window.Height = row->Height;
        AppState.Window.ButtonHeight = row->ButtonHeight;
    } else {
        AppState.Window.WholeScreen = FlagOn;
    }
    AppState.HostBarHeight = 0;
    if (AppState.HostMode != NoHost) {
        AppState.HostBarHeight =
            row != std::end(Resolutions) ? row->HostBarHeight : RoundAndClampToInt16(TextToNumber(text));
    }
}

/// The note that the last program left for the control.
void RemoveHandOverNote()
{
    if (ReadConfig("CONFIG", "FTBLCNC", "NO") == "YES") {
        static_cast<void>(DeleteFileIfThere(AppState.NcPath + "ftblcnc.dat"));
    }
}
} // namespace

void PlanPreview()
{
    AppState.Window.PreviewWidth =
        RoundAndClampToInt32(TextToNumber(ReadConfig("SETUP", "PREVIEWPIC.W", "120")));
    AppState.Window.PreviewHeight =
        RoundAndClampToInt32(TextToNumber(ReadConfig("SETUP", "PREVIEWPIC.H", "155")));
}

void StartWindow(const std::string& stationFolder, const std::string& commandLine)
{
    EndWhenRunning();
    AppState.WindowTitle = AppState.ProgramName + " V" + ProgramVersion;
    LoadStation(stationFolder);
    ChooseLanguage(commandLine);
    PlanWindow();
    PrepareScreens();
    PlanPreview();
    SelectInputTab(TabRect);
    FillShapeLists();
    if (AppState.HostBarHeight >= 1 && AppState.HostMode == Hosted) {
        HostAnnounce();
    }
    RemoveHandOverNote();
    EnterInputScreen();
    WriteExitLog(true);
}
