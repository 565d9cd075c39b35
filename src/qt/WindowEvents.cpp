#include "qt/WindowEvents.h"

#include "platform/Fault.h"
#include "platform/Screen.h"
#include "platform/TextFile.h"
#include "post/Korvanta_PostProcessor.h"
#include "qt/KeyMap.h"
#include "qt/LateKeys.h"
#include "qt/Mirror.h"
#include "qt/ModalBox.h"
#include "qt/PictureBoxes.h"
#include "qt/StationWindow.h"
#include "shell/Exit.h"
#include "shell/FieldEvents.h"
#include "shell/InputEvents.h"
#include "shell/KeyCodes.h"
#include "shell/KeyDispatcher.h"
#include "shell/ValueFields.h"

#include <QCoreApplication>
#include <QMouseEvent>

#include <cstdio>
#include <exception>
#include <new>

namespace
{
// --- which record a control shows -----------------------------------------------------------------------------

/// A value field by its control; Fields is empty for any other control.
struct FieldPlace {
    FieldArray Fields;
    std::int16_t Index = 0;
};

template <std::size_t Count>
bool FindRow(const std::array<FieldRow, Count>& rows, std::array<ValueField, Count>& fields,
             const QWidget* control, FieldPlace& place)
{
    for (std::size_t i = 0; i < Count; ++i) {
        if (rows[i].Edit == control) {
            place = {fields, static_cast<std::int16_t>(i)};
            return true;
        }
    }
    return false;
}

FieldPlace PlaceOf(const QWidget* control)
{
    FieldPlace place;
    if (!FindRow(Window.Cutting, AppState.TextCutting, control, place) &&
        !FindRow(Window.Nesting, AppState.TextNesting, control, place)) {
        FindRow(Window.Params, AppState.ParamText, control, place);
    }
    return place;
}

/// Tab of a list, -1 for any other control.
std::int16_t ListTab(const QWidget* control)
{
    for (std::size_t tab = 0; tab < Window.Lists.size(); ++tab) {
        if (Window.Lists[tab] == control) {
            return static_cast<std::int16_t>(tab);
        }
    }
    return -1;
}

// --- focus ------------------------------------------------------------------------------------------------------

/// The value field that the shell takes for the focused one, null for none.
const ValueField* FocusedField()
{
    const auto index = static_cast<std::size_t>(AppState.CurrentField);
    switch (AppState.FocusedSet) {
    case FieldSet::Param:
        return &AppState.ParamText[index];
    case FieldSet::Cutting:
        return &AppState.TextCutting[index];
    case FieldSet::Nesting:
        return &AppState.TextNesting[index];
    default:
        return nullptr;
    }
}

void ReportGone(const QWidget* control)
{
    const FieldPlace place = PlaceOf(control);
    if (!place.Fields.empty()) {
        FieldGone(place.Fields, place.Index);
    } else if (control != nullptr && control == Window.TextFileName) {
        FileNameLeft();
    }
}

void ReportArrived(const QWidget* control)
{
    const FieldPlace place = PlaceOf(control);
    if (!place.Fields.empty()) {
        FieldArrived(place.Fields, place.Index);
    } else if (control != nullptr && control == Window.TextFileName) {
        FileNameEntered();
    }
}

/// False for a control that the shell has left although it kept the focus on the screen.
bool ShellIsOn(const QWidget* control)
{
    const FieldPlace place = PlaceOf(control);
    if (place.Fields.empty()) {
        return true;
    }
    const ValueField* field = &place.Fields[static_cast<std::size_t>(place.Index)];
    return field == FocusedField();
}

/// The window system moved the focus by itself: a click, the Tab key. Behind a box it has no business.
void FocusCame(QWidget* control)
{
    if (Window.Modal) {
        KeepModalFocus();
    } else if (!Window.Mirroring && control != Window.Focus) {
        RunEvent([control] { MoveFocusTo(control); });
    }
}

// --- keys -------------------------------------------------------------------------------------------------------

bool IsZoomMove(const FieldPlace& place, std::int16_t code)
{
    return (code == KeyLeft || code == KeyRight) && !place.Fields.empty() &&
           place.Fields.data() != AppState.ParamText.data() &&
           static_cast<std::size_t>(place.Index) + 1 == place.Fields.size();
}

/// What a list does with a key of its own.
bool IsListMove(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
        return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return !event.modifiers().testFlag(Qt::KeypadModifier);
    default:
        return false;
    }
}

