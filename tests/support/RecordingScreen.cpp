#include "support/RecordingScreen.h"

#include "platform/Fault.h"
#include "shell/ValueFields.h"
#include "state/AppState.h"
#include "support/RecordingSurface.h"

#include <algorithm>
#include <utility>

ScreenRecord Screen;

void StartCase()
{
    Screen = ScreenRecord();
    Drawn = SurfaceRecord();
    ResetAppState();
    ResetFields();
}

std::string LastFocus()
{
    const auto last = std::find_if(Screen.Calls.rbegin(), Screen.Calls.rend(),
                                   [](const std::string& call) { return call.starts_with("focus "); });
    return last == Screen.Calls.rend() ? "" : *last;
}

static std::string FieldName(const ValueField& field)
{
    if (&field == &AppState.TextFileName) {
        return "TextFileName";
    }
    return std::string(field.ControlName) + " " + std::to_string(field.Index);
}

void FocusField(const ValueField& field)
{
    Screen.Calls.push_back("focus " + FieldName(field));
    if (Screen.OnFocus) {
        Screen.OnFocus(&field);
    }
}

void FocusList(std::int16_t tab)
{
    Screen.Calls.push_back("focus list " + std::to_string(tab));
    if (Screen.OnFocus) {
        Screen.OnFocus(nullptr);
    }
}

ListMetrics MeasureList(std::int16_t)
{
    return Screen.Metrics;
}

void FocusInputRow(std::int16_t slot)
{
    Screen.Calls.push_back("focus input " + std::to_string(slot));
}

void SelectInputRow(std::int16_t slot)
{
    Screen.Calls.push_back("select input " + std::to_string(slot));
}

void SelectFieldText(const ValueField& field, std::int32_t start, std::int32_t length)
{
    Screen.Calls.push_back("select " + FieldName(field) + " " + std::to_string(start) + " " +
                           std::to_string(length));
}

void Yield()
{
    Screen.Calls.emplace_back("yield");
    if (Screen.OnYield) {
        const auto play = std::move(Screen.OnYield);
        Screen.OnYield = nullptr;
        play();
    }
}

double ClockSeconds()
{
    Screen.Clock += Screen.ClockTick;
    return Screen.Clock;
}

void Pause(double seconds)
{
    Screen.Clock += seconds;
    ++Screen.Pauses;
    if (Screen.OnPause) {
        Screen.OnPause();
    }
}

bool RunModalBox(const std::string& line1, const std::string& line2, const std::string& line3,
                 bool twoButtons)
{
    Screen.Calls.push_back("box " + line1 + "|" + line2 + "|" + line3 + (twoButtons ? "|two" : "|one"));
    if (Screen.OnBox) {
        return Screen.OnBox(line1);
    }
    if (Screen.BoxAnswers.empty()) {
        return true;
    }
    const bool answer = Screen.BoxAnswers.front();
    Screen.BoxAnswers.pop_front();
    return answer;
}

void RunSystemBox(const std::string& caption, const std::string& text)
{
    Screen.Calls.push_back("system box " + caption + "|" + text);
}

void EndProcess(int status)
{
    Screen.Calls.push_back("end " + std::to_string(status));
    throw ProcessEnded{status};
}

void RunInputDialog(const std::string& title)
{
    Screen.Calls.push_back("input " + title);
    if (Screen.InputDialog) {
        Screen.InputDialog();
    }
}

void ShowProgress(std::int32_t range)
{
    Screen.Calls.push_back("progress range " + std::to_string(range));
}

void SetProgress(std::int32_t value)
{
    Screen.Calls.push_back("progress " + std::to_string(value));
}

void HideProgress()
{
    Screen.Calls.emplace_back("progress off");
}

std::vector<TopWindow> ListTopWindows()
{
    return Screen.Windows;
}

void RaiseTopWindow(std::intptr_t handle)
{
    Screen.Calls.push_back("raise " + std::to_string(handle));
}

// --- the host -------------------------------------------------------------------------------------------------

static bool HostAnswers(const std::string& call)
{
    Screen.Calls.push_back(call);
    if (Screen.HostAnswers == 0) {
        return false;
    }
    Screen.HostAnswers -= Screen.HostAnswers > 0 ? 1 : 0;
    return true;
}

bool ReadHostLanguage(std::int32_t& index)
{
    if (!HostAnswers("host language")) {
        return false;
    }
    index = 0;
    if (!Screen.HostLanguages.empty()) {
        index = Screen.HostLanguages.front();
        Screen.HostLanguages.pop_front();
    }
    return true;
}

void AnnounceToHost(std::int32_t number)
{
    if (!HostAnswers("host announce " + std::to_string(number))) {
        throw RunTimeFault("no host");
    }
}

void OpenAtHost(const std::string& path, std::int32_t number)
{
    if (!HostAnswers("host open " + path + " " + std::to_string(number))) {
        throw RunTimeFault("no host");
    }
}
