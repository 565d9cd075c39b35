// RecordingScreen.h -- the body of the screen seam for tests, and of the seam to a host: writes each call down, answers boxes
// from a script.
#pragma once

#include "platform/Host.h"
#include "platform/Screen.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

/// Thrown by EndProcess.
struct ProcessEnded {
    int Status = 0;
};

struct ScreenRecord {
    std::vector<std::string> Calls; ///< "focus TextCutting 3", "box a|b|c|two", "progress 12", ...
    std::deque<bool> BoxAnswers;    ///< answers of the next boxes; true when used up
    std::function<bool(const std::string& line1)> OnBox; ///< answers boxes by their first line
    std::function<void()> InputDialog;                   ///< plays the operator of the input dialog
    std::function<void(const ValueField*)>
        OnFocus;                            ///< plays the window when a field, or a list (null), is focused
    std::function<void()> OnYield;          ///< plays what arrives while the window catches up; once
    double Clock = 0.0;                     ///< ClockSeconds; grows by each pause
    double ClockTick = 0.0;                 ///< and by this much whenever it is read: how long a step takes
    std::int64_t Pauses = 0;                ///< calls of Pause
    std::function<void()> OnPause;          ///< plays what arrives in each of them
    std::vector<TopWindow> Windows;         ///< what stands on the desktop
    std::deque<std::int32_t> HostLanguages; ///< what the host answers, one after the other; 0 when used up
    int HostAnswers = -1;                   ///< calls that the host answers until it is gone; -1: all
    ListMetrics Metrics;                    ///< layout of every list
    std::int32_t PictureWidth = 640;
    std::int32_t PictureHeight = 480;
};

extern ScreenRecord Screen;

/// The last call that gave the focus to a control.
std::string LastFocus();

/// Empties the record and AppState (fields as designed): the start of every case.
void StartCase();
