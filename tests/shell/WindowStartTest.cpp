// The start behind a window: one instance, language, sizes, what is removed, and where it ends.
#include "platform/Fault.h"
#include "support/Station.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace
{
class WindowStart : public StationCase
{
protected:
    void SetUp() override
    {
        StationCase::SetUp();
        StartCase();
    }

    void Start(const std::string& commandLine = "") const
    {
        StartWindow(Station.Path, commandLine);
    }
};

TEST_F(WindowStart, EndsOnTheListOfRectangularShapes)
{
    Start();
    EXPECT_EQ(AppState.WindowTitle, "Korvanta V2.28");
    EXPECT_EQ(AppState.ScreenState, ScreenInput);
    EXPECT_EQ(AppState.InputTab, TabRect);
    EXPECT_EQ(AppState.FrontList, TabRect);
    EXPECT_EQ(AppState.Lists[TabRect].Items.size(), 41U);
    EXPECT_EQ(AppState.PanelVisible[static_cast<std::size_t>(Panel::TabInput)], FlagOn);
    EXPECT_EQ(AppState.PanelVisible[static_cast<std::size_t>(Panel::TabCam)], FlagOff);
    EXPECT_EQ(AppState.InputTabIcon[TabRect], (ImageRef{ImageList::Small, 6}));
    EXPECT_EQ(AppState.KeyBar[0], (ImageRef{ImageList::InputState0, 1}));
    EXPECT_EQ(AppState.WindowBackColor, 236 * 65536 + 233 * 256 + 216);
    EXPECT_EQ(Screen.Calls.back(), "focus list 1");
}

TEST_F(WindowStart, CaptionsStandOnTheTabs)
{
    Start();
    EXPECT_THAT(AppState.InputTabCaption,
                ElementsAre("text 5", "text 6", "text 7", "text 8", " DXF-IN", " ISO-IN"));
    EXPECT_THAT(AppState.CamTabCaption, ElementsAre("text 11", "text 12", "text 13"));
    EXPECT_EQ(AppState.LabelFileName, "text 33");
}

TEST_F(WindowStart, ASecondStartRaisesTheFirstOne)
{
    Screen.Windows = {{7, "Shell"}, {9, "Korvanta V2.28"}, {11, "Korvanta V2.28"}};
    EXPECT_THROW(Start(), ProcessEnded);
    EXPECT_THAT(TakeCalls(), ElementsAre("raise 9", "end 0"));
}

TEST_F(WindowStart, AnyWindowWithTheWordStopsTheStart)
{
    Screen.Windows = {{5, "Notes about Korvanta - Editor"}};
    EXPECT_THROW(Start(), ProcessEnded);
    EXPECT_THAT(TakeCalls(), ElementsAre("raise 5", "end 0"));
    StartCase();
    Screen.Windows = {{5, "korvanta"}, {6, ""}};
    Start();
    EXPECT_EQ(AppState.Lists[TabRect].Items.size(), 41U);
}

TEST_F(WindowStart, TheCommandLineWinsOverTheSettings)
{
    Configure("LANGUAGE=3\n", "");
    Start();
    EXPECT_EQ(AppState.Language, 3);
    Start("2");
    EXPECT_EQ(AppState.Language, 2);
    EXPECT_THROW(Start("German"), RunTimeFault) << "language 0 has no messages";
}

TEST_F(WindowStart, AMissingCatalogueIsTheEnd)
{
    const TempFolder empty;
    EXPECT_THROW(StartWindow(empty.Path, ""), ProcessEnded);
    EXPECT_THAT(TakeCalls(),
                ElementsAre("system box Critical Error|File " + empty.Path + "\\Korvanta_MSG.TXT not found!",
                            "end 1"));
}

struct SizeCase {
    const char* Resolution;
    const char* Host;
    Flag Whole;
    std::int32_t Width;
    std::int32_t Height;
    std::int32_t Button;
    std::int16_t Bar;
};

TEST_F(WindowStart, TheSettingsSizeTheWindow)
{
    const SizeCase cases[] = {
        {"640x480", "YES", FlagOff, 640, 480, 40, 72},
        {"800x600", "YES", FlagOff, 800, 600, 50, 90},
        {"1024x768", "\\YES", FlagOff, 1024, 768, 60, 115},
        {"800x600", "NO", FlagOff, 800, 600, 50, 0},
        {"60", "YES", FlagOn, 0, 0, 0, 60},
        {"60", "NO", FlagOn, 0, 0, 0, 0},
        {"wide", "YES", FlagOn, 0, 0, 0, 0},
        {"0", "NO", FlagOn, 0, 0, 0, 0},
    };
    for (const SizeCase& c : cases) {
        StartCase();
        Configure(std::string("SCREEN_RES=") + c.Resolution + "\nVELCOM=" + c.Host + "\n", "");
        Start();
        const std::string name = std::string(c.Resolution) + " " + c.Host;
        EXPECT_EQ(AppState.Window.WholeScreen, c.Whole) << name;
        EXPECT_EQ(AppState.Window.Width, c.Width) << name;
        EXPECT_EQ(AppState.Window.Height, c.Height) << name;
        EXPECT_EQ(AppState.Window.ButtonHeight, c.Button) << name;
        EXPECT_EQ(AppState.HostBarHeight, c.Bar) << name;
    }
}

TEST_F(WindowStart, ThePreviewHasItsOwnSize)
{
    Start();
    EXPECT_EQ(AppState.Window.PreviewWidth, 120);
    EXPECT_EQ(AppState.Window.PreviewHeight, 155);
    Configure("PREVIEWPIC.W=200\nPREVIEWPIC.H=90\n", "");
    Start();
    EXPECT_EQ(AppState.Window.PreviewWidth, 200);
    EXPECT_EQ(AppState.Window.PreviewHeight, 90);
}

TEST_F(WindowStart, TheHandOverNoteGoesOnlyWhenSetSo)
{
    for (const char* value : {"NO", "yes", "YESS"}) {
        Station.Write("NC/ftblcnc.dat", "PLATE.NC");
        Configure("", std::string("FTBLCNC=") + value + "\n");
        Start();
        EXPECT_TRUE(Station.Holds("NC/ftblcnc.dat")) << value;
    }
    Configure("", "FTBLCNC=YES\n");
    Start();
    EXPECT_FALSE(Station.Holds("NC/ftblcnc.dat"));
    Start();
}

TEST_F(WindowStart, AnOldExitLogIsRemoved)
{
    Station.Write("exit.log", "OLD");
    Start();
    EXPECT_TRUE(Station.Holds("exit.log"));
    Configure("EXIT_LOG_FILE=exit.log\n", "");
    Start();
    EXPECT_FALSE(Station.Holds("exit.log"));
}
} // namespace
