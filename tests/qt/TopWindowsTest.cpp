// Which windows an X display has and how one is raised, with a window manager and without; and the lock that lets one
// station go on, with a display and without.
#include "qt/TopWindows.h"

#include "config/Korvanta_Utility.h"
#include "platform/Screen.h"
#include "qt/StationProcess.h"
#include "qt/XDesk.h"
#include "state/AppState.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <deque>
#include <map>
#include <memory>
#include <thread>

bool operator==(const TopWindow& one, const TopWindow& other)
{
    return one.Handle == other.Handle && one.Title == other.Title;
}

void PrintTo(const TopWindow& window, std::ostream* stream)
{
    *stream << window.Handle << " \"" << window.Title.substr(0, 300) << '"';
}

namespace
{
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

TopWindow At(xcb_window_t window, const std::string& title)
{
    return {static_cast<std::intptr_t>(window), title};
}

/// No display, and a runtime folder of the case's own; the environment comes back with the end of the case.
struct TopWindows : testing::Test {
    TempFolder Runtime;
    std::map<const char*, QByteArray> Environment;

    void SetUp() override
    {
        ResetAppState();
        for (const char* name :
             {"DISPLAY", "WAYLAND_DISPLAY", "XDG_RUNTIME_DIR", "TMPDIR", "XDG_ACTIVATION_TOKEN"}) {
            Environment[name] = qgetenv(name);
            qunsetenv(name);
        }
        qputenv("XDG_RUNTIME_DIR", Runtime.Path.c_str());
    }

    void TearDown() override
    {
        StationRaised = nullptr;
        ReleaseStationLock();
        for (const auto& [name, value] : Environment) {
            value.isNull() ? qunsetenv(name) : qputenv(name, value);
        }
    }
};

struct XTopWindows : TopWindows {
    std::unique_ptr<XDesk> Desk;
    std::unique_ptr<XClient> Other; ///< another program

    void SetUp() override
    {
        TopWindows::SetUp();
        Desk = std::make_unique<XDesk>();
        Other = std::make_unique<XClient>();
    }

