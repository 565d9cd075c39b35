#include "WindowStation.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace
{
namespace fs = std::filesystem;

constexpr double WindowSeconds = 20; ///< for anything that the program is to show or write
constexpr int TabsHeight = 60;       ///< more than the tabs take

/// Fields that Enter, Down and Up reach; the last one of a screen, Zoom, isn't among them.
constexpr std::array<const char*, 9> CuttingCaptions = {"Angle",       "Mirror",      "Scale",
                                                        "Profile nr.", "Move Step",   "LeadIn : A",
                                                        "LeadIn : B",  "LeadOut : C", "LeadOut : D"};
constexpr std::array<const char*, 7> NestingCaptions = {"X Sheet", "Y Sheet", "Kerf",      "X Gap",
                                                        "Y Gap",   "Nesting", "Simulation"};

/// The keys of the Cutting screen: in which field, and which one.
struct CuttingKey {
    const char* Name;
    int Field;
    const char* Key;
};

constexpr CuttingKey CuttingKeys[] = {
    {"CopyLeads", 3, "F5"},    {"PrfPathChange", 3, "F6"}, {"OTLeft", 3, "F7"},           {"OTRgt", 3, "F8"},
    {"MoveLeadPlus", 4, "F5"}, {"MoveLeadMinus", 4, "F6"}, {"MoveLeadNextElem", 4, "F7"},
};

template <std::size_t Count>
int IndexOf(const std::array<const char*, Count>& captions, const std::string& caption)
{
    const auto found = std::find(captions.begin(), captions.end(), caption);
    return found == captions.end() ? -1 : static_cast<int>(found - captions.begin());
}

const CuttingKey& FindKey(const std::string& name)
{
    const auto* found = std::find_if(std::begin(CuttingKeys), std::end(CuttingKeys),
                                     [&name](const CuttingKey& key) { return name == key.Name; });
    if (found == std::end(CuttingKeys)) {
        throw std::invalid_argument("no key " + name);
    }
    return *found;
}

/// Down, or Up where that is shorter, from field to field of a ring.
std::vector<std::string> KeysBetween(int from, int to, int count)
{
    const int down = (to - from + count) % count;
    const int up = count - down;
    return down <= up ? std::vector<std::string>(static_cast<std::size_t>(down), "Down")
                      : std::vector<std::string>(static_cast<std::size_t>(up), "Up");
}

void LinkOrCopy(const fs::path& from, const fs::path& to)
{
    std::error_code failed;
    fs::create_hard_link(from, to, failed);
    if (failed) {
        fs::copy_file(from, to);
    }
}

std::string WholeFile(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// Puts `key`=`value` into its section in place of the line that it had.
std::string WithKey(const std::string& settings, const std::string& section, const std::string& key,
                    const std::string& value)
{
    std::istringstream lines(settings);
    std::string text;
    bool inside = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("[")) {
            inside = line.starts_with("[" + section + "]");
            text += line + "\n";
            text += inside ? key + "=" + value + "\n" : "";
        } else if (!inside || !line.starts_with(key + "=")) {
            text += line + "\n";
        }
    }
    return text;
}
/// The right end of the row of tabs is bare ground, unless a box dims it.
bool BoxShows(const WindowStation& station)
{
    const Place corner = {station.Area.X + station.Area.Width - 4, station.Area.Y + 2, 1, 1};
    if (CountColor(Cut(station.Screen.Look(), corner), WindowGround) == 0) {
        return true;
    }
    const std::string active = station.Screen.ActiveWindow();
    return !active.empty() && active != station.Window;
}
} // namespace

WindowStation::WindowStation(Desktop& desktop) : Screen(desktop)
{
    fs::copy(KORVANTA_SOURCE_DIR "/station", Folder.Path, fs::copy_options::recursive);
    LinkOrCopy(KORVANTA_BINARY_DIR "/bin/korvanta", Folder.Path + "/korvanta");
    LinkOrCopy(KORVANTA_BINARY_DIR "/bin/korvanta-batch", Folder.Path + "/korvanta-batch");
    Set("SETUP", "LANGUAGE", "1");
    Set("SETUP", "SCREEN_RES", "1024x768");
    Set("SETUP", "EXIT_CONFIRM", "NO");
    Set("SETUP", "EXIT_PROGRAM", "NO");
}

