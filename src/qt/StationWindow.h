// StationWindow.h -- the main window: its controls, which mirror the records of AppState, and what the room's
// own routines share.
#pragma once

#include "platform/Surface.h"
#include "state/AppState.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QProgressBar>
#include <QTabBar>
#include <QToolButton>
#include <QWidget>

#include <array>
#include <cstdint>
#include <deque>
#include <memory>

/// A caption and its field.
struct FieldRow {
    QLabel* Label = nullptr;
    QLineEdit* Edit = nullptr;
};

/// What a control shows of a record, to change it only when the record does.
struct MirroredState {
    std::array<std::int32_t, InputTabCount> ListFilled{}; ///< ListRecord::Filled of the items shown
    std::array<ImageRef, KeyButtonCount> KeyBar{};
    std::array<ImageRef, InputTabCount> InputIcons{};
    std::array<ImageRef, CamTabCount> CamIcons{};
    std::string PreviewJob;
    Flag PreviewNest = FlagOff;
    std::string LogoFile;
    std::string NameSign; ///< FileNameImage
    std::string Layout;   ///< what the places depend on
};

/// The window's controls, by the names of their records.
struct StationWindowRecord {
    QWidget* Main = nullptr;
    QWidget* InputPanel = nullptr; ///< Tab_Input: its tabs, the lists, the frame of the job preview
    QTabBar* InputTabs = nullptr;
    QWidget* CamPanel = nullptr; ///< Tab_CAM: its tabs, drawings and frames
    QTabBar* CamTabs = nullptr;
    std::array<QToolButton*, KeyButtonCount> Keys{};
    std::array<QListWidget*, InputTabCount> Lists{};
    QWidget* FrameFileNesting = nullptr;
    QLabel* LabelFileName = nullptr;
    QLabel* ImageFile = nullptr;
    QLineEdit* TextFileName = nullptr;
    QProgressBar* Progress = nullptr;
    std::array<QWidget*, 4> Pictures{}; ///< by Picture
    QWidget* FrameValue = nullptr;
    QWidget* FrameCutting = nullptr;
    QWidget* FrameNesting = nullptr;
    QLabel* LeadHelp = nullptr;
    std::array<FieldRow, ParamFieldCount> Params;
    std::array<FieldRow, CuttingFieldCount> Cutting;
    std::array<FieldRow, NestingFieldCount> Nesting;
    std::array<QLabel*, 2> Counts{}; ///< LabelNesting 8 and 9

    QWidget* Focus = nullptr;      ///< control that has the focus as the shell knows it
    QPointer<QWidget> ClickedInto; ///< control that the mouse button still down gave the focus
    bool Mirroring = false; ///< the records are being shown: what the controls report meanwhile is no event
    bool Modal = false;     ///< a box or dialog is open
    bool Ending = false;    ///< a fault is being told to the operator: nothing runs any more

    bool Yielding = false;     ///< a routine lets the window system catch up, and takes no keys meanwhile
    bool CloseLater = false;   ///< the window was closed meanwhile
    double ProgressSeen = 0.0; ///< ClockSeconds of the progress bar's last movement
    bool KeysHeld = false;     ///< an answered panel's loop hasn't ended
    std::deque<std::shared_ptr<QKeyEvent>> LateKeys; ///< that wait for it, and all behind them
    const QEvent* SentKey = nullptr;                 ///< the one of them whose turn it is
    bool FrameFitted = false;                        ///< the window's frame is taken off its size
    MirroredState Shown;
};

extern StationWindowRecord Window;

/// Makes the window and its controls, hidden. Needs the QApplication.
void MakeStationWindow();

/// Size and place on the desktop as AppState.Window plans them; shows the window.
void ShowStationWindow();

/// The planned size is the outer one: what a window manager's frame takes comes off, once, as soon as there is a frame.
void FitFrame();

/// The drawing box of a picture.
QWidget* PictureBox(Picture picture);

QString FromText(const std::string& text);
std::string ToText(const QString& text);

/// The name by which screen readers and robots find a control.
void NameControl(QWidget* control, const QString& name);
