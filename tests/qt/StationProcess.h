// StationProcess.h -- another station beside the one of a case: this test program once more, which starts as the
// station does and has no window.
#pragma once

#include <QProcess>
#include <QString>

inline constexpr const char* StationSwitch = "--station";

/// The other process: ends at once when a station is there already, else says "runs", says "raised" and its activation
/// token for each later start, and ends with its input.
int RunAsStation(int argc, char** argv);

/// The side of the case. The process sees the environment of this moment.
struct StationProcess {
    QProcess Process;
    QString Said; ///< all it wrote so far

    StationProcess();
    ~StationProcess();
    StationProcess(const StationProcess&) = delete;
    StationProcess& operator=(const StationProcess&) = delete;

    /// Waits until it has said `text`, while this process' own events go on. False when it ended or took too long.
    bool Says(const QString& text);

    /// Waits for its end; true when it gave way: status 0 and not a word.
    bool GivesWay();
};