/// A failed case leaves what was to be seen and what the program said.
WindowStation::~WindowStation()
{
    if (testing::Test::HasFailure()) {
        const auto* info = testing::UnitTest::GetInstance()->current_test_info();
        const fs::path folder = fs::path(KORVANTA_BINARY_DIR) / "test_window";
        fs::create_directories(folder);
        const std::string picture =
            (folder / (std::string(info->test_suite_name()) + "." + info->name() + ".png")).string();
        Screen.Photograph(picture);
        std::fprintf(stderr, "the screen: %s\nthe program%s: %s\n", picture.c_str(),
                     Program.Status.has_value() ? (", ended by " + std::to_string(*Program.Status)).c_str()
                                                : "",
                     WholeFile(Folder.Path + "/korvanta.log").c_str());
    }
    Program.Stop();
}

void WindowStation::Set(const std::string& section, const std::string& key, const std::string& value) const
{
    Folder.Write("Korvanta.ini", WithKey(Folder.Read("Korvanta.ini"), section, key, value));
}

std::vector<std::string> WindowStation::WholeEnvironment() const
{
    std::vector<std::string> all = {
        "DISPLAY=" + Screen.Display,
        "QT_QPA_PLATFORM=xcb",
        "WAYLAND_DISPLAY=",
        "HOME=" + Folder.Path,
        "TMPDIR=" + Folder.Path,
        "XDG_RUNTIME_DIR=" + Folder.Path,
        "XDG_CONFIG_HOME=" + Folder.Path,
        "LC_ALL=C.UTF-8",
    };
    all.insert(all.end(), Environment.begin(), Environment.end());
    return all;
}

