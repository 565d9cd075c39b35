#include "Desktop.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <poll.h>
#include <regex>
#include <sstream>
#include <stdexcept>
#include <unistd.h>

namespace
{
constexpr double StartSeconds = 20;

/// No key of its own but Alt+F4, so that all others reach the program; new windows get the focus.
constexpr const char* ManagerSettings = R"(<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><followMouse>no</followMouse></focus>
  <placement><policy>Smart</policy></placement>
  <theme><name>Clearlooks</name></theme>
  <desktops><number>1</number><popupTime>0</popupTime></desktops>
  <keyboard>
    <keybind key="A-F4"><action name="Close"/></keybind>
  </keyboard>
  <mouse>
    <context name="Client">
      <mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind>
    </context>
  </mouse>
</openbox_config>
)";

/// A number of the header of the display's memory: 32 bits, high byte first.
std::uint32_t HeaderWord(const std::string& bytes, std::size_t index)
{
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        word = word << 8U | static_cast<unsigned char>(bytes.at(4 * index + i));
    }
    return word;
}

std::vector<std::string> Lines(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

/// The number behind a label in a tool's answer.
int NumberBehind(const std::string& text, const std::string& label)
{
    const std::size_t at = text.find(label);
    return at == std::string::npos ? 0 : std::atoi(text.c_str() + at + label.size());
}

std::string KeyOfCharacter(char c)
{
    static const std::map<char, std::string> Signs = {{'*', "asterisk"},   {'.', "period"}, {'-', "minus"},
                                                      {'_', "underscore"}, {'+', "plus"},   {' ', "space"}};
    const auto sign = Signs.find(c);
    if (sign != Signs.end()) {
        return sign->second;
    }
    if (std::isalnum(static_cast<unsigned char>(c)) == 0) {
        throw std::invalid_argument(std::string("no key for ") + c);
    }
    return {c};
}
} // namespace

bool operator==(const Place& a, const Place& b)
{
    return a.X == b.X && a.Y == b.Y && a.Width == b.Width && a.Height == b.Height;
}

Pixels Cut(const Pixels& picture, const Place& place)
{
    const int left = std::clamp(place.X, 0, picture.Width);
    const int top = std::clamp(place.Y, 0, picture.Height);
    Pixels part;
    part.Width = std::clamp(place.X + place.Width, left, picture.Width) - left;
    part.Height = std::clamp(place.Y + place.Height, top, picture.Height) - top;
    for (int row = 0; row < part.Height; ++row) {
        const auto first = picture.Colors.begin() + std::ptrdiff_t{top + row} * picture.Width + left;
        part.Colors.insert(part.Colors.end(), first, first + part.Width);
    }
    return part;
}

bool Same(const Pixels& a, const Pixels& b)
{
    return a.Width == b.Width && a.Height == b.Height && a.Colors == b.Colors;
}

int CountColor(const Pixels& picture, std::uint32_t color)
{
    return static_cast<int>(std::count(picture.Colors.begin(), picture.Colors.end(), color));
}

Place BoxOfColor(const Pixels& picture, std::uint32_t color)
{
    int left = picture.Width;
    int top = picture.Height;
    int right = -1;
    int bottom = -1;
    for (int y = 0; y < picture.Height; ++y) {
        for (int x = 0; x < picture.Width; ++x) {
            if (picture.Colors[static_cast<std::size_t>(y * picture.Width + x)] == color) {
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
                bottom = std::max(bottom, y);
            }
        }
    }
    return right < 0 ? Place() : Place{left, top, right - left + 1, bottom - top + 1};
}

Desktop::Desktop(int width, int height, bool isManaged) : Width(width), Height(height)
{
    StartDisplay();
    if (isManaged) {
        StartWindowManager();
    }
    MovePointer(width - 1, height - 1);
}

void Desktop::StartDisplay()
{
    std::array<int, 2> pipeEnds{};
    if (pipe(pipeEnds.data()) != 0) {
        throw std::runtime_error("no pipe");
    }
    const std::string screen = std::to_string(Width) + "x" + std::to_string(Height) + "x24";
    Server.Start({{"Xvfb", "-displayfd", std::to_string(pipeEnds[1]), "-screen", "0", screen, "-dpi", "96",
                   "-nolisten", "tcp", "-noreset", "-fbdir", Scratch.Path},
                  {},
                  Scratch.Path + "/display.log",
                  pipeEnds[1]});
    close(pipeEnds[1]);
    std::string number;
    pollfd ready{pipeEnds[0], POLLIN, 0};
    while (number.find('\n') == std::string::npos &&
           poll(&ready, 1, static_cast<int>(StartSeconds) * 1000) > 0) {
        std::array<char, 16> bytes{};
        const ssize_t count = read(pipeEnds[0], bytes.data(), bytes.size());
        if (count <= 0) {
            break;
        }
        number.append(bytes.data(), static_cast<std::size_t>(count));
    }
    close(pipeEnds[0]);
    if (number.find('\n') == std::string::npos) {
        throw std::runtime_error("no display: " + Scratch.Read("display.log"));
    }
    Display = ":" + number.substr(0, number.find('\n'));
}