/// A key in a control; false leaves it to the control itself. A text that is typed stays a text: a name may hold a D.
bool ControlKey(QWidget* control, const QKeyEvent& event)
{
    const std::int16_t code = KeyCodeOf(event);
    const std::int16_t shift = ShiftOf(event);
    const FieldPlace place = PlaceOf(control);
    const bool isName = control == Window.TextFileName;
    if ((!place.Fields.empty() || isName) && IsTextKey(event) && !IsExitKey(code) &&
        !IsZoomMove(place, code)) {
        return false;
    }
    const std::int16_t tab = ListTab(control);
    if (tab >= 0 && IsListMove(event) && !IsExitKey(code)) {
        return false;
    }
    const bool isTab = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
    if (isTab && !IsExitKey(code)) {
        return false; // moves the focus, which is reported
    }
    if (code == 0) {
        return true;
    }
    RunEvent([&] {
        if (!place.Fields.empty()) {
            ValueFieldKey(place.Fields, place.Index, code, shift);
        } else if (isName) {
            FileNameKey(code, shift);
        } else if (tab >= 0) {
            ListKey(tab, code, shift);
        } else {
            KeyDispatcher(code, shift);
        }
    });
    return true;
}

// --- mouse ------------------------------------------------------------------------------------------------------

bool ListMouse(std::int16_t tab, const QMouseEvent& event)
{
    QListWidget* list = Window.Lists[static_cast<std::size_t>(tab)];
    const int row = list->indexAt(event.position().toPoint()).row();
    if (event.button() != Qt::LeftButton) {
        return true;
    }
    RunEvent([&] {
        MoveFocusTo(list);
        if (event.type() == QEvent::MouseButtonPress) {
            ListClicked(tab, row);
        } else if (row >= 0) {
            ListDoubleClicked(tab);
        }
    });
    return true;
}

/// Tab of the list whose items `control` shows, -1 for none.
std::int16_t ViewportTab(const QObject* control)
{
    for (std::size_t tab = 0; tab < Window.Lists.size(); ++tab) {
        if (Window.Lists[tab]->viewport() == control) {
            return static_cast<std::int16_t>(tab);
        }
    }
    return -1;
}

// --- the watcher --------------------------------------------------------------------------------------------------

/// Sees each event of the window's controls before they do.
class Watcher : public QObject
{
public:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    static bool MainEvent(QEvent* event);
};

bool Watcher::MainEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Close:
        event->ignore(); // the way out is the same as by the key
        if (Window.Yielding) {
            Window.CloseLater = true; // a program is being written: its end first
        } else if (!Window.Modal) {
            RunEvent([] { ExitProgram(); });
        }
        return true;
    case QEvent::Move: // into the frame that a window manager puts around
    case QEvent::Resize:
        RunEvent([] { FitFrame(); });
        return false;
    case QEvent::WindowActivate:
        if (!Window.Modal && !Window.Mirroring) {
            RunEvent([] { WindowActivated(); });
        }
        return false;
    default:
        return false;
    }
}

bool Watcher::eventFilter(QObject* object, QEvent* event)
{
    auto* control = qobject_cast<QWidget*>(object);
    if (control == nullptr) {
        return false;
    }
    if (control == Window.Main && MainEvent(event)) {
        return true;
    }
    SelectOnClick(control, *event);
    switch (event->type()) {
    case QEvent::KeyPress:
        return KeepLateKey(event) || Window.Modal || ControlKey(control, *static_cast<QKeyEvent*>(event));
    case QEvent::ShortcutOverride: // no key is anybody's shortcut
        event->accept();
        return true;
    case QEvent::FocusIn:
        FocusCame(control);
        return false;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (const std::int16_t tab = ViewportTab(object); tab >= 0) {
            return Window.Modal || ListMouse(tab, *static_cast<QMouseEvent*>(event));
        }
        return PictureEvent(control, event);
    case QEvent::MouseMove: // a list isn't pulled over: the click has chosen
        return ViewportTab(object) >= 0 || PictureEvent(control, event);
    case QEvent::Wheel: // nor are tabs rolled through
        return control == Window.InputTabs || control == Window.CamTabs;
    default:
        return PictureEvent(control, event);
    }
}

// --- typed texts, clicks ----------------------------------------------------------------------------------------

template <std::size_t Count>
void ConnectRows(const std::array<FieldRow, Count>& rows, std::array<ValueField, Count>& fields)
{
    for (std::size_t i = 0; i < Count; ++i) {
        ValueField* field = &fields[i];
        QObject::connect(rows[i].Edit, &QLineEdit::textEdited,
                         [field](const QString& text) { RunEvent([&] { SetText(*field, ToText(text)); }); });
    }
}