void WindowStation::Launch(Process& process, const std::vector<std::string>& arguments) const
{
    std::vector<std::string> words = {Folder.Path + "/korvanta"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    process.Start({words, WholeEnvironment(), Folder.Path + "/korvanta.log", -1});
}

void WindowStation::Start(const std::vector<std::string>& arguments)
{
    Launch(Program, arguments);
    const bool shown = WaitFor(WindowSeconds, [this] {
        const std::vector<std::string> found = Screen.WindowsTitled(WindowTitle);
        Window = found.empty() ? "" : found[0];
        return !Program.Runs() || (!Window.empty() && Screen.ActiveWindow() == Window);
    });
    if (!shown || !Program.Runs()) {
        throw std::runtime_error("no window: " + Folder.Read("korvanta.log"));
    }
    Screen.WaitUntilStill();
    Area = Screen.PlaceOf(Window);
}

void WindowStation::Press(const std::vector<std::string>& keys) const
{
    Screen.Press(keys);
}

void WindowStation::Type(const std::string& text) const
{
    Screen.Type(text);
}

void WindowStation::AwaitBox() const
{
    EXPECT_TRUE(WaitFor(WindowSeconds, [this] { return BoxShows(*this); })) << "no box came";
}

void WindowStation::AwaitNoBox() const
{
    EXPECT_TRUE(WaitFor(WindowSeconds, [this] { return !BoxShows(*this); })) << "the box stays";
}

void WindowStation::AwaitCriticalError() const
{
    EXPECT_TRUE(WaitFor(WindowSeconds, [this] {
        const std::vector<std::string> found = Screen.WindowsTitled("Critical Error");
        return found.size() == 1 && Screen.ActiveWindow() == found[0];
    })) << "no box tells of a fault";
}

void WindowStation::GoToTab(int tab) const
{
    constexpr int TabCount = 6;
    const int steps = (tab - RectangularTab + TabCount) % TabCount;
    Press(std::vector<std::string>(static_cast<std::size_t>(steps), "F1"));
}

void WindowStation::Open() const
{
    Press({"F10"});
}

void WindowStation::TypeParameters(const std::vector<std::string>& values) const
{
    for (const std::string& value : values) {
        Type(value);
        Press({"Return"});
    }
}

void WindowStation::Walk(const Road& road) const
{
    Press({"F10"});
    constexpr auto CuttingFields = static_cast<int>(CuttingCaptions.size());
    constexpr auto NestingFields = static_cast<int>(NestingCaptions.size());
    bool nesting = false;
    int at = 0;
    for (const RoadStep& step : road) {
        const bool isKey = step.Caption == "key";
        const int cutting = isKey ? FindKey(step.Value).Field : IndexOf(CuttingCaptions, step.Caption);
        const int field = cutting >= 0 ? cutting : IndexOf(NestingCaptions, step.Caption);
        ASSERT_GE(field, 0) << step.Caption;
        ASSERT_FALSE(nesting && cutting >= 0) << "the steps of the Cutting screen come first";
        if (cutting < 0 && !nesting) {
            Press({"F10"});
            nesting = true;
            at = 0;
        }
        const int count = nesting ? NestingFields : CuttingFields;
        Press(KeysBetween(at, field, count));
        at = field;
        if (isKey) {
            Press({FindKey(step.Value).Key});
        } else {
            Type(step.Value);
            Press({"Return"});
            at = (at + 1) % count;
        }
    }
    if (!nesting) {
        Press({"F10"});
    }
}

std::string WindowStation::Save(const std::string& name) const
{
    Press({"F10"});
    Type(name);
    Press({"Return"});
    return AwaitProgram(name);
}

std::string WindowStation::Reference(const std::string& source, const std::vector<std::string>& options,
                                     const Road& road, const std::string& name) const
{
    std::vector<std::string> words = {Folder.Path + "/korvanta-batch", "--station", Folder.Path, source};
    words.insert(words.end(), options.begin(), options.end());
    for (const RoadStep& step : road) {
        words.insert(words.end(), {step.Caption == "key" ? "--key" : "--set",
                                   step.Caption == "key" ? step.Value : step.Caption + "=" + step.Value});
    }
    const TempFolder out;
    words.insert(words.end(), {"--program", name, "--out", out.Path, "--quiet"});
    const Finished finished = RunToEnd(words);
    EXPECT_EQ(finished.Status, 0) << finished.Errors;
    return out.Read(name + "." + Extension);
}

std::string WindowStation::AwaitProgram(const std::string& name) const
{
    const std::string path = Folder.Path + "/PROGRAM/" + name + "." + Extension;
    EXPECT_TRUE(WaitFor(WindowSeconds, [&path] { return fs::exists(path); })) << "no program " << name;
    return WholeFile(path);
}

void WindowStation::ExpectEnd(int status)
{
    const std::optional<int> ended = Program.WaitForEnd(WindowSeconds);
    ASSERT_TRUE(ended.has_value()) << "the program goes on";
    EXPECT_EQ(*ended, status);
}

bool WindowStation::Lives()
{
    return Program.Runs() && Screen.WindowsTitled(WindowTitle).size() == 1;
}

Pixels WindowStation::Look() const
{
    return Cut(Screen.Look(), Area);
}

Pixels WindowStation::LookAbove() const
{
    return Cut(Screen.Look(),
               {Area.X, Area.Y + TabsHeight, Area.Width * 7 / 10, Area.Height - TabsHeight - KeyBarHeight});
}

bool WindowStation::AwaitChange(const Pixels& before) const
{
    return WaitFor(WindowSeconds, [&] { return !Same(LookAbove(), before); });
}

Place WindowStation::AwaitFocusedField() const
{
    Place place;
    EXPECT_TRUE(WaitFor(WindowSeconds, [&] {
        place = BoxOfColor(Screen.Look(), FocusYellow);
        return place.Width > 0;
    })) << "no field has the focus";
    Screen.WaitUntilStill();
    return BoxOfColor(Screen.Look(), FocusYellow);
}

void WindowStation::ClickKey(int key, int times) const
{
    constexpr int Keys = 10;
    const int x = Area.X + Area.Width * (2 * key - 1) / (2 * Keys);
    const int y = Area.Y + Area.Height - KeyBarHeight / 2;
    for (int i = 0; i < times; ++i) {
        Screen.Click(x, y);
    }
}
