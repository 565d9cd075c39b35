// HostObjects.h -- what a station finds on the session bus: the panel with the language, and the programs.
#pragma once

#include <QString>

#include <cstdint>
#include <functional>
#include <vector>

/// A language that a station can be in, by the index that it asks for.
struct HostLanguageRow {
    std::int16_t Index;
    const char* Name;
};
inline constexpr HostLanguageRow HostLanguages[] = {
    {0, "English"}, {1, "Italian"}, {2, "German"}, {3, "French"}, {4, "Spanish"}, {5, "Chinese"},
};

struct HostRecord {
    std::int16_t Language = 0;
    QString Viewer;       ///< command that gets the program's path; empty: none
    bool Desktop = false; ///< without a viewer the desktop opens the program
    std::vector<std::function<void(const QString&)>> Tell; ///< each gets a line on all that happens
};

extern HostRecord Host;

/// A line on what has happened.
void TellHost(const QString& line);

/// Takes the name on the session bus and offers both objects; the end of the bus ends the program. False without a bus,
/// or when another host has the name; `reason` then tells which.
bool OfferHost(QString& reason);