void ConnectTabs()
{
    QObject::connect(Window.InputTabs, &QTabBar::currentChanged, [](int tab) {
        if (!Window.Mirroring) {
            RunEvent([tab] { ClickInputTab(static_cast<std::int16_t>(tab)); });
        }
    });
    QObject::connect(Window.CamTabs, &QTabBar::currentChanged, [](int tab) {
        if (!Window.Mirroring) {
            RunEvent([tab] { ClickCamTab(static_cast<std::int16_t>(tab)); });
        }
    });
}

void ConnectLists()
{
    for (std::size_t i = 0; i < Window.Lists.size(); ++i) {
        QObject::connect(Window.Lists[i], &QListWidget::currentRowChanged, [i](int row) {
            if (!Window.Mirroring && row >= 0) {
                RunEvent([&] { ListSelectionMoved(static_cast<std::int16_t>(i), row); });
            }
        });
    }
}

/// What waited for the routine at work comes in its turn.
void ResumeEvents()
{
    if (AppState.SimWalking == FlagOff) {
        PostLateKeys();
    }
    if (Window.CloseLater && !Window.Yielding) {
        Window.CloseLater = false;
        QMetaObject::invokeMethod(
            Window.Main, [] { Window.Main->close(); }, Qt::QueuedConnection);
    }
}
} // namespace

void RunGuarded(const std::function<void()>& routine)
{
    if (Window.Ending) {
        return; // the text of the fault is on the screen; what runs meanwhile would meet the same fault
    }
    try {
        routine();
    } catch (const RunTimeFault& fault) {
        EndWithFault(fault.what());
    } catch (const std::bad_alloc&) {
        EndWithFault("out of memory");
    } catch (const std::exception& error) { // the machine's own refusals
        EndWithFault(error.what());
    }
}

void RunEvent(const std::function<void()>& routine)
{
    RunGuarded([&routine] {
        routine();
        MirrorRecords();
        ResumeEvents();
    });
}

void SelectOnClick(QWidget* control, const QEvent& event)
{
    if (event.type() == QEvent::FocusIn) {
        const bool clicked = static_cast<const QFocusEvent&>(event).reason() == Qt::MouseFocusReason;
        Window.ClickedInto = clicked ? control : nullptr;
        return;
    }
    if (event.type() != QEvent::MouseButtonRelease || Window.ClickedInto != control) {
        return;
    }
    Window.ClickedInto = nullptr;
    auto* edit = qobject_cast<QLineEdit*>(control);
    const bool stayed = edit != nullptr && edit->window()->focusWidget() == edit;
    if (stayed && !edit->hasSelectedText()) {
        edit->selectAll();
    }
}

void MoveFocusTo(QWidget* control)
{
    if (control == Window.Focus && ShellIsOn(control)) {
        return;
    }
    const QWidget* before = Window.Focus;
    Window.Focus = control;
    ReportGone(before);
    if (Window.Focus != control) {
        return; // leaving has led the focus elsewhere
    }
    MirrorRecords();
    ReportArrived(control);
}

void EndWithFault(const char* text)
{
    Window.Ending = true;
    AbandonText(ProgramFile);
    std::fprintf(stderr, "korvanta: %s\n", text);
    RunSystemBox("Critical Error", text);
    EndProcess(1);
}

void ConnectControls()
{
    auto* watcher = new Watcher;
    watcher->setParent(Window.Main);
    Window.Main->installEventFilter(watcher);
    for (QWidget* control : Window.Main->findChildren<QWidget*>()) {
        control->installEventFilter(watcher);
    }
    ConnectRows(Window.Params, AppState.ParamText);
    ConnectRows(Window.Cutting, AppState.TextCutting);
    ConnectRows(Window.Nesting, AppState.TextNesting);
    QObject::connect(Window.TextFileName, &QLineEdit::textEdited, [](const QString& text) {
        RunEvent([&] { SetText(AppState.TextFileName, ToText(text)); });
    });
    for (std::size_t i = 0; i < Window.Keys.size(); ++i) {
        QObject::connect(Window.Keys[i], &QToolButton::clicked, [i] {
            if (!Window.Modal) {
                RunEvent([i] { ClickFunctionButton(static_cast<std::int16_t>(i)); });
            }
        });
    }
    ConnectTabs();
    ConnectLists();
}
