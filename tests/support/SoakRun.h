// SoakRun.h -- sessions of hard use, each in a process of its own: it may crash, hang or end itself, and it still counts.
// What fails is shrunk to the few events that matter, and printed as C++.
#pragma once

#include "support/SoakEvents.h"

#include <cstdint>
#include <string>

/// What plays the events: on the recorder, or in the window.
struct SoakBody {
    /// Opens the station of `folder`.
    void (*Start)(const std::string& folder, const SoakSettings& settings);
    void (*Play)(const SoakEvent& event);
    /// The first rule that is broken behind an event, empty when all hold.
    std::string (*Broken)();
    /// Closes what Start made.
    void (*End)();
};

/// What a session came to.
struct SoakOutcome {
    std::string Failure; ///< what broke, and behind which event; empty: nothing
    std::string Fault;   ///< the fault that ended the station as told
    bool Left = false;   ///< the operator left the program
    std::int32_t Events = 0;
    std::int32_t Programs = 0;    ///< NC programs written
    std::int32_t Screens[4] = {}; ///< events on each screen
};

/// Plays a session in a child process, on a fresh copy of the sample station.
SoakOutcome RunSoakSession(const SoakBody& body, const SoakSession& session);

/// For the body, in the child: a fault that its window would end the program with.
void TellSoakFault(const std::string& text);
void TellSoakLeft();

/// Leaves events out of a failing session as long as it fails the same way.
SoakSession ShrinkSoakSession(const SoakBody& body, const SoakSession& session, const std::string& failure);

/// Plays seeds from `firstSeed` on, `perSession` events each, until `events` were played. A failure is shrunk and fails
/// the case; after three of them it is enough. Counts go to standard output.
void Soak(const SoakBody& body, std::uint32_t firstSeed, int perSession, std::int64_t events);

/// Events that KORVANTA_SOAK_EVENTS asks for, and the first seed that KORVANTA_SOAK_SEED tells.
std::int64_t SoakEventCount(std::int64_t usual);
std::uint32_t SoakFirstSeed();