    void TearDown() override
    {
        Other.reset();
        Desk.reset();
        TopWindows::TearDown();
    }
};

TEST_F(TopWindows, NoDisplayHasNone)
{
    for (const char* display : {"", ":9876", "nonsense", "/", ":", ":99999999999999999999"}) {
        qputenv("DISPLAY", display);
        EXPECT_THAT(ListTopWindows(), IsEmpty()) << display;
        RaiseTopWindow(0x200001);
    }
    qunsetenv("DISPLAY");
    EXPECT_THAT(ListTopWindows(), IsEmpty());
}

TEST_F(XTopWindows, HaveTitlesInAnyLanguage)
{
    const auto german = Other->AddTitled("Zuschnitt für Blech");
    const auto chinese = Other->AddTitled("切割站");
    const auto latin = Other->AddWindow();
    Other->SetText(latin, "WM_NAME", "STRING", "T\xFCr");
    const auto plainUtf8 = Other->AddWindow();
    Other->SetText(plainUtf8, "WM_NAME", "UTF8_STRING", "Tür");
    const auto both = Other->AddTitled("new");
    Other->SetText(both, "WM_NAME", "STRING", "old");
    const auto broken = Other->AddTitled("a\xFF"
                                         "b");
    const auto ended = Other->AddTitled(QByteArray("one\0two", 7));
    static_cast<void>(Other->AddWindow()); // no title
    const auto hidden = Other->AddWindow(XCB_WINDOW_NONE, false);
    Other->SetText(hidden, "WM_NAME", "STRING", "hidden");
    const auto number = Other->AddWindow();
    Other->SetNumbers(number, "WM_NAME", "CARDINAL", {0x41414141});
    EXPECT_THAT(ListTopWindows(),
                ElementsAre(At(german, "Zuschnitt für Blech"), At(chinese, "切割站"), At(latin, "Tür"),
                            At(plainUtf8, "Tür"), At(both, "new"), At(broken, "a\uFFFDb"), At(ended, "one")));
}

TEST_F(XTopWindows, AnotherProgramsTitleMayHoldTheWord)
{
    EXPECT_EQ(FindWindowByTitle("Korvanta"), 0);
    static_cast<void>(Other->AddTitled("Notes"));
    const auto notes = Other->AddTitled("Notes about Korvanta - Editor");
    static_cast<void>(Other->AddTitled("Korvanta V2.28"));
    EXPECT_EQ(FindWindowByTitle("Korvanta"), static_cast<std::intptr_t>(notes)) << "the first one counts";
}

TEST_F(XTopWindows, LongTitlesAreCut)
{
    QByteArray chinese; // 247 + 8 = 255 characters count, one more does not
    for (int i = 0; i < 247; ++i) {
        chinese += "切";
    }
    static_cast<void>(Other->AddTitled(chinese + "-Korvanta"));
    EXPECT_EQ(FindWindowByTitle("Korvanta"), 0);
    const auto fits = Other->AddTitled(chinese + "Korvanta" + QByteArray(200000, 'x'));
    EXPECT_EQ(FindWindowByTitle("Korvanta"), static_cast<std::intptr_t>(fits));
}

TEST_F(XTopWindows, AThousandAreInOrder)
{
    constexpr int Count = 1000;
    std::vector<TopWindow> expected;
    for (int i = 0; i < Count; ++i) {
        const std::string title = "Window " + std::to_string(i);
        expected.push_back(At(Other->AddTitled(title.c_str()), title));
    }
    EXPECT_EQ(ListTopWindows(), expected);
}

TEST_F(XTopWindows, StandInFramesOfAPlainManager)
{
    const auto frame = Other->AddWindow();
    const auto client = Other->AddWindow(Other->AddWindow(frame));
    Other->SetText(client, "WM_NAME", "STRING", "two down");
    const auto titledFrame = Other->AddTitled("frame of client");
    const auto managed = Other->AddWindow(titledFrame);
    Other->SetText(managed, "WM_NAME", "STRING", "client");
    Other->SetNumbers(managed, "WM_STATE", "WM_STATE", {1, 0});
    const auto inside = Other->AddWindow(managed);
    Other->SetText(inside, "WM_NAME", "STRING", "part of the client");
    const auto hiddenFrame = Other->AddWindow(XCB_WINDOW_NONE, false);
    const auto iconic = Other->AddWindow(hiddenFrame, false);
    Other->SetText(iconic, "WM_NAME", "STRING", "iconified");
    Other->SetNumbers(iconic, "WM_STATE", "WM_STATE", {3, 0});
    const auto withdrawn = Other->AddWindow(XCB_WINDOW_NONE, false);
    Other->SetText(withdrawn, "WM_NAME", "STRING", "withdrawn");
    Other->SetNumbers(withdrawn, "WM_STATE", "WM_STATE", {0, 0});
    const auto titled = Other->AddTitled("titled");
    const auto part = Other->AddWindow(titled);
    Other->SetText(part, "WM_NAME", "STRING", "part of the titled one");
    const auto deep = Other->AddWindow(Other->AddWindow(Other->AddWindow(Other->AddWindow())));
    Other->SetText(deep, "WM_NAME", "STRING", "three down");
    EXPECT_THAT(ListTopWindows(), ElementsAre(At(client, "two down"), At(managed, "client"),
                                              At(iconic, "iconified"), At(titled, "titled")));
}

TEST_F(XTopWindows, AManagersListHoldsUntilItIsGone)
{
    const auto one = Other->AddTitled("one");
    const auto two = Other->AddTitled("two");
    const auto three = Other->AddTitled("three");
    const auto gone = Other->AddTitled("gone");
    const auto check = Other->AddWindow(XCB_WINDOW_NONE, false);
    xcb_destroy_window(Other->Wire, gone);
    Other->SetNumbers(Other->Root, "_NET_CLIENT_LIST", "WINDOW", {three, gone, one});
    Other->SetNumbers(Other->Root, "_NET_SUPPORTED", "ATOM", {Other->Atom("_NET_CLIENT_LIST")});
    Other->SetNumbers(Other->Root, "_NET_SUPPORTING_WM_CHECK", "WINDOW", {check});
    const std::vector<TopWindow> tree = {At(one, "one"), At(two, "two"), At(three, "three")};
    EXPECT_EQ(ListTopWindows(), tree) << "nobody vouches for the list";
    Other->SetNumbers(check, "_NET_SUPPORTING_WM_CHECK", "WINDOW", {check});
    EXPECT_THAT(ListTopWindows(), ElementsAre(At(three, "three"), At(gone, ""), At(one, "one")));
    xcb_destroy_window(Other->Wire, check);
    Other->Sync();
    EXPECT_EQ(ListTopWindows(), tree) << "a dead manager's list";
}

TEST_F(XTopWindows, MayVanishWhileTheyAreListed)
{
    const auto lasting = Other->AddTitled("Korvanta V2.28");
    std::atomic<bool> enough = false;
    std::thread restless([&] {
        while (!enough) {
            const XClient client;
            for (int i = 0; i < 40; ++i) {
                static_cast<void>(client.AddWindow(client.AddTitled("restless")));
            }
        }
    });
    for (int i = 0; i < 300; ++i) {
        EXPECT_EQ(FindWindowByTitle("Korvanta"), static_cast<std::intptr_t>(lasting));
        RaiseTopWindow(ListTopWindows().back().Handle);
        RaiseTopWindow(static_cast<std::intptr_t>(lasting));
    }
    enough = true;
    restless.join();
}

TEST_F(XTopWindows, AreRaisedWithoutAManager)
{
    const auto one = Other->AddTitled("one");
    const auto two = Other->AddTitled("two");
    const auto hidden = Other->AddWindow(XCB_WINDOW_NONE, false);
    EXPECT_THAT(Other->Children(Other->Root), ElementsAre(one, two, hidden));
    RaiseTopWindow(static_cast<std::intptr_t>(one));
    EXPECT_THAT(Other->Children(Other->Root), ElementsAre(two, hidden, one));
    EXPECT_EQ(Other->Focus(), one);
    RaiseTopWindow(static_cast<std::intptr_t>(hidden));
    EXPECT_TRUE(Other->IsViewable(hidden));
    EXPECT_THAT(Other->Children(Other->Root), ElementsAre(two, one, hidden));
    EXPECT_EQ(Other->Focus(), hidden);
    xcb_destroy_window(Other->Wire, two);
    Other->Sync();
    RaiseTopWindow(static_cast<std::intptr_t>(two));
    RaiseTopWindow(0);
    EXPECT_THAT(Other->Children(Other->Root), ElementsAre(one, hidden));
}

TEST_F(XTopWindows, AManagerThatActivatesIsAskedTo)
{
    const auto one = Other->AddTitled("one");
    const auto two = Other->AddTitled("two");
    const auto check = Other->AddWindow(XCB_WINDOW_NONE, false);
    Other->SetNumbers(check, "_NET_SUPPORTING_WM_CHECK", "WINDOW", {check});
    Other->SetNumbers(Other->Root, "_NET_SUPPORTING_WM_CHECK", "WINDOW", {check});
    Other->SetNumbers(Other->Root, "_NET_SUPPORTED", "ATOM", {Other->Atom("_NET_ACTIVE_WINDOW")});
    const std::uint32_t redirect = XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT;
    xcb_change_window_attributes(Other->Wire, Other->Root, XCB_CW_EVENT_MASK, &redirect);
    Other->Sync();
    RaiseTopWindow(static_cast<std::intptr_t>(one));
    Other->Sync();
    std::unique_ptr<xcb_generic_event_t, decltype(&std::free)> event(xcb_poll_for_event(Other->Wire),
                                                                     &std::free);
    ASSERT_NE(event, nullptr);
    ASSERT_EQ(event->response_type & 0x7F, XCB_CLIENT_MESSAGE);
    const auto& message = *reinterpret_cast<const xcb_client_message_event_t*>(event.get());
    EXPECT_EQ(message.window, one);
    EXPECT_EQ(message.type, Other->Atom("_NET_ACTIVE_WINDOW"));
    EXPECT_EQ(message.data.data32[0], 2U) << "as a pager";
    event.reset(xcb_poll_for_event(Other->Wire));
    EXPECT_EQ(event, nullptr) << "all else is the manager's";
    EXPECT_THAT(Other->Children(Other->Root), ElementsAre(one, two, check));
}

TEST_F(XTopWindows, AreListedAndRaisedByAManager)
{
    const auto one = Other->AddTitled("Stück 1");
    const auto two = Other->AddTitled("切割 2");
    Desk->StartManager(*Other);
    ASSERT_TRUE(Becomes([&] { return Other->Numbers(Other->Root, "_NET_CLIENT_LIST").size() == 2; }));
    EXPECT_THAT(ListTopWindows(), testing::UnorderedElementsAre(At(one, "Stück 1"), At(two, "切割 2")));
    const auto isInFront = [&](xcb_window_t window) {
        const auto stack = Other->Numbers(Other->Root, "_NET_CLIENT_LIST_STACKING");
        return !stack.empty() && stack.back() == window && Other->IsViewable(window) &&
               Other->Numbers(Other->Root, "_NET_ACTIVE_WINDOW") == std::vector<std::uint32_t>{window};
    };
    for (const auto window : {one, two, one}) {
        RaiseTopWindow(static_cast<std::intptr_t>(window));
        EXPECT_TRUE(Becomes([&] { return isInFront(window); }));
    }
    Other->Iconify(one);
    ASSERT_TRUE(Becomes([&] { return !Other->IsViewable(one); }));
    EXPECT_THAT(ListTopWindows(), Contains(At(one, "Stück 1"))) << "iconified";
    RaiseTopWindow(static_cast<std::intptr_t>(one));
    EXPECT_TRUE(Becomes([&] { return isInFront(one); }));
    xcb_destroy_window(Other->Wire, two);
    Other->Sync();
    RaiseTopWindow(static_cast<std::intptr_t>(two));
    EXPECT_TRUE(Becomes([&] { return Other->Numbers(Other->Root, "_NET_CLIENT_LIST").size() == 1; }));
    EXPECT_THAT(ListTopWindows(), ElementsAre(At(one, "Stück 1")));
}

TEST_F(TopWindows, ALaterStartCallsTheFirstOneForward)
{
    StationProcess first;
    ASSERT_TRUE(first.Says("runs\n"));
    {
        StationProcess second;
        EXPECT_TRUE(second.GivesWay()) << second.Said.toStdString();
        EXPECT_TRUE(first.Says("raised \n"));
    }
    qputenv("XDG_ACTIVATION_TOKEN", "token-7");
    StationProcess third;
    EXPECT_TRUE(third.GivesWay());
    EXPECT_TRUE(first.Says("raised token-7\n"));
    EXPECT_EQ(first.Said.toStdString(), "runs\nraised \nraised token-7\n");
    const auto windows = ListTopWindows();
    ASSERT_EQ(windows.size(), 1U);
    EXPECT_EQ(windows[0].Title, "Korvanta");
    EXPECT_NE(windows[0].Handle, 0);
}

TEST_F(TopWindows, AStationThatDiedIsNoStation)
{
    {
        StationProcess dead;
        ASSERT_TRUE(dead.Says("runs"));
        dead.Process.kill();
        ASSERT_TRUE(dead.Process.waitForFinished());
    }
    StationProcess next;
    EXPECT_TRUE(next.Says("runs"));
    StationProcess later;
    EXPECT_TRUE(later.GivesWay());
    EXPECT_TRUE(next.Says("raised")) << "the dead one's socket is not in the way";
}

TEST_F(TopWindows, AStoppedStationHoldsNobodyUp)
{
    StationProcess first;
    ASSERT_TRUE(first.Says("runs"));
    ASSERT_EQ(::kill(static_cast<pid_t>(first.Process.processId()), SIGSTOP), 0);
    StationProcess second;
    EXPECT_TRUE(second.GivesWay());
    ASSERT_EQ(::kill(static_cast<pid_t>(first.Process.processId()), SIGCONT), 0);
    EXPECT_TRUE(first.Says("raised")) << "it hears of the call later";
}

TEST_F(TopWindows, ThisProcessHoldsTheLockUntilItLetsGo)
{
    static int calls = 0;
    calls = 0;
    EXPECT_THAT(ListTopWindows(), IsEmpty());
    EXPECT_THAT(ListTopWindows(), IsEmpty()) << "it is not in its own way";
    StationProcess early;
    EXPECT_TRUE(early.GivesWay()) << "it may not be heard, the window not being there";
    StationRaised = [] { ++calls; };
    StationProcess second;
    EXPECT_TRUE(second.GivesWay());
    EXPECT_TRUE(Becomes([] {
        QCoreApplication::processEvents();
        return calls > 0;
    }));
    ReleaseStationLock();
    ReleaseStationLock();
    StationProcess third;
    EXPECT_TRUE(third.Says("runs"));
    EXPECT_EQ(ListTopWindows().size(), 1U);
}

/// Starts many stations and tells how many go on, after all others have given way.
int CountSurvivors()
{
    constexpr int Starts = 20;
    std::deque<StationProcess> stations(Starts);
    int runs = 0;
    int gaveWay = 0;
    for (StationProcess& station : stations) {
        station.Says("runs"); // or has ended
    }
    for (StationProcess& station : stations) {
        runs += station.Process.state() == QProcess::Running && station.Said.startsWith("runs\n") ? 1 : 0;
        gaveWay += station.Process.state() == QProcess::NotRunning && station.GivesWay() ? 1 : 0;
    }
    EXPECT_EQ(runs + gaveWay, Starts);
    return runs;
}

TEST_F(TopWindows, OfManyStartsAtOnceOneGoesOn)
{
    EXPECT_EQ(CountSurvivors(), 1);
    EXPECT_EQ(CountSurvivors(), 1) << "with what the first ones left";
}

TEST_F(XTopWindows, OfManyStartsAtOnceOneGoesOn)
{
    EXPECT_EQ(CountSurvivors(), 1);
}

TEST_F(XTopWindows, TheWindowOfTheFirstStationComesBeforeItsLock)
{
    StationProcess first;
    ASSERT_TRUE(first.Says("runs"));
    EXPECT_LT(FindWindowByTitle("Korvanta"), 0) << "it has no window yet";
    const auto window = Other->AddTitled("Korvanta V2.28");
    EXPECT_EQ(FindWindowByTitle("Korvanta"), static_cast<std::intptr_t>(window));
}

TEST_F(TopWindows, EachDisplayHasItsOwnStation)
{
    struct Case {
        const char* Display;
        const char* Wayland;
        bool GoesOn;
    };
    qputenv("DISPLAY", ":9876");
    StationProcess first;
    ASSERT_TRUE(first.Says("runs"));
    constexpr Case Cases[] = {
        // display       wayland         goes on
        {":9876", "", false},
        {":9876.1", "", false},
        {"unix:9876.0", "", false},
        {":9876", "wayland-1", false},
        {":9877", "", true},
        {":9877", "wayland-1", true},
        {"", "wayland-1", true},
        {"", "/run/w/wayland-1", true},
        {"", "", true},
    };
    for (const Case& c : Cases) {
        qputenv("DISPLAY", c.Display);
        qputenv("WAYLAND_DISPLAY", c.Wayland);
        EXPECT_EQ(ListTopWindows().empty(), c.GoesOn) << c.Display << ' ' << c.Wayland;
        ReleaseStationLock();
    }
}

TEST_F(TopWindows, AFolderThatCantHoldTheLockIsNoHindrance)
{
    const TempFolder fallBack;
    qputenv("XDG_RUNTIME_DIR", (Runtime.Path + "/none").c_str());
    qputenv("TMPDIR", fallBack.Path.c_str());
    {
        StationProcess first;
        ASSERT_TRUE(first.Says("runs"));
        EXPECT_EQ(ListTopWindows().size(), 1U) << "the folder for temporary files has the lock";
    }
    qputenv("TMPDIR", "/dev/null");
    StationProcess first;
    EXPECT_TRUE(first.Says("runs"));
    EXPECT_THAT(ListTopWindows(), IsEmpty()) << "no lock at all";
}

TEST_F(TopWindows, AFolderTooDeepForASocketStillHoldsTheLock)
{
    const std::string deep = Runtime.Path + "/" + std::string(120, 'd');
    ASSERT_TRUE(QDir().mkpath(deep.c_str()));
    qputenv("XDG_RUNTIME_DIR", deep.c_str());
    StationProcess first;
    ASSERT_TRUE(first.Says("runs"));
    StationProcess second;
    EXPECT_TRUE(second.GivesWay()) << second.Said.toStdString();
}
} // namespace
