// SoakEvents.h -- hard use of the station: what an operator might do, from a seeded generator. The events know nothing of
// the state that they meet, so any part of a list of them can be played: a failure is shrunk by leaving events out.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

enum class SoakDo : std::int16_t {
    Key,        ///< A: key code, B: held keys; in the control with the focus
    Button,     ///< A: button of the key bar
    InputTab,   ///< A: tab
    CamTab,     ///< A: tab
    ListClick,  ///< A: item of the list in front, counted around; one number is the place beside all items
    ListMove,   ///< A: item that the list's own keys move to
    ListDouble, ///< A: item
    Field,      ///< A: field of the screen that is clicked, counted around; on the Input screen the name
    Type,       ///< Text into the field with the focus; B: 0 over the old text, 1 behind it
    MouseDown,  ///< A, B: place in hundredths of the picture
    MouseMove,
    MouseUp,
    Activate, ///< the window becomes the active one
    Resize,   ///< A, B: the window's size in hundredths of a usual one
    Files,    ///< A: somebody else changes the files of the station, see DisturbFiles
};

/// How a box is answered that comes up meanwhile.
enum class SoakAnswer : std::int16_t {
    Cancel,
    OkButStay, ///< OK, but Cancel to the question whether to leave the program
    Ok,
};

struct SoakEvent {
    SoakDo Do = SoakDo::Key;
    std::int32_t A = 0;
    std::int32_t B = 0;
    std::string Text;
    SoakAnswer Answer = SoakAnswer::OkButStay;
    std::int16_t AtYield = 0; ///< key that arrives while the window catches up, 0 none
};

/// The station's settings in a session.
struct SoakSettings {
    int Table = 0;    ///< post-processor table, 0 to SoakTables - 1
    int Language = 1; ///< 1 to 6
    bool LostFocus = false;
    bool HandOver = false;
    bool Shown = false; ///< the pictures are drawn, though nobody sees them
};

inline constexpr int SoakTables = 3;

struct SoakSession {
    SoakSettings Settings;
    std::vector<SoakEvent> Events;
};

/// The session of a seed, always the same one: saves a job or two, then `count` random events.
SoakSession MakeSoakSession(std::uint32_t seed, int count);

/// As C++ that a test can hold.
std::string SoakCode(const SoakSession& session);
