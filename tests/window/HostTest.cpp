// The real station under a real host, on a bus of their own.
#include "SessionBus.h"
#include "WindowStation.h"
#include "manual/ManualPages.h"

#include <algorithm>
#include <cctype>
#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>

namespace
{
namespace fs = std::filesystem;
using Keys = std::vector<std::string>;

constexpr const char* Refused = "Critical Error: VELCOMLib non found!";

/// A station on a bus, under the host of the settings.
struct HostedStation {
    explicit HostedStation(const std::string& velcom = "YES")
    {
        Station.Set("SETUP", "VELCOM", velcom);
        Station.Environment = {Bus.Variable};
    }

    std::string Log() const
    {
        return Station.Folder.Read("korvanta.log");
    }

    void ExpectCriticalError(const std::string& text)
    {
        Station.AwaitCriticalError();
        EXPECT_NE(Log().find(text), std::string::npos) << Log();
        Station.Press({"Return"});
        Station.ExpectEnd(1);
    }

    /// From the start to the list of jobs, with JOB saved and selected.
    void SaveAndSelect()
    {
        Station.Open();
        Station.Walk({});
        EXPECT_NE(Station.Save("JOB"), "");
        Station.Screen.WaitUntilStill();
    }

    SessionBus Bus;
    Process Host;
    WindowStation Station;
};

void Quit(WindowStation& station)
{
    station.Press({"Escape"});
    station.ExpectEnd(0);
}

// --- start ----------------------------------------------------------------------------------------------------

TEST(WindowHost, GivesTheLanguage)
{
    const std::pair<const char*, const char*> cases[] = {
        {"0", "1"}, {"1", "2"}, {"2", "3"}, {"3", "4"}, {"4", "5"}, {"5", "6"},
    };
    HostedStation hosted;
    std::vector<Pixels> pictures;
    for (const auto& [index, language] : cases) {
        SCOPED_TRACE(index);
        hosted.Station.Set("SETUP", "VELCOM", "\\YES"); // the same picture, bar and all, and no host
        hosted.Station.Start({language});
        const Pixels expected = hosted.Station.Look();
        Quit(hosted.Station);
        hosted.Station.Set("SETUP", "VELCOM", "YES");
        hosted.Bus.StartHost(hosted.Host, {"--no-window", "--language", index});
        hosted.Station.Start({"4"});
        EXPECT_TRUE(Same(hosted.Station.Look(), expected));
        Quit(hosted.Station);
        hosted.Host.Stop();
        EXPECT_EQ(hosted.Bus.HostLinesWith(std::string("language asked for: ") + index), 2);
        for (const Pixels& other : pictures) {
            EXPECT_FALSE(Same(other, expected));
        }
        pictures.push_back(expected);
    }
}

TEST(WindowHost, HearsOfTheStationOnceWhenItHasABar)
{
    HostedStation hosted;
    hosted.Bus.StartHost(hosted.Host, {"--no-window"});
    hosted.Station.Start();
    EXPECT_EQ(hosted.Bus.HostLines(),
              (Keys{"ready", "language asked for: 0", "language asked for: 0", "announced: 1"}));
    hosted.Station.Press({"F10", "F10", "F1"});
    Quit(hosted.Station);
    EXPECT_EQ(hosted.Bus.HostLinesWith("announced: 1"), 1);
    hosted.Station.Set("SETUP", "SCREEN_RES", "0");
    hosted.Station.Start();
    Quit(hosted.Station);
    EXPECT_EQ(hosted.Bus.HostLinesWith("language"), 4);
    EXPECT_EQ(hosted.Bus.HostLinesWith("announced"), 1) << "no bar, no word";
}

TEST(WindowHost, ThatIsntThereIsACriticalError)
{
    HostedStation hosted;
    hosted.Station.Launch(hosted.Station.Program);
    hosted.Station.AwaitCriticalError();
    EXPECT_TRUE(hosted.Station.Screen.WindowsTitled(WindowTitle).empty()) << "the window hasn't come yet";
    hosted.ExpectCriticalError(Refused);
}

TEST(WindowHost, WithoutABusIsACriticalError)
{
    HostedStation hosted;
    hosted.Station.Environment = {"DBUS_SESSION_BUS_ADDRESS=unix:path=" + hosted.Station.Folder.Path + "/no"};
    hosted.Station.Launch(hosted.Station.Program);
    hosted.ExpectCriticalError(Refused);
}

/// It has its name and never answers.
TEST(WindowHost, ThatHangsHoldsTheStartForAWhileOnly)
{
    HostedStation hosted;
    hosted.Bus.StartHost(hosted.Host, {"--no-window"});
    kill(hosted.Host.Id, SIGSTOP);
    hosted.Station.Launch(hosted.Station.Program);
    hosted.ExpectCriticalError(Refused);
}

TEST(WindowHost, IsStartedByTheBusWhereItIsOffered)
{
    HostedStation hosted;
    hosted.Bus.OfferHost("--no-window --language 3");
    hosted.Station.Start();
    EXPECT_EQ(hosted.Bus.HostLinesWith("language asked for: 3"), 2);
    Quit(hosted.Station);
}

// --- programs -------------------------------------------------------------------------------------------------

TEST(WindowHost, GetsTheSelectedProgramByF7)
{
    HostedStation hosted;
    const std::string seen = hosted.Bus.Folder.Path + "/seen";
    fs::create_directory(seen);
    hosted.Bus.StartHost(hosted.Host, {"--no-window", "--viewer", "cp -t " + seen});
    hosted.Station.Start();
    hosted.SaveAndSelect();
    EXPECT_EQ(hosted.Bus.HostLinesWith("open"), 0) << "a save alone hands nothing over";
    hosted.Station.Press({"F7"});
    const std::string path = hosted.Station.Folder.Path + "/PROGRAM/JOB.nc";
    ASSERT_TRUE(WaitFor(20, [&] { return fs::exists(seen + "/JOB.nc"); }));
    EXPECT_EQ(hosted.Bus.HostLines().back(), "open: " + path + " (1)");
    EXPECT_TRUE(hosted.Station.Lives());
    hosted.Station.ClickKey(7);
    EXPECT_TRUE(WaitFor(20, [&] { return hosted.Bus.HostLinesWith("open: " + path) == 2; }));
    Quit(hosted.Station);
    EXPECT_EQ(hosted.Bus.HostLinesWith("open"), 2);
}

TEST(WindowHost, GetsProgramsWhereverTheyLie)
{
    HostedStation hosted;
    hosted.Station.Set("CONFIG", "NC_PATH", "C:\\CNC\\NC files");
    hosted.Station.Set("SETUP", "EXIT_PROGRAM", "YES");
    hosted.Bus.StartHost(hosted.Host, {"--no-window"});
    hosted.Station.Start();
    hosted.Station.Open();
    hosted.Station.Walk({});
    hosted.Station.Press({"F10", "Return"});
    hosted.Station.ExpectEnd(0);
    const std::string path = hosted.Station.Folder.Path + "/drive_c/CNC/NC files/R_01.nc";
    EXPECT_EQ(hosted.Bus.HostLines().back(), "open: " + path + " (1)");
    EXPECT_TRUE(fs::exists(path));
}

TEST(WindowHost, F7EndsTheStationWhenItIsSetSo)
{
    HostedStation hosted;
    hosted.Bus.StartHost(hosted.Host, {"--no-window"});
    hosted.Station.Start();
    hosted.SaveAndSelect();
    Quit(hosted.Station);
    hosted.Station.Set("SETUP", "EXIT_PROGRAM", "YES");
    hosted.Station.Set("SETUP", "EXIT_LOG_FILE", "LAST.TXT");
    hosted.Station.Start();
    hosted.Station.GoToTab(ProgramsTab);
    hosted.Station.Press({"F7"});
    hosted.Station.ExpectEnd(0);
    EXPECT_EQ(hosted.Bus.HostLinesWith("open: " + hosted.Station.Folder.Path + "/PROGRAM/JOB.nc (1)"), 1);
    EXPECT_FALSE(hosted.Station.Folder.Holds("LAST.TXT"));
}

TEST(WindowHost, GetsTheProgramOfASaveThatEndsTheStation)
{
    HostedStation hosted;
    hosted.Station.Set("SETUP", "EXIT_PROGRAM", "YES");
    hosted.Station.Set("SETUP", "EXIT_LOG_FILE", "LAST.TXT");
    hosted.Bus.StartHost(hosted.Host, {"--no-window"});
    hosted.Station.Start();
    hosted.Station.Open();
    hosted.Station.Walk({});
    EXPECT_NE(hosted.Station.Save("JOB"), "");
    hosted.Station.ExpectEnd(0);
    EXPECT_EQ(hosted.Bus.HostLines().back(), "open: " + hosted.Station.Folder.Path + "/PROGRAM/JOB.nc (1)");
    EXPECT_EQ(hosted.Station.Folder.Read("LAST.TXT"), "JOB\r\nPROGRAM\\\r\n");
}

// --- a host that dies -----------------------------------------------------------------------------------------

TEST(WindowHost, ThatIsGoneByF7EndsTheStationWithAText)
{
    HostedStation hosted;
    hosted.Bus.StartHost(hosted.Host, {"--no-window"});
    hosted.Station.Start();
    hosted.SaveAndSelect();
    hosted.Host.Stop();
    hosted.Station.Press({"F7"});
    hosted.ExpectCriticalError("korvanta: the CNC host doesn't answer to Open: ");
}

TEST(WindowHost, MayComeBackBetweenTwoCalls)
{
    HostedStation hosted;
    hosted.Bus.StartHost(hosted.Host, {"--no-window"});
    hosted.Station.Start();
    hosted.SaveAndSelect();
    hosted.Host.Stop();
    hosted.Bus.StartHost(hosted.Host, {"--no-window"});
    hosted.Station.Press({"F7"});
    EXPECT_TRUE(WaitFor(20, [&] { return hosted.Bus.HostLinesWith("open: ") == 1; }));
    Quit(hosted.Station);
}

TEST(WindowHost, ThatDiesWhileItIsAskedEndsTheStationWithAText)
{
    HostedStation hosted;
    hosted.Bus.StartHost(hosted.Host, {"--no-window"});
    hosted.Station.Start();
    hosted.SaveAndSelect();
    kill(hosted.Host.Id, SIGSTOP);
    hosted.Station.Press({"F7"});
    hosted.Station.Screen.WaitUntilStill();
    EXPECT_TRUE(hosted.Station.Lives()) << "it waits";
    hosted.Host.Stop();
    hosted.ExpectCriticalError("korvanta: the CNC host doesn't answer to Open: ");
}

TEST(WindowHost, ThatIsGoneAfterASaveLeavesWholeFiles)
{
    HostedStation hosted;
    hosted.Station.Set("SETUP", "EXIT_PROGRAM", "YES");
    hosted.Station.Set("SETUP", "EXIT_LOG_FILE", "LAST.TXT");
    hosted.Bus.StartHost(hosted.Host, {"--no-window"});
    hosted.Station.Start();
    hosted.Station.Open();
    hosted.Station.Walk({});
    hosted.Host.Stop();
    const std::string program = hosted.Station.Save("JOB");
    hosted.ExpectCriticalError("korvanta: the CNC host doesn't answer to Open: ");
    EXPECT_EQ(program, hosted.Station.Reference("R-01", {}, {}, "JOB"));
    for (const char* name : {"PROGRAM/JOB.nc", "NEST/JOB.nst", "NEST/DATA/JOB.bmp", "NEST/DATA/JOB.drw"}) {
        EXPECT_TRUE(hosted.Station.Folder.Holds(name)) << name;
        EXPECT_FALSE(hosted.Station.Folder.Holds(std::string(name) + ".part")) << name;
    }
    EXPECT_FALSE(hosted.Station.Folder.Holds("LAST.TXT"));
}

// --- no host --------------------------------------------------------------------------------------------------

/// A whole road with a save, F7 and the end after a save, on a watched bus.
void WalkWatched(const std::string& velcom, std::string& said)
{
    HostedStation hosted(velcom);
    Process watcher;
    const std::string log = hosted.Bus.Folder.Path + "/said.log";
    hosted.Bus.StartHost(hosted.Host, {"--no-window"});
    hosted.Bus.Watch(watcher, log);
    hosted.Station.Start();
    hosted.SaveAndSelect();
    hosted.Station.Press({"F7"});
    hosted.Station.Screen.WaitUntilStill();
    Quit(hosted.Station);
    hosted.Station.Set("SETUP", "EXIT_PROGRAM", "YES");
    hosted.Station.Start();
    hosted.Station.Open();
    hosted.Station.Walk({});
    EXPECT_NE(hosted.Station.Save("LAST"), "");
    hosted.Station.ExpectEnd(0);
    const int expected = velcom == "YES" ? 1 + 6 + 2 : 1;
    EXPECT_EQ(hosted.Bus.HostLines().size(), static_cast<std::size_t>(expected)) << velcom;
    said = hosted.Bus.Folder.Read("said.log");
}

TEST(WindowHost, IsNeverTouchedInTheOtherModes)
{
    std::string said;
    WalkWatched("YES", said);
    EXPECT_NE(said.find("destination=org.korvanta.Host"), std::string::npos)
        << "the watcher would have heard";
    for (const char* mode : {"NO", "\\YES"}) {
        WalkWatched(mode, said);
        EXPECT_EQ(said.find("destination=org.korvanta.Host"), std::string::npos) << mode << "\n" << said;
    }
}

TEST(WindowHost, IsNotMissedInTheOtherModes)
{
    for (const char* mode : {"NO", "\\YES"}) {
        HostedStation hosted(mode);
        hosted.Station.Environment = {"DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere/bus"};
        hosted.Station.Start();
        hosted.SaveAndSelect();
        hosted.Station.Press({"F7"});
        hosted.Station.Screen.WaitUntilStill();
        EXPECT_TRUE(hosted.Station.Lives()) << mode;
        Quit(hosted.Station);
    }
}

// --- the host program -----------------------------------------------------------------------------------------

/// Its window is no station, so both live together; the desktop opens the program, and a language set by hand counts
/// from the next start on.
TEST(WindowHost, HasAWindowBesideTheStation)
{
    HostedStation hosted;
    WindowStation& station = hosted.Station;
    const std::string opener = hosted.Bus.Folder.Write(
        "bin/xdg-open", "#!/bin/sh\necho \"$1\" >" + hosted.Bus.Folder.Path + "/opened\n");
    fs::permissions(opener, fs::perms::owner_all);
    std::vector<std::string> environment = station.WholeEnvironment();
    environment.push_back("PATH=" + hosted.Bus.Folder.Path + "/bin:" + std::getenv("PATH"));
    hosted.Bus.StartHost(hosted.Host, {"--language", "2"}, environment);
    ASSERT_TRUE(WaitFor(20, [&] { return station.Screen.WindowsTitled("CNC host").size() == 1; }));
    station.Start();
    hosted.SaveAndSelect();
    station.Press({"F7"});
    const std::string path = station.Folder.Path + "/PROGRAM/JOB.nc";
    EXPECT_TRUE(WaitFor(20, [&] {
        return hosted.Bus.Folder.Holds("opened") &&
               hosted.Bus.Folder.Read("opened") == "file://" + path + "\n";
    }));
    EXPECT_EQ(hosted.Bus.HostLines().back(), "open: " + path + " (1)");
    Quit(station);
    station.Screen.Activate(station.Screen.WindowsTitled("CNC host").at(0));
    station.Press({"alt+F4"});
    EXPECT_EQ(hosted.Host.WaitForEnd(20), 0);
}

TEST(WindowHost, HasABarInTheStripThatTheStationKeepsFree)
{
    HostedStation hosted;
    WindowStation& station = hosted.Station;
    station.Set("SETUP", "SCREEN_RES", "60");
    hosted.Bus.StartHost(hosted.Host, {"--bar", "60"}, station.WholeEnvironment());
    station.Start();
    const std::vector<std::string> bars = station.Screen.WindowsTitled("CNC host");
    ASSERT_EQ(bars.size(), 1U);
    EXPECT_EQ(station.Screen.PlaceOf(bars[0]), (Place{0, 0, station.Screen.Width, 60}));
    const Pixels with = station.Screen.Look();
    EXPECT_EQ(station.Screen.ActiveWindow(), station.Window) << "the keys are the station's";
    hosted.Host.Stop();
    station.Screen.WaitUntilStill();
    const Pixels without = station.Screen.Look();
    const Place strip = {0, 0, station.Screen.Width, 60};
    const Place rest = {0, 60, station.Screen.Width, station.Screen.Height - 60};
    EXPECT_FALSE(Same(Cut(with, strip), Cut(without, strip))) << "it stood in front";
    EXPECT_TRUE(Same(Cut(with, rest), Cut(without, rest))) << "and covered nothing";
}

/// With nobody to keep order each new window covers the bar, and nothing tells the host of it.
TEST(WindowHost, BringsItsBarBackWithoutAWindowManager)
{
    const SessionBus bus;
    const Desktop bare(800, 400, false);
    Process host;
    bus.StartHost(host, {"--bar", "60"}, {"DISPLAY=" + bare.Display, "QT_QPA_PLATFORM=xcb"});
    ASSERT_TRUE(WaitFor(20, [&] { return bare.WindowsTitled("CNC host").size() == 1; }));
    bare.WaitUntilStill();
    const Place strip = {0, 0, bare.Width, 60};
    const Pixels bar = Cut(bare.Look(), strip);
    for (int round = 0; round < 4; ++round) {
        SCOPED_TRACE(round);
        Process cover;
        cover.Start({{"xmessage", "-geometry", "800x400+0+0", "over the bar"},
                     {"DISPLAY=" + bare.Display},
                     bus.Folder.Path + "/cover.log",
                     -1});
        ASSERT_TRUE(WaitFor(20, [&] { return bare.WindowsTitled("xmessage").size() == 1; }))
            << bus.Folder.Read("cover.log");
        EXPECT_TRUE(WaitFor(8, [&] { return Same(Cut(bare.Look(), strip), bar); }));
        cover.Stop();
        ASSERT_TRUE(WaitFor(20, [&] { return bare.WindowsTitled("xmessage").empty(); }));
    }
}

TEST(WindowHost, KnowsItsCallsOnly)
{
    const SessionBus bus;
    Process host;
    bus.StartHost(host, {"--no-window", "--language", "5"});
    const std::string panel = "/org/korvanta/Host/Panel";
    const std::string programs = "/org/korvanta/Host/Programs";
    const std::string get = "org.freedesktop.DBus.Properties.Get";
    const Finished language = bus.Send({panel, get, "string:org.korvanta.Host.Panel", "string:Language"});
    EXPECT_EQ(language.Status, 0);
    EXPECT_NE(language.Output.find("int16 5"), std::string::npos) << language.Errors;
    EXPECT_EQ(bus.Send({panel, "org.korvanta.Host.Panel.Announce", "int32:1"}).Status, 0);
    EXPECT_EQ(bus.Send({programs, "org.korvanta.Host.Programs.Open", "string:/no/file", "int32:1"}).Status,
              0);
    EXPECT_EQ(bus.HostLines(), (Keys{"ready", "language asked for: 5", "announced: 1", "open: /no/file (1)",
                                     "no such file: /no/file"}));
    const Keys wrong[] = {
        {panel, get, "string:org.korvanta.Host.Panel", "string:Colour"},
        {panel, get, "string:other", "string:Language"},
        {panel, "org.korvanta.Host.Panel.Announce", "string:1"},
        {panel, "org.korvanta.Host.Panel.Announce"},
        {panel, "org.korvanta.Host.Programs.Open", "string:/no/file", "int32:1"},
        {programs, "org.korvanta.Host.Programs.Open", "int32:1", "string:/no/file"},
        {programs, "org.korvanta.Host.Programs.Close"},
    };
    for (const Keys& words : wrong) {
        EXPECT_NE(bus.Send(words).Status, 0) << words[1];
    }
    EXPECT_EQ(bus.HostLines().size(), 5U);
}

std::string WithoutBlanks(const std::string& text)
{
    std::string kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept),
                 [](unsigned char c) { return std::isspace(c) == 0; });
    return kept;
}