void Desktop::StartWindowManager()
{
    const std::string settings = Scratch.Write("rc.xml", ManagerSettings);
    Manager.Start({{"openbox", "--sm-disable", "--config-file", settings},
                   {"DISPLAY=" + Display, "HOME=" + Scratch.Path, "XDG_CONFIG_HOME=" + Scratch.Path},
                   Scratch.Path + "/manager.log",
                   -1});
    const bool there = WaitFor(StartSeconds, [this] {
        return Tool({"xprop", "-root", "_NET_SUPPORTING_WM_CHECK"}).Output.find("0x") != std::string::npos;
    });
    if (!there) {
        throw std::runtime_error("no window manager: " + Scratch.Read("manager.log"));
    }
}

Finished Desktop::Tool(std::vector<std::string> words) const
{
    return RunToEnd(words, {"DISPLAY=" + Display, "LC_ALL=C.UTF-8"});
}

void Desktop::Press(const std::vector<std::string>& keys) const
{
    if (keys.empty()) {
        return;
    }
    std::vector<std::string> words = {"xdotool", "key", "--delay", "0"};
    words.insert(words.end(), keys.begin(), keys.end());
    const Finished finished = Tool(words);
    EXPECT_EQ(finished.Status, 0) << finished.Errors;
}

void Desktop::Type(const std::string& text) const
{
    std::vector<std::string> keys;
    for (const char c : text) {
        keys.push_back(KeyOfCharacter(c));
    }
    Press(keys);
}

void Desktop::Click(int x, int y, int times) const
{
    EXPECT_EQ(Tool({"xdotool", "mousemove", std::to_string(x), std::to_string(y), "click", "--repeat",
                    std::to_string(times), "--delay", "20", "1"})
                  .Status,
              0);
}

void Desktop::MovePointer(int x, int y) const
{
    EXPECT_EQ(Tool({"xdotool", "mousemove", std::to_string(x), std::to_string(y)}).Status, 0);
}

void Desktop::Drag(int fromX, int fromY, int toX, int toY) const
{
    const auto text = [](int number) { return std::to_string(number); };
    EXPECT_EQ(Tool({"xdotool", "mousemove", text(fromX), text(fromY), "mousedown", "1", "mousemove",
                    text((fromX + toX) / 2), text((fromY + toY) / 2), "mousemove", text(toX), text(toY),
                    "mouseup", "1"})
                  .Status,
              0);
}

std::vector<std::string> Desktop::WindowsTitled(const std::string& title) const
{
    const std::string pattern = "^" + std::regex_replace(title, std::regex("\\."), "\\.") + "$";
    return Lines(Tool({"xdotool", "search", "--onlyvisible", "--name", pattern}).Output);
}

std::string Desktop::ActiveWindow() const
{
    const Finished finished = Tool({"xdotool", "getwindowfocus"});
    const std::vector<std::string> lines = Lines(finished.Output);
    return finished.Status == 0 && lines.size() == 1 && lines[0] != "1" ? lines[0] : "";
}

std::string Desktop::TitleOf(const std::string& window) const
{
    const std::vector<std::string> lines = Lines(Tool({"xdotool", "getwindowname", window}).Output);
    return lines.empty() ? "" : lines[0];
}

Place Desktop::PlaceOf(const std::string& window) const
{
    const std::string text = Tool({"xwininfo", "-id", window}).Output;
    return {NumberBehind(text, "Absolute upper-left X:"), NumberBehind(text, "Absolute upper-left Y:"),
            NumberBehind(text, "Width:"), NumberBehind(text, "Height:")};
}

void Desktop::Activate(const std::string& window) const
{
    EXPECT_EQ(Tool({"xdotool", "windowactivate", window}).Status, 0);
}

/// The display keeps its pixels in a file: a header of words, a table of colours, 32 bits for each pixel.
Pixels Desktop::Look() const
{
    constexpr std::size_t HeaderBytes = 100;
    constexpr std::size_t HeaderSize = 0;
    constexpr std::size_t BitsPerPixel = 11;
    constexpr std::size_t BytesPerLine = 12;
    constexpr std::size_t ColorCount = 19;
    constexpr std::size_t ColorBytes = 12;
    constexpr std::uint32_t ColorMask = 0xFFFFFF;
    std::ifstream file(Scratch.Path + "/Xvfb_screen0", std::ios::binary);
    std::string header(HeaderBytes, '\0');
    file.read(header.data(), static_cast<std::streamsize>(HeaderBytes));
    const auto width = static_cast<std::size_t>(Width);
    if (HeaderWord(header, BitsPerPixel) != 32 || HeaderWord(header, BytesPerLine) != 4 * width) {
        throw std::runtime_error("the display keeps other pixels than 32 bits each, line by line");
    }
    Pixels picture{Width, Height, std::vector<std::uint32_t>(width * static_cast<std::size_t>(Height))};
    file.seekg(HeaderWord(header, HeaderSize) + HeaderWord(header, ColorCount) * ColorBytes);
    // In the byte order of this machine, which the display runs on, too.
    file.read(reinterpret_cast<char*>(picture.Colors.data()),
              static_cast<std::streamsize>(4 * picture.Colors.size()));
    for (std::uint32_t& color : picture.Colors) {
        color &= ColorMask;
    }
    return picture;
}

bool Desktop::WaitUntilStill() const
{
    constexpr int StillPolls = 8;
    Pixels last = Look();
    int still = 0;
    return WaitFor(10, [&] {
        Pixels now = Look();
        still = Same(now, last) ? still + 1 : 0;
        last = std::move(now);
        return still >= StillPolls;
    });
}

void Desktop::Photograph(const std::string& path) const
{
    Tool({"import", "-window", "root", path});
}

Desktop& SharedDesktop()
{
    static Desktop desktop(1024, 768);
    return desktop;
}
