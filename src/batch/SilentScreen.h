// SilentScreen.h -- the screen seam without a window: what it was told to answer, and what it was shown.
#pragma once

#include "state/PprInputValue.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

struct SilentScreenRecord {
    std::array<std::optional<std::string>, PprInputSlots + 1>
        Inputs;                     ///< answers of the input dialog, from slot 1
    std::vector<std::string> Boxes; ///< text of each box that was shown, one line each
    bool Progress = false;          ///< a terminal is there to show progress on
};

extern SilentScreenRecord SilentScreen;

/// Takes a progress line that stands on the terminal away.
void ClearProgress();
