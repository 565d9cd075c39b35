#include "support/SoakEvents.h"

#include "shell/KeyCodes.h"

#include <array>
#include <random>

namespace
{
using Random = std::mt19937;

/// 0 to count - 1. The standard distributions differ from library to library.
std::int32_t Below(Random& random, std::size_t count)
{
    return static_cast<std::int32_t>(random() % count);
}

bool OneIn(Random& random, std::uint32_t count)
{
    return random() % count == 0;
}

struct Weighted {
    std::int32_t Value;
    std::uint32_t Weight;
};

template <std::size_t Count> std::int32_t Pick(Random& random, const std::array<Weighted, Count>& rows)
{
    std::uint32_t sum = 0;
    for (const Weighted& row : rows) {
        sum += row.Weight;
    }
    std::uint32_t at = static_cast<std::uint32_t>(random()) % sum;
    for (const Weighted& row : rows) {
        if (at < row.Weight) {
            return row.Value;
        }
        at -= row.Weight;
    }
    return rows.front().Value;
}

constexpr std::array<Weighted, 15> Deeds = {{
    {static_cast<std::int32_t>(SoakDo::Key), 55},
    {static_cast<std::int32_t>(SoakDo::Button), 10},
    {static_cast<std::int32_t>(SoakDo::InputTab), 2},
    {static_cast<std::int32_t>(SoakDo::CamTab), 3},
    {static_cast<std::int32_t>(SoakDo::ListClick), 4},
    {static_cast<std::int32_t>(SoakDo::ListMove), 3},
    {static_cast<std::int32_t>(SoakDo::ListDouble), 2},
    {static_cast<std::int32_t>(SoakDo::Field), 6},
    {static_cast<std::int32_t>(SoakDo::Type), 16},
    {static_cast<std::int32_t>(SoakDo::MouseDown), 1},
    {static_cast<std::int32_t>(SoakDo::MouseMove), 1},
    {static_cast<std::int32_t>(SoakDo::MouseUp), 1},
    {static_cast<std::int32_t>(SoakDo::Activate), 1},
    {static_cast<std::int32_t>(SoakDo::Resize), 1},
    {static_cast<std::int32_t>(SoakDo::Files), 1},
}};

/// Keys that only the window's own controls know.
constexpr std::int16_t KeyBackspace = 8;
constexpr std::int16_t KeyTab = 9;
constexpr std::int16_t KeyEnd = 35;
constexpr std::int16_t KeyHome = 36;

/// The way forward more often than the way back, so that the screens behind the first one get their share.
constexpr std::array<Weighted, 26> Keys = {{
    {KeyEnter, 14}, {KeyEsc, 1}, {KeySpace, 2},     {KeyLeft, 3}, {KeyUp, 6},  {KeyRight, 3}, {KeyDown, 8},
    {KeyDelete, 1}, {KeyD, 1},   {KeyPad3, 2},      {KeyPad9, 2}, {KeyF1, 3},  {KeyF2, 5},    {KeyF3, 9},
    {KeyF4, 8},     {KeyF5, 7},  {KeyF6, 6},        {KeyF7, 4},   {KeyF8, 5},  {KeyF9, 5},    {KeyF10, 16},
    {65, 1},        {KeyTab, 2}, {KeyBackspace, 1}, {KeyHome, 1}, {KeyEnd, 1},
}};

constexpr const char* Texts[] = {
    "0",
    "1",
    "2",
    "3",
    "4",
    "7",
    "10",
    "12.5",
    "45",
    "90",
    "100",
    "180",
    "250",
    "360",
    "1000",
    "0.5",
    "0.01",
    "0.001",
    "-1",
    "-3",
    "-45.5",
    "-360",
    "-100",
    "-50",
    "-9999",
    "*1",
    "*3",
    "*12",
    "*0",
    "*-2",
    "*",
    "**5",
    "*2.7",
    "*999999",
    "99999",
    "999999",
    "1e5",
    "1e-7",
    "1e300",
    "-1e300",
    "1e999",
    "1E+3",
    ".",
    "-",
    "+",
    "..",
    "abc",
    "x",
    "",
    " ",
    "  5",
    "5  ",
    "1,5",
    "0x1F",
    "nan",
    "inf",
    "1/2",
    "JOB",
    "R_05",
    "r_05",
    "A.B",
    "A B",
    "SIMULA",
    "DATA",
    "*.*",
    "%",
    "NAME,X",
    "N;Y",
    "[0001]",
    "\xC3\x84",
    "\xE5\x90\x8D",
    "=",
};

std::string RandomText(Random& random)
{
    if (OneIn(random, 40)) {
        constexpr std::size_t Lengths[] = {60, 249, 252, 300, 5000};
        const char* fill = OneIn(random, 2) ? "9" : "W";
        std::string text;
        for (std::size_t length = Lengths[Below(random, std::size(Lengths))]; length > 0; --length) {
            text += fill;
        }
        return text;
    }
    if (OneIn(random, 3)) { // a plausible size
        return std::to_string(Below(random, 300)) +
               (OneIn(random, 2) ? "" : "." + std::to_string(Below(random, 1000)));
    }
    return Texts[Below(random, std::size(Texts))];
}

SoakAnswer RandomAnswer(Random& random)
{
    if (OneIn(random, 30)) {
        return SoakAnswer::Ok;
    }
    return OneIn(random, 3) ? SoakAnswer::Cancel : SoakAnswer::OkButStay;
}

SoakEvent RandomEvent(Random& random)
{
    constexpr std::int32_t Modifiers[] = {0, 0, 0, 0, 0, 1, 2, 4, 3};
    SoakEvent event;
    event.Do = static_cast<SoakDo>(Pick(random, Deeds));
    event.Answer = RandomAnswer(random);
    event.AtYield = OneIn(random, 12) ? static_cast<std::int16_t>(Pick(random, Keys)) : std::int16_t{0};
    switch (event.Do) {
    case SoakDo::Key:
        event.A = Pick(random, Keys);
        event.B = Modifiers[Below(random, std::size(Modifiers))];
        break;
    case SoakDo::Button:
        event.A = Pick(random, Keys) - KeyF1;
        event.A = event.A < 0 ? Below(random, 10) : event.A;
        break;
    case SoakDo::InputTab:
        event.A = Below(random, 6);
        break;
    case SoakDo::CamTab:
        event.A = Below(random, 3);
        break;
    case SoakDo::Type:
        event.Text = RandomText(random);
        event.B = OneIn(random, 4) ? 1 : 0;
        break;
    default:
        event.A = Below(random, 101);
        event.B = Below(random, 101);
        break;
    }
    return event;
}

SoakEvent Press(std::int16_t key)
{
    SoakEvent event;
    event.A = key;
    return event;
}

SoakEvent TypeText(const char* text)
{
    SoakEvent event;
    event.Do = SoakDo::Type;
    event.Text = text;
    return event;
}

/// A shape as a job, then back on a tab of the Input screen.
void SaveShape(std::vector<SoakEvent>& events, int steps, const char* name)
{
    SoakEvent tab;
    tab.Do = SoakDo::InputTab;
    tab.A = 1;
    events.push_back(tab);
    for (int step = 0; step < steps; ++step) {
        events.push_back(Press(KeyF3));
    }
    for (int screen = 0; screen < 3; ++screen) {
        events.push_back(Press(KeyF10));
    }
    events.push_back(TypeText("*2"));
    events.push_back(Press(KeyF10));
    events.push_back(TypeText(name));
    events.push_back(Press(KeyEnter));
}

const char* const DoNames[] = {"Key",       "Button",     "InputTab", "CamTab", "ListClick",
                               "ListMove",  "ListDouble", "Field",    "Type",   "MouseDown",
                               "MouseMove", "MouseUp",    "Activate", "Resize", "Files"};
const char* const AnswerNames[] = {"Cancel", "OkButStay", "Ok"};

std::string Literal(const std::string& text)
{
    constexpr char Digits[] = "0123456789abcdef";
    if (text.size() > 50 && text.find_first_not_of(text[0]) == std::string::npos) {
        return "std::string(" + std::to_string(text.size()) + ", '" + text[0] + "')";
    }
    std::string literal = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x80U) {
            literal += std::string("\\x") + Digits[byte >> 4U] + Digits[byte & 15U] + "\" \"";
        } else {
            literal += c == '"' || c == '\\' ? std::string("\\") + c : std::string(1, c);
        }
    }
    return literal + '"';
}
} // namespace

