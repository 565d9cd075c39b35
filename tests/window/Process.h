// Process.h -- programs that a case starts: each is over when its record is, and at the latest with the case's own
// process.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

/// Polls `holds` until it is true; false when `seconds` have passed before.
bool WaitFor(double seconds, const std::function<bool()>& holds);

/// What a program is started with.
struct ProcessStart {
    std::vector<std::string> Words; ///< the program, a path or a name on PATH, and its arguments
    std::vector<std::string>
        Environment;   ///< NAME=VALUE on top of this process's own, NAME= is an empty value
    std::string Log;   ///< file for standard output and, without an ErrorLog, standard error; empty: nowhere
    int KeptFile = -1; ///< file descriptor that stays open in the program
    std::string ErrorLog = {}; ///< file for standard error alone; empty: it goes with standard output
};

struct Process {
    Process() = default;
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    void Start(const ProcessStart& start);

    /// True until it has ended.
    bool Runs();

    /// The exit status; -n when signal n ended it; nothing when it still runs after `seconds`.
    std::optional<int> WaitForEnd(double seconds);

    /// Ends it by force.
    void Stop();

    pid_t Id = 0; ///< 0 before the start and after the end
    std::optional<int> Status;
};

/// What a short run left.
struct Finished {
    int Status = -1;
    std::string Output; ///< standard output
    std::string Errors; ///< standard error: no answer, but what a tool has to say about itself
};

/// Runs to the end, for `seconds` at most.
Finished RunToEnd(const std::vector<std::string>& words, const std::vector<std::string>& environment = {},
                  double seconds = 20);
