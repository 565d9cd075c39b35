#include "support/SoakRun.h"

#include "platform/Fault.h"
#include "state/AppState.h"
#include "support/SoakChecks.h"
#include "support/SoakStation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
extern "C" int __lsan_do_recoverable_leak_check();
#else
static int __lsan_do_recoverable_leak_check() // NOLINT: the sanitizer's own name
{
    return 0;
}
#endif

namespace
{
constexpr unsigned SessionSeconds = 120; ///< a session beyond it hangs
constexpr unsigned ReplaySeconds = 20;   ///< the same while a hanging one is shrunk
constexpr int MostHangs = 25;
constexpr const char* Hangs = "hangs";
constexpr int MostFailures = 3;
constexpr int MostReplays = 1500;
constexpr std::size_t LongestText = 500;
constexpr int StatusPlayed = 7; ///< of a child that came to the end of its events

/// What the child tells the parent, in memory that both see.
struct Shared {
    std::int32_t Events;
    std::int32_t Programs;
    std::int32_t Screens[4];
    bool Left;
    char Failure[LongestText + 1];
    char Fault[LongestText + 1];
};

Shared* Told = nullptr;
unsigned Limit = SessionSeconds; ///< of the sessions to come

void Tell(char (&place)[LongestText + 1], const std::string& text)
{
    if (place[0] == 0) {
        std::strncpy(place, text.c_str(), LongestText);
    }
}

void ClearTold()
{
    if (Told == nullptr) {
        void* memory =
            mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED) {
            std::abort();
        }
        Told = static_cast<Shared*>(memory);
    }
    *Told = Shared();
}

// --- the child ----------------------------------------------------------------------------------------------

void Fail(const std::string& text)
{
    Tell(Told->Failure, text);
}

void CountEvent(const std::string& programBefore, Flag savingBefore)
{
    ++Told->Events;
    ++Told->Screens[AppState.ScreenState & 3];
    const bool saved =
        savingBefore != FlagOff && AppState.SaveMode == FlagOff && AppState.ScreenState == ScreenInput;
    if (saved && (!AppState.ProgramPath.empty() || !programBefore.empty())) {
        ++Told->Programs;
        Tell(Told->Failure, BrokenFile(false));
    }
}

void PlayEvents(const SoakBody& body, const SoakSession& session)
{
    for (const SoakEvent& event : session.Events) {
        const std::string program = AppState.ProgramPath;
        const Flag saving = AppState.SaveMode;
        body.Play(event);
        if (Told->Left || Told->Fault[0] != 0) {
            break;
        }
        CountEvent(program, saving);
        Tell(Told->Failure, body.Broken());
        if (Told->Failure[0] != 0) {
            return;
        }
    }
}

[[noreturn]] void RunChild(const SoakBody& body, const SoakSession& session, const std::string& folder)
{
    alarm(Limit);
    try {
        body.Start(folder, session.Settings);
        Tell(Told->Failure, body.Broken());
        PlayEvents(body, session);
        Tell(Told->Failure, BrokenFile(Told->Fault[0] != 0));
        body.End();
    } catch (const std::exception& error) {
        Fail(std::string("exception: ") + error.what());
    }
    if (Told->Failure[0] == 0 && __lsan_do_recoverable_leak_check() != 0) {
        Fail("memory was lost");
    }
    std::fflush(nullptr);
    _exit(StatusPlayed);
}

/// The head of what the child said before it died.
std::string SaidBefore(std::FILE* said)
{
    std::rewind(said);
    std::string text(4000, '\0');
    text.resize(std::fread(text.data(), 1, text.size(), said));
    return text;
}

std::string FailureOf(int status, std::FILE* said)
{
    if (Told->Failure[0] != 0) {
        return Told->Failure;
    }
    if (Told->Fault[0] != 0) {
        return IsToldFault(Told->Fault) ? "" : std::string("fault: ") + Told->Fault;
    }
    if (WIFEXITED(status) && (WEXITSTATUS(status) == StatusPlayed || WEXITSTATUS(status) == 0)) {
        return "";
    }
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM) {
        return Hangs;
    }
    return "died with status " + std::to_string(status) + ": " + SaidBefore(said);
}
} // namespace

void TellSoakFault(const std::string& text)
{
    Tell(Told->Fault, text);
}

void TellSoakLeft()
{
    Told->Left = true;
}

SoakOutcome RunSoakSession(const SoakBody& body, const SoakSession& session)
{
    const TempFolder station;
    MakeSoakStation(station, session.Settings);
    ClearTold();
    std::fflush(nullptr);
    std::FILE* said = std::tmpfile();
    const pid_t child = fork();
    if (child == 0) {
        dup2(fileno(said), STDERR_FILENO);
        RunChild(body, session, station.Path);
    }
    int status = 0;
    waitpid(child, &status, 0);
    SoakOutcome outcome;
    outcome.Failure = FailureOf(status, said);
    outcome.Fault = Told->Fault;
    outcome.Left = Told->Left || (WIFEXITED(status) && WEXITSTATUS(status) == 0); // a window ends by itself
    outcome.Events = Told->Events;
    outcome.Programs = Told->Programs;
    std::copy(std::begin(Told->Screens), std::end(Told->Screens), outcome.Screens);
    std::fclose(said);
    return outcome;
}