SoakSession MakeSoakSession(std::uint32_t seed, int count)
{
    Random random(seed);
    SoakSession session;
    session.Settings.Table = Below(random, SoakTables);
    session.Settings.Language = 1 + Below(random, 6);
    session.Settings.LostFocus = OneIn(random, 2);
    session.Settings.HandOver = OneIn(random, 2);
    session.Settings.Shown = OneIn(random, 4);
    if (OneIn(random, 2)) {
        SaveShape(session.Events, Below(random, 41), "JOB");
    }
    if (OneIn(random, 3)) {
        SaveShape(session.Events, Below(random, 10), "OTHER");
    }
    SoakEvent tab;
    tab.Do = SoakDo::InputTab;
    tab.A = Below(random, 6);
    session.Events.push_back(tab);
    for (int i = 0; i < count; ++i) {
        session.Events.push_back(RandomEvent(random));
    }
    return session;
}

std::string SoakCode(const SoakSession& session)
{
    const auto flag = [](bool on) { return on ? "true" : "false"; };
    const SoakSettings& settings = session.Settings;
    std::string code = "{{" + std::to_string(settings.Table) + ", " + std::to_string(settings.Language) +
                       ", " + flag(settings.LostFocus) + ", " + flag(settings.HandOver) + ", " +
                       flag(settings.Shown) + "},\n {\n";
    for (const SoakEvent& event : session.Events) {
        code += std::string("     {SoakDo::") + DoNames[static_cast<std::size_t>(event.Do)] + ", " +
                std::to_string(event.A) + ", " + std::to_string(event.B) + ", " + Literal(event.Text) +
                ", SoakAnswer::" + AnswerNames[static_cast<std::size_t>(event.Answer)] + ", " +
                std::to_string(event.AtYield) + "},\n";
    }
    return code + " }}";
}
