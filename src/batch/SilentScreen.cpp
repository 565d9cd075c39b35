#include "batch/SilentScreen.h"

#include "config/Korvanta_Utility.h"
#include "platform/Host.h"
#include "platform/Screen.h"
#include "state/AppState.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>

SilentScreenRecord SilentScreen;

namespace
{
using Clock = std::chrono::steady_clock;

/// A run that is over sooner shows nothing.
constexpr std::chrono::milliseconds ProgressDelay{500};

/// The progress line on the terminal.
struct ProgressLine {
    std::int32_t Range = 0;
    std::int32_t Shown = -1; ///< percent on the terminal, -1 none
    Clock::time_point Start;
};

ProgressLine Line;

/// The option equal to `wanted` without regard to case, else the first.
std::string PickOption(const std::string& options, const std::string& wanted)
{
    std::size_t from = 0;
    while (from <= options.size()) {
        const std::size_t bar = std::min(options.find('|', from), options.size());
        std::string option = options.substr(from, bar - from);
        if (UpperCase(option) == UpperCase(wanted)) {
            return option;
        }
        from = bar + 1;
    }
    return options.substr(0, options.find('|'));
}
} // namespace

void ClearProgress()
{
    if (Line.Shown >= 0) {
        std::fputs("\r\x1b[K", stderr);
        Line.Shown = -1;
    }
}

void FocusField(const ValueField&) {}

void FocusList(std::int16_t) {}

ListMetrics MeasureList(std::int16_t)
{
    return {};
}

void FocusInputRow(std::int16_t) {}

void SelectInputRow(std::int16_t) {}

void SelectFieldText(const ValueField&, std::int32_t, std::int32_t) {}

void Yield() {}

double ClockSeconds()
{
    return std::chrono::duration<double>(Clock::now().time_since_epoch()).count();
}

void Pause(double) {}

bool RunModalBox(const std::string& line1, const std::string& line2, const std::string& line3, bool)
{
    std::string text;
    for (const std::string& part : {line1, line2, line3}) {
        text += text.empty() || part.empty() ? "" : " ";
        text += part;
    }
    SilentScreen.Boxes.push_back(text);
    return true;
}

void RunSystemBox(const std::string& caption, const std::string& text)
{
    std::fprintf(stderr, "korvanta-batch: %s: %s\n", caption.c_str(), text.c_str());
    std::fputs("--station DIR names the folder of the station.\n", stderr);
}

void EndProcess(int status)
{
    if (status != 0) {
        for (const std::string& box : SilentScreen.Boxes) {
            std::fprintf(stderr, "korvanta-batch: %s\n", box.c_str());
        }
    }
    std::exit(status);
}

void RunInputDialog(const std::string&)
{
    for (std::size_t slot = 1; slot <= PprInputSlots; ++slot) {
        PprInputValue& input = AppState.PprInput[slot];
        if (input.Kind == 'N') {
            continue;
        }
        const std::string answer = SilentScreen.Inputs[slot].value_or(input.Value);
        input.Value = input.Kind == 'T' ? PickOption(input.Options, answer) : answer;
    }
}

void ShowProgress(std::int32_t range)
{
    Line.Range = range;
    Line.Shown = -1;
    Line.Start = Clock::now();
}

void SetProgress(std::int32_t value)
{
    if (!SilentScreen.Progress || value < 0 || value > Line.Range || Line.Range < 1) {
        return;
    }
    const auto percent = static_cast<std::int32_t>(std::int64_t{100} * value / Line.Range);
    if (percent == Line.Shown || Clock::now() - Line.Start < ProgressDelay) {
        return;
    }
    Line.Shown = percent;
    std::fprintf(stderr, "\rWriting the program: %3d %%", percent);
}

void HideProgress()
{
    ClearProgress();
}

std::vector<TopWindow> ListTopWindows()
{
    return {}; // runs side by side are no matter
}

void RaiseTopWindow(std::intptr_t) {}

// The tool runs under no host.

bool ReadHostLanguage(std::int32_t&)
{
    return false;
}

void AnnounceToHost(std::int32_t) {}

void OpenAtHost(const std::string&, std::int32_t) {}