// --- shrinking ------------------------------------------------------------------------------------------------

namespace
{
/// A failure without its numbers: the same bug shows others.
std::string KindOf(const std::string& failure)
{
    std::string kind;
    std::copy_if(failure.begin(),
                 failure.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(40, failure.size())),
                 std::back_inserter(kind), [](char c) { return (c < '0' || c > '9') && c != '-'; });
    return kind;
}

SoakSession Without(const SoakSession& session, std::size_t first, std::size_t count)
{
    SoakSession shorter = session;
    const auto from = shorter.Events.begin() + static_cast<std::ptrdiff_t>(first);
    shorter.Events.erase(from,
                         from + static_cast<std::ptrdiff_t>(std::min(count, session.Events.size() - first)));
    return shorter;
}
} // namespace

SoakSession ShrinkSoakSession(const SoakBody& body, const SoakSession& session, const std::string& failure)
{
    const std::string kind = KindOf(failure);
    const bool hangs = failure == Hangs;
    Limit = hangs ? ReplaySeconds : SessionSeconds;
    int replays = 0;
    const auto fails = [&](const SoakSession& candidate) {
        return ++replays <= (hangs ? MostHangs : MostReplays) &&
               KindOf(RunSoakSession(body, candidate).Failure) == kind;
    };
    SoakSession least = session;
    for (std::size_t chunk = (least.Events.size() + 1) / 2; chunk > 0;) {
        bool shorter = false;
        for (std::size_t at = 0; at < least.Events.size();) {
            SoakSession candidate = Without(least, at, chunk);
            if (fails(candidate)) {
                least = std::move(candidate);
                shorter = true;
            } else {
                at += chunk;
            }
        }
        chunk = shorter && chunk == 1 ? 1 : chunk / 2;
    }
    for (SoakEvent& event : least.Events) { // what arrives meanwhile mostly doesn't matter
        const std::int16_t key = event.AtYield;
        event.AtYield = 0;
        if (key != 0 && !fails(least)) {
            event.AtYield = key;
        }
    }
    Limit = SessionSeconds;
    return least;
}

// --- many sessions ----------------------------------------------------------------------------------------------

void Soak(const SoakBody& body, std::uint32_t firstSeed, int perSession, std::int64_t events)
{
    const auto began = std::chrono::steady_clock::now();
    SoakOutcome sum;
    std::int64_t played = 0;
    int faults = 0;
    int left = 0;
    int failures = 0;
    std::uint32_t seed = firstSeed;
    for (; played < events && failures < MostFailures; ++seed) {
        const SoakSession session = MakeSoakSession(seed, perSession);
        const SoakOutcome outcome = RunSoakSession(body, session);
        played += outcome.Events + 1;
        faults += outcome.Fault.empty() ? 0 : 1;
        left += outcome.Left ? 1 : 0;
        sum.Programs += outcome.Programs;
        for (int screen = 0; screen < 4; ++screen) {
            sum.Screens[screen] += outcome.Screens[screen];
        }
        if (!outcome.Failure.empty()) {
            ++failures;
            std::printf("seed %u fails behind event %d: %s\n", seed, outcome.Events, outcome.Failure.c_str());
            SoakSession known = session;
            known.Events.resize(std::min(known.Events.size(), static_cast<std::size_t>(outcome.Events) + 1));
            const SoakSession least = ShrinkSoakSession(body, known, outcome.Failure);
            ADD_FAILURE() << "seed " << seed << ", event " << outcome.Events << ": " << outcome.Failure
                          << "\n"
                          << SoakCode(least);
        }
    }
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count();
    std::printf(
        "seeds %u to %u: %lld events (%d, %d, %d, %d by screen), %d programs, %d times left, %d told faults, "
        "%.0f events per second\n",
        firstSeed, seed - 1, static_cast<long long>(played), sum.Screens[0], sum.Screens[1], sum.Screens[2],
        sum.Screens[3], sum.Programs, left, faults, static_cast<double>(played) / seconds);
}

std::int64_t SoakEventCount(std::int64_t usual)
{
    const char* asked = std::getenv("KORVANTA_SOAK_EVENTS");
    return asked != nullptr ? std::atoll(asked) : usual;
}

std::uint32_t SoakFirstSeed()
{
    const char* asked = std::getenv("KORVANTA_SOAK_SEED");
    return asked != nullptr ? static_cast<std::uint32_t>(std::atoll(asked)) : 1U;
}