TEST(WindowHost, DescribesItselfAsThePageDoes)
{
    const SessionBus bus;
    Process host;
    bus.StartHost(host, {"--no-window"});
    int described = 0;
    for (const PageBlock& block : ReadPage(KORVANTA_SOURCE_DIR "/docs/host-link.md").Blocks) {
        if (block.Kind != "xml") {
            continue;
        }
        const std::string quote = "<node name=\"";
        ASSERT_TRUE(block.Text.starts_with(quote)) << block.Line;
        const std::string object =
            block.Text.substr(quote.size(), block.Text.find('"', quote.size()) - quote.size());
        const std::size_t from = block.Text.find("<interface");
        const std::size_t to = block.Text.find("</interface>");
        ASSERT_LT(from, to) << block.Line;
        const std::string answer =
            WithoutBlanks(bus.Send({object, "org.freedesktop.DBus.Introspectable.Introspect"}).Output);
        EXPECT_NE(answer.find(WithoutBlanks(block.Text.substr(from, to - from))), std::string::npos)
            << answer;
        ++described;
    }
    EXPECT_EQ(described, 2) << "the panel and the programs";
}

TEST(WindowHost, IsAloneOnItsBus)
{
    const SessionBus bus;
    Process host;
    bus.StartHost(host, {"--no-window"});
    const std::string program = KORVANTA_BINARY_DIR "/bin/korvanta-host";
    EXPECT_EQ(RunToEnd({program, "--no-window"}, {bus.Variable}).Status, 1);
    EXPECT_EQ(RunToEnd({program, "--no-window"}, {"DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere/bus"}).Status,
              1);
    EXPECT_TRUE(host.Runs());
}

