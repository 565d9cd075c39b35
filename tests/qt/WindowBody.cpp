#include "qt/WindowBody.h"

#include "qt/Mirror.h"
#include "qt/PictureBoxes.h"
#include "qt/StationWindow.h"
#include "shell/KeyCodes.h"
#include "shell/Korvanta_Interface.h"
#include "shell/MsgBox_Unicode.h"
#include "shell/ValueFields.h"
#include "support/SoakChecks.h"
#include "support/SoakStation.h"

#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <array>
#include <cstdlib>
#include <unistd.h>

namespace
{
constexpr int LeaveQuestion = 32;
constexpr int StatusPlayed = 7;
constexpr int MostYields = 200; ///< of a simulation, before its stop key is pressed

/// What plays the operator of boxes and dialogs, and presses the stop key: a timer that fires in every loop of events.
QTimer* Operator = nullptr;
SoakEvent Current;
int Turns = 0;
int DialogKeys = 0;
bool WalkPrevented = false;

// --- boxes and dialogs ------------------------------------------------------------------------------------------

void AnswerBox(QWidget* box)
{
    const auto* line = box->findChild<QLabel*>("Label1 0");
    const bool leaves = line != nullptr && ToText(line->text()) == MessageText(LeaveQuestion);
    const bool ok = Current.Answer == SoakAnswer::Ok || (Current.Answer == SoakAnswer::OkButStay && !leaves);
    QTest::keyClick(box, ok ? Qt::Key_F10 : Qt::Key_F1);
}

/// Through the rows by Enter, with something typed, and out.
void AnswerDialog(QWidget* dialog)
{
    constexpr int EnoughKeys = 12;
    QWidget* focus = Window.Main->focusWidget();
    QWidget* target = focus != nullptr && dialog->isAncestorOf(focus) ? focus : dialog;
    ++DialogKeys;
    if (DialogKeys >= EnoughKeys) {
        QTest::keyClick(dialog, Qt::Key_F10);
    } else {
        QTest::keyClick(target, DialogKeys % 3 == 0   ? Qt::Key_Return
                                : DialogKeys % 3 == 1 ? Qt::Key_7
                                                      : Qt::Key_Down);
    }
}

bool IsOpen(const QWidget* panel)
{
    return panel != nullptr && panel->isVisible();
}

QWidget* OpenPanel(const char* name)
{
    for (QWidget* panel : Window.Main->findChildren<QWidget*>(name)) {
        if (IsOpen(panel)) {
            return panel;
        }
    }
    return nullptr;
}

/// The box of a fault is the last thing that a station shows.
void EndAtFault()
{
    if (const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        TellSoakFault(box->text().toStdString());
        _exit(StatusPlayed);
    }
}

/// A simulation that nobody waits for isn't started, a long one is stopped.
void WatchWalk()
{
    if (AppState.SimRunning == FlagOff && AppState.ScreenState == ScreenNesting && WalkIsLong()) {
        AppState.SimRunning = FlagOn;
        WalkPrevented = true;
    } else if (AppState.SimRunning != FlagOff && !WalkPrevented && ++Turns > MostYields) {
        AppState.SimStop = FlagOn;
    }
}

void Operate()
{
    EndAtFault();
    if (QWidget* box = OpenPanel("MsgBox_Unicode")) {
        AnswerBox(box);
    } else if (QWidget* dialog = OpenPanel("Korvanta_InputParamPPR")) {
        AnswerDialog(dialog);
    } else if (!Window.Modal) {
        WatchWalk();
    }
}

// --- events -----------------------------------------------------------------------------------------------------

QWidget* FocusedControl()
{
    QWidget* focus = Window.Main->focusWidget();
    return focus != nullptr ? focus : Window.Main;
}

struct KeyRow {
    std::int16_t Code;
    Qt::Key Key;
    Qt::KeyboardModifier Held;
};

constexpr KeyRow KeyRows[] = {
    {KeyEnter, Qt::Key_Return, Qt::NoModifier},
    {KeyEsc, Qt::Key_Escape, Qt::NoModifier},
    {KeySpace, Qt::Key_Space, Qt::NoModifier},
    {KeyLeft, Qt::Key_Left, Qt::NoModifier},
    {KeyUp, Qt::Key_Up, Qt::NoModifier},
    {KeyRight, Qt::Key_Right, Qt::NoModifier},
    {KeyDown, Qt::Key_Down, Qt::NoModifier},
    {KeyDelete, Qt::Key_Delete, Qt::NoModifier},
    {8, Qt::Key_Backspace, Qt::NoModifier},
    {9, Qt::Key_Tab, Qt::NoModifier},
    {35, Qt::Key_End, Qt::NoModifier},
    {36, Qt::Key_Home, Qt::NoModifier},
    {KeyPad3, Qt::Key_PageDown, Qt::KeypadModifier},
    {KeyPad9, Qt::Key_PageUp, Qt::KeypadModifier},
};

void PressKey(std::int16_t code, std::int32_t shift)
{
    Qt::KeyboardModifiers held = Qt::NoModifier;
    held.setFlag(Qt::ShiftModifier, (shift & 1) != 0);
    held.setFlag(Qt::ControlModifier, (shift & 2) != 0);
    held.setFlag(Qt::AltModifier, (shift & 4) != 0);
    if (code >= KeyF1 && code <= KeyF10) {
        QTest::keyClick(FocusedControl(), static_cast<Qt::Key>(Qt::Key_F1 + (code - KeyF1)), held);
        return;
    }
    for (const KeyRow& row : KeyRows) {
        if (row.Code == code) {
            QTest::keyClick(FocusedControl(), row.Key, held | row.Held);
            return;
        }
    }
    QTest::keyClick(FocusedControl(), static_cast<Qt::Key>(code), held); // letters have their own code
}

void ClickTab(QTabBar* tabs, std::int32_t tab)
{
    if (tabs->isVisible()) {
        QTest::mouseClick(tabs, Qt::LeftButton, Qt::NoModifier, tabs->tabRect(tab).center());
    }
}

void UseList(const SoakEvent& event)
{
    QListWidget* list = Window.Lists[static_cast<std::size_t>(AppState.FrontList)];
    if (!list->isVisible()) {
        return;
    }
    if (event.Do == SoakDo::ListMove) {
        constexpr Qt::Key Moves[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up,
                                     Qt::Key_Down, Qt::Key_Home,  Qt::Key_End};
        if (list->hasFocus() || Window.Focus == list) {
            QTest::keyClick(list, Moves[static_cast<std::size_t>(event.A) % std::size(Moves)]);
        }
        return;
    }
    const int item = event.A % (list->count() + 1) - 1;
    QPoint place(list->viewport()->width() - 2, list->viewport()->height() - 2);
    if (item >= 0) {
        list->scrollToItem(list->item(item));
        place = list->visualItemRect(list->item(item)).center();
    }
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    if (event.Do == SoakDo::ListDouble && list->isVisible()) {
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    }
}

template <std::size_t Count> QLineEdit* EditAt(const std::array<FieldRow, Count>& rows, std::int32_t number)
{
    return rows[static_cast<std::size_t>(number) % Count].Edit;
}

void ClickField(std::int32_t number)
{
    QLineEdit* edit = AppState.ScreenState == ScreenParameters ? EditAt(Window.Params, number)
                      : AppState.ScreenState == ScreenCutting  ? EditAt(Window.Cutting, number)
                      : AppState.ScreenState == ScreenNesting  ? EditAt(Window.Nesting, number)
                                                               : Window.TextFileName;
    if (edit->isVisible()) {
        QTest::mouseClick(edit, Qt::LeftButton);
    }
}

void TypeText(const SoakEvent& event)
{
    constexpr int LongestTyped = 12;
    auto* edit = qobject_cast<QLineEdit*>(FocusedControl());
    if (edit == nullptr) {
        return;
    }
    if (event.B == 0) {
        edit->selectAll();
    } else {
        edit->end(false);
    }
    const QString text = FromText(event.Text);
    if (text.isEmpty()) {
        QTest::keyClick(edit, Qt::Key_Backspace);
    } else if (text.size() > LongestTyped || text.toLatin1() != text.toUtf8()) {
        QApplication::clipboard()->setText(text);
        edit->paste();
    } else {
        for (int i = 0; i < text.size() && FocusedControl() == edit; ++i) {
            QTest::keyClick(edit, text[i].toLatin1());
        }
    }
}

void UseMouse(const SoakEvent& event)
{
    constexpr int Hundred = 100;
    QWidget* box = PictureBox(AppState.ScreenState == ScreenCutting ? Picture::Tecno : Picture::Nesting);
    if (!box->isVisible()) {
        return;
    }
    const QPoint place(box->width() * event.A / Hundred, box->height() * event.B / Hundred);
    if (event.Do == SoakDo::MouseDown) {
        QTest::mousePress(box, Qt::LeftButton, Qt::NoModifier, place);
    } else if (event.Do == SoakDo::MouseMove) {
        QTest::mouseMove(box, place);
    } else {
        QTest::mouseRelease(box, event.B % 4 != 0 ? Qt::LeftButton : Qt::RightButton, Qt::NoModifier, place);
    }
}

/// The simulation of a nest that nobody can cut isn't started from its field.
bool WouldSimulateLong(const SoakEvent& event)
{
    constexpr std::int32_t ModeSimulation = 7;
    return (event.Do == SoakDo::Key || event.Do == SoakDo::Button) && AppState.ScreenState == ScreenNesting &&
           AppState.FieldMode == ModeSimulation &&
           event.A >= (event.Do == SoakDo::Key ? KeyF3 : KeyF3 - KeyF1) &&
           event.A <= (event.Do == SoakDo::Key ? KeyF8 : KeyF8 - KeyF1) && WalkIsLong();
}

/// A program of such a nest isn't written: in SaveMode no key comes through that could do so.
bool WouldSaveLong(const SoakEvent& event)
{
    return AppState.SaveMode != FlagOff && WalkIsLong() &&
           (event.Do == SoakDo::ListDouble || event.Do == SoakDo::Key || event.Do == SoakDo::Button) &&
           event.A != KeyF9 && event.A != KeyF9 - KeyF1;
}

void RunEvent(const SoakEvent& event)
{
    switch (event.Do) {
    case SoakDo::Key:
        PressKey(static_cast<std::int16_t>(event.A), event.B);
        break;
    case SoakDo::Button:
        QTest::mouseClick(Window.Keys[static_cast<std::size_t>(event.A)], Qt::LeftButton);
        break;
    case SoakDo::InputTab:
        ClickTab(Window.InputTabs, event.A);
        break;
    case SoakDo::CamTab:
        ClickTab(Window.CamTabs, event.A);
        break;
    case SoakDo::Field:
        ClickField(event.A);
        break;
    case SoakDo::Type:
        TypeText(event);
        break;
    case SoakDo::Activate: {
        QEvent activate(QEvent::WindowActivate);
        QApplication::sendEvent(Window.Main, &activate);
        break;
    }
    case SoakDo::Resize:
        Window.Main->resize(8 * event.A + 1, 6 * event.B + 1);
        break;
    case SoakDo::Files:
        DisturbFiles(event.A);
        break;
    case SoakDo::MouseDown:
    case SoakDo::MouseMove:
    case SoakDo::MouseUp:
        UseMouse(event);
        break;
    default:
        UseList(event);
        break;
    }
}

// --- what the window must show --------------------------------------------------------------------------------------

bool Wanted(Panel panel)
{
    return AppState.PanelVisible[static_cast<std::size_t>(panel)] != FlagOff;
}

std::string BrokenPanels()
{
    const std::pair<QWidget*, Panel> rows[] = {
        {Window.InputPanel, Panel::TabInput},
        {Window.CamPanel, Panel::TabCam},
    };
    const std::pair<QWidget*, Panel> inner[] = {
        {PictureBox(Picture::Param), Panel::PicParam},     {PictureBox(Picture::Tecno), Panel::TecnoPic},
        {PictureBox(Picture::Nesting), Panel::NestingPic}, {Window.FrameValue, Panel::FrameValue},
        {Window.FrameCutting, Panel::FrameCutting},        {Window.FrameNesting, Panel::FrameNesting},
    };
    for (const auto& [control, panel] : rows) {
        if (control->isVisible() != Wanted(panel)) {
            return control->objectName().toStdString() + " differs from its record";
        }
    }
    for (const auto& [control, panel] : inner) {
        if (control->isVisible() != (Wanted(panel) && Wanted(Panel::TabCam))) {
            return control->objectName().toStdString() + " differs from its record";
        }
    }
    return "";
}

template <std::size_t Count>
std::string BrokenTexts(const std::array<FieldRow, Count>& rows, const std::array<ValueField, Count>& fields)
{
    for (std::size_t i = 0; i < Count; ++i) {
        if (rows[i].Edit->text() != FromText(fields[i].Text)) {
            return rows[i].Edit->objectName().toStdString() + " shows \"" +
                   rows[i].Edit->text().toStdString() + "\", its record holds \"" + fields[i].Text + "\"";
        }
    }
    return "";
}

QWidget* ControlOfShell()
{
    const auto index = static_cast<std::size_t>(AppState.CurrentField);
    switch (AppState.FocusedSet) {
    case FieldSet::Param:
        return Window.Params[index].Edit;
    case FieldSet::Cutting:
        return Window.Cutting[index].Edit;
    case FieldSet::Nesting:
        return Window.Nesting[index].Edit;
    case FieldSet::FileName:
        return Window.TextFileName;
    default:
        return nullptr;
    }
}

std::string NameOf(const QWidget* control)
{
    return control == nullptr ? "nothing" : control->objectName().toStdString();
}

std::string BrokenWindowFocus()
{
    const QWidget* focus = FocusedControl();
    if (Window.Modal) {
        return "a box is still open";
    }
    if (focus != Window.Focus) {
        return "the focus is on " + NameOf(focus) + ", the window's record says " + NameOf(Window.Focus);
    }
    const QWidget* wanted = ControlOfShell();
    if (wanted != nullptr && wanted != focus) {
        return "the focus is on " + NameOf(focus) + ", the shell takes it to be on " + NameOf(wanted);
    }
    if (!focus->isVisible()) {
        return "the focus is on " + NameOf(focus) + ", which is hidden";
    }
    return "";
}

std::string BrokenShownList()
{
    const auto front = static_cast<std::size_t>(AppState.FrontList);
    const QListWidget* list = Window.Lists[front];
    const ListRecord& record = AppState.Lists[front];
    if (list->isVisible() != Wanted(Panel::TabInput)) {
        return NameOf(list) + " in front is hidden";
    }
    if (list->count() != static_cast<int>(record.Items.size()) || list->currentRow() != record.Selected) {
        return NameOf(list) + " differs from its record";
    }
    return Window.Progress->isVisible() ? "the progress bar is still shown" : "";
}

std::string BrokenTabs()
{
    return Window.InputTabs->currentIndex() != AppState.InputTab ||
                   Window.CamTabs->currentIndex() != AppState.CamTab
               ? "a tab strip differs from its record"
               : "";
}

std::string BrokenFileName()
{
    return Window.TextFileName->text() == FromText(AppState.TextFileName.Text)
               ? ""
               : "TextFileName shows \"" + ToText(Window.TextFileName->text()) + "\", its record holds \"" +
                     AppState.TextFileName.Text + "\"";
}

std::string BrokenFieldTexts()
{
    for (std::string broken :
         {BrokenTexts(Window.Params, AppState.ParamText), BrokenTexts(Window.Cutting, AppState.TextCutting),
          BrokenTexts(Window.Nesting, AppState.TextNesting), BrokenFileName()}) {
        if (!broken.empty()) {
            return broken;
        }
    }
    return "";
}

// --- the body -------------------------------------------------------------------------------------------------------

void Start(const std::string& folder, const SoakSettings& settings)
{
    qputenv("XDG_RUNTIME_DIR", folder.c_str());
    ResetAppState();
    ResetFields();
    MakeStationWindow();
    ListenToPictures();
    Operator = new QTimer(Window.Main);
    QObject::connect(Operator, &QTimer::timeout, Operate);
    StartWindow(folder, std::to_string(settings.Language));
    ShowStationWindow();
    QApplication::processEvents();
}

/// The same on the display of DISPLAY. What a station's process has from its parent draws on none, and a connection to a
/// display can't be shared by two processes, so each makes its own.
void StartOnDisplay(const std::string& folder, const SoakSettings& settings)
{
    static int count = 1;
    static std::array<char, 5> name = {"soak"};
    static std::array<char*, 2> words = {name.data(), nullptr};
    delete qApp;
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:"); // none of the desktop's services is asked
    new QApplication(count, words.data());            // ends with the process
    Start(folder, settings);
    // A click takes the focus when the window has it: an operator's gives it first, a test's would come too early.
    if (!QTest::qWaitForWindowActive(Window.Main)) {
        TellSoakFault("the window manager gave the window no focus");
    }
}

void Play(const SoakEvent& event)
{
    Current = event;
    Turns = 0;
    DialogKeys = 0;
    WalkPrevented = false;
    Operator->start(0);
    if (!WouldSaveLong(event) && !WouldSimulateLong(event)) {
        RunEvent(event);
    }
    Operator->stop();
    if (WalkPrevented) {
        AppState.SimRunning = FlagOff;
    }
    QApplication::processEvents();
}

std::string Broken()
{
    for (std::string (*check)() :
         {BrokenRule, BrokenWindowFocus, BrokenPanels, BrokenTabs, BrokenShownList, BrokenFieldTexts}) {
        std::string broken = check();
        if (!broken.empty()) {
            return broken;
        }
    }
    return "";
}

void End()
{
    delete Window.Main;
    Window = StationWindowRecord();
}
} // namespace

const SoakBody WindowBody = {Start, Play, Broken, End};
const SoakBody WindowOnDisplayBody = {StartOnDisplay, Play, Broken, End};
