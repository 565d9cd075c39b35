// The body of the screen seam for the window.
#include "platform/Screen.h"
#include "qt/LateKeys.h"
#include "qt/Mirror.h"
#include "qt/ModalBox.h"
#include "qt/StationWindow.h"
#include "qt/TopWindows.h"
#include "qt/WindowEvents.h"
#include "shell/Korvanta_InputParamPPR.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QMessageBox>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace
{
constexpr double ProgressSeconds = 0.025; ///< between two movements of the progress bar

template <std::size_t Count>
QLineEdit* FindEdit(const std::array<FieldRow, Count>& rows, const std::array<ValueField, Count>& fields,
                    const ValueField& field)
{
    for (std::size_t i = 0; i < Count; ++i) {
        if (&fields[i] == &field) {
            return rows[i].Edit;
        }
    }
    return nullptr;
}

QLineEdit* EditOf(const ValueField& field)
{
    if (&field == &AppState.TextFileName) {
        return Window.TextFileName;
    }
    for (QLineEdit* edit : {FindEdit(Window.Cutting, AppState.TextCutting, field),
                            FindEdit(Window.Nesting, AppState.TextNesting, field),
                            FindEdit(Window.Params, AppState.ParamText, field)}) {
        if (edit != nullptr) {
            return edit;
        }
    }
    return nullptr;
}

/// Units of UTF-16 of the first `count` characters: those of the rarer Chinese letters are two.
int UnitsOf(const QString& text, std::int32_t count)
{
    int units = 0;
    for (std::int32_t passed = 0; passed < count && units < text.size(); ++passed) {
        const bool pair =
            text[units].isHighSurrogate() && units + 1 < text.size() && text[units + 1].isLowSurrogate();
        units += pair ? 2 : 1;
    }
    return units;
}

bool HasWindow()
{
    return Window.Main != nullptr;
}
} // namespace

void FocusField(const ValueField& field)
{
    QLineEdit* edit = EditOf(field);
    if (HasWindow() && edit != nullptr) {
        MirrorRecords();
        MoveFocusTo(edit);
        MirrorRecords();
    }
}

void FocusList(std::int16_t tab)
{
    if (HasWindow() && tab >= 0 && tab < InputTabCount) {
        MirrorRecords();
        MoveFocusTo(Window.Lists[static_cast<std::size_t>(tab)]);
        MirrorRecords();
    }
}

ListMetrics MeasureList(std::int16_t tab)
{
    if (!HasWindow()) {
        return {};
    }
    MirrorRecords();
    return MeasureShownList(tab);
}

void FocusInputRow(std::int16_t slot)
{
    FocusDialogRow(slot);
}

void SelectInputRow(std::int16_t slot)
{
    SelectDialogRow(slot);
}

void SelectFieldText(const ValueField& field, std::int32_t start, std::int32_t length)
{
    QLineEdit* edit = EditOf(field);
    if (!HasWindow() || edit == nullptr) {
        return;
    }
    MirrorRecords();
    const int from = UnitsOf(edit->text(), start);
    // A routine may also run because the program set the text: a mark there would look like a second focus.
    if (length > 0 && edit == Window.Focus) {
        edit->setSelection(from, UnitsOf(edit->text(), start + length) - from);
    } else {
        edit->deselect();
        edit->setCursorPosition(from);
    }
}

/// What is typed meanwhile waits until the routine at work is through.
void Yield()
{
    MirrorRecords();
    const bool outer = Window.Yielding;
    Window.Yielding = true;
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    Window.Yielding = outer;
    PostLateKeys();
}

double ClockSeconds()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

/// An event loop of its own, so that a key is dealt with at once, and not when the time is over.
void Pause(double seconds)
{
    if (!HasWindow()) {
        return;
    }
    MirrorRecords();
    if (!(seconds > 0.0)) {
        QCoreApplication::processEvents();
        return;
    }
    QEventLoop loop;
    const std::chrono::duration<double> time(seconds);
    QTimer::singleShot(std::chrono::ceil<std::chrono::milliseconds>(time), Qt::PreciseTimer, &loop,
                       &QEventLoop::quit);
    loop.exec();
}

bool RunModalBox(const std::string& line1, const std::string& line2, const std::string& line3,
                 bool twoButtons)
{
    MirrorRecords();
    return RunStationBox(line1, line2, line3, twoButtons);
}

void RunSystemBox(const std::string& caption, const std::string& text)
{
    std::fprintf(stderr, "korvanta: %s: %s\n", caption.c_str(), text.c_str());
    QMessageBox box(QMessageBox::Critical, FromText(caption), FromText(text), QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

/// At once, in the middle of whatever runs: nothing is unwound, what was written has been closed.
void EndProcess(int status)
{
    ReleaseStationLock();
    if (HasWindow()) {
        Window.Main->hide();
    }
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    std::fflush(nullptr);
    std::_Exit(status);
}

void RunInputDialog(const std::string& title)
{
    OpenInputDialog(title);
    MirrorRecords();
    RunStationDialog();
    CloseInputDialog();
}

void ShowProgress(std::int32_t range)
{
    Window.Progress->setRange(0, std::max(1, range));
    Window.Progress->setValue(0);
    Window.Progress->show();
    Window.Progress->raise();
    Window.Progress->repaint();
    Window.ProgressSeen = ClockSeconds();
}

/// The window lives from one movement of the bar to the next, and no more often than an eye can see: the program is the
/// work, not the bar.
void SetProgress(std::int32_t value)
{
    if (value < 0 || value > Window.Progress->maximum()) {
        return;
    }
    const double now = ClockSeconds();
    if (now - Window.ProgressSeen < ProgressSeconds) {
        return;
    }
    Window.Progress->setValue(value);
    Yield();
    Window.ProgressSeen = ClockSeconds();
}

void HideProgress()
{
    Window.Progress->hide();
}