TEST(WindowHost, SaysWhatIsWrongWithItsOptions)
{
    const std::pair<Keys, const char*> cases[] = {
        {{"--bogus"}, "Unknown option 'bogus'."},
        {{"-x"}, "Unknown option 'x'."},
        {{"--viewer"}, "Missing value after '--viewer'."},
        {{"--language", "x"}, "--language: \"x\" isn't a number from 0 to 5"},
        {{"--language", "9"}, "--language: \"9\" isn't a number from 0 to 5"},
        {{"--language", "-1"}, "--language: \"-1\" isn't a number from 0 to 5"},
        {{"--language", "40000"}, "--language: \"40000\" isn't a number from 0 to 5"},
        {{"--bar", "abc"}, "--bar: \"abc\" isn't a number of pixels"},
        {{"--bar", "-1"}, "--bar: \"-1\" isn't a number of pixels"},
        {{"stray", "words"}, "\"stray\" is no option"},
    };
    const SessionBus bus;
    const std::string program = KORVANTA_BINARY_DIR "/bin/korvanta-host";
    const Keys environment = {bus.Variable,
                              "DISPLAY=", "QT_QPA_PLATFORM=xcb"}; // no display is needed to tell
    for (const auto& [words, text] : cases) {
        for (const bool hasWindow : {true, false}) {
            Keys all = words;
            all.insert(all.begin(), program);
            if (!hasWindow) {
                all.insert(all.begin() + 1, "--no-window");
            }
            const Finished finished = RunToEnd(all, environment);
            EXPECT_EQ(finished.Status, 2) << text;
            EXPECT_EQ(finished.Output, "") << text;
            EXPECT_EQ(finished.Errors,
                      std::string("korvanta-host: ") + text + "\nTry: korvanta-host --help\n");
        }
    }
    for (const char* word : {"--help", "-h"}) {
        const Finished help = RunToEnd({program, word}, environment);
        EXPECT_EQ(help.Status, 0) << word;
        EXPECT_NE(help.Output.find("--language"), std::string::npos) << word;
        EXPECT_EQ(help.Errors, "") << word;
    }
}
} // namespace
