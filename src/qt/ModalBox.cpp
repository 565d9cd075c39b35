#include "qt/ModalBox.h"

#include "qt/KeyMap.h"
#include "qt/LateKeys.h"
#include "qt/Mirror.h"
#include "qt/StationWindow.h"
#include "qt/WindowEvents.h"
#include "shell/KeyCodes.h"
#include "shell/Korvanta_InputParamPPR.h"
#include "shell/MsgBox_Unicode.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QEventLoop>
#include <QFrame>
#include <QGridLayout>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>

namespace
{
constexpr int Margin = 16;
constexpr int BoxShare = 2; ///< a box takes at least this part of the window's width
constexpr int EntryLetters = 16;
constexpr int TwoLinesPercent = 170;  ///< of a line's width that two lines hold wherever they break
constexpr QChar NoWidthBlank(0x200B); ///< where a line may break though nothing shows it
constexpr QRgb DimColour = 0x60303030;

/// The controls of the open dialog, by slot.
struct DialogRow {
    QLabel* Label = nullptr;
    QComboBox* Combo = nullptr; ///< one of these two
    QLineEdit* Text = nullptr;
};
std::array<DialogRow, PprInputSlots + 1> Rows;

/// Sees the events of a panel and of all that is on it; true ends one there.
using EventHandler = std::function<bool(QObject*, QEvent*)>;
class KeyWatcher : public QObject
{
public:
    explicit KeyWatcher(EventHandler handler) : Handler(std::move(handler)) {}

    bool eventFilter(QObject* object, QEvent* event) override
    {
        return Handler(object, event);
    }

private:
    EventHandler Handler;
};

/// A panel over the dimmed window, until its loop ends.
struct ModalPanel {
    QWidget* Cover = nullptr;
    QFrame* Panel = nullptr;
    QPointer<QWidget> Focus; ///< of its controls the one that has the focus
    std::unique_ptr<KeyWatcher> Watcher;
    std::unique_ptr<KeyWatcher> WindowWatcher;
    QEventLoop Loop;
    bool Ok = false;
    bool Closed = false; ///< the answer is given, the loop about to end
};
ModalPanel* TopPanel = nullptr; ///< the one in front, null when none is open

/// Takes the answer; the first one counts, however fast others follow.
void ClosePanel(ModalPanel& modal, bool ok)
{
    if (!modal.Closed) {
        modal.Closed = true;
        modal.Ok = ok;
        HoldKeys();
        modal.Loop.quit();
    }
}

/// Width that a panel has for its lines.
int LineRoom()
{
    return std::max(1, Window.Main->width() - 4 * Margin - 2);
}

/// Lines break between words; a word that is wider than `room`, a long name as a rule, may break anywhere.
QString Breakable(const QString& text, int room)
{
    const QFontMetrics metrics = Window.Main->fontMetrics();
    QStringList words = text.split(' ');
    for (QString& word : words) {
        if (metrics.horizontalAdvance(word) > room) {
            const QStringList letters = word.split(QString(), Qt::SkipEmptyParts);
            word = letters.join(NoWidthBlank);
        }
    }
    return words.join(' ');
}

QLabel* MakeWrapped(const QString& name, const QString& text, int room)
{
    auto* line = new QLabel(Breakable(text, room));
    line->setTextFormat(Qt::PlainText);
    line->setWordWrap(true);
    NameControl(line, name);
    return line;
}

QLabel* AddLine(QVBoxLayout* layout, const QString& name, const std::string& text)
{
    QLabel* line = MakeWrapped(name, FromText(text), LineRoom());
    line->setAlignment(Qt::AlignCenter);
    layout->addWidget(line);
    return line;
}

void OpenPanel(ModalPanel& modal, const QString& name)
{
    modal.Cover = new QWidget(Window.Main);
    QPalette dim = modal.Cover->palette();
    dim.setColor(QPalette::Window, QColor::fromRgba(DimColour));
    modal.Cover->setPalette(dim);
    modal.Cover->setAutoFillBackground(true);
    modal.Panel = new QFrame(modal.Cover);
    modal.Panel->setFrameStyle(QFrame::Box | QFrame::Plain);
    modal.Panel->setPalette(Window.Main->palette());
    modal.Panel->setAutoFillBackground(true);
    NameControl(modal.Panel, name);
}

void CentrePanel(const ModalPanel& modal)
{
    modal.Cover->setGeometry(Window.Main->rect());
    const int least = Window.Main->width() / BoxShare;
    modal.Panel->setMinimumWidth(least);
    modal.Panel->setMaximumWidth(std::max(least, Window.Main->width() - 2 * Margin));
    modal.Panel->adjustSize();
    const QRect room = modal.Cover->rect();
    modal.Panel->move((room.width() - modal.Panel->width()) / 2, (room.height() - modal.Panel->height()) / 2);
}

/// Shows the panel until its loop is left; the control that had the focus has it again afterwards.
void RunPanel(ModalPanel& modal, QWidget* first)
{
    ModalPanel* outer = TopPanel;
    TopPanel = &modal;
    Window.Modal = true;
    modal.Focus = first;
    modal.WindowWatcher = std::make_unique<KeyWatcher>([&modal](QObject*, QEvent* event) {
        if (event->type() == QEvent::Resize) {
            CentrePanel(modal);
        }
        return false;
    });
    Window.Main->installEventFilter(modal.WindowWatcher.get());
    CentrePanel(modal);
    modal.Cover->show();
    modal.Cover->raise();
    first->setFocus(Qt::OtherFocusReason);
    modal.Loop.exec();
    TopPanel = outer;
    modal.Cover->hide();
    modal.Cover->deleteLater();
    Window.Modal = outer != nullptr;
    KeepModalFocus();
    MirrorRecords();
    ReleaseKeys();
}

void WatchPanel(ModalPanel& modal, const EventHandler& handler)
{
    modal.Watcher = std::make_unique<KeyWatcher>([&modal, handler](QObject* object, QEvent* event) {
        auto* control = qobject_cast<QWidget*>(object);
        if (event->type() == QEvent::FocusIn && modal.Cover->window()->isAncestorOf(control)) {
            modal.Focus = control;
        }
        SelectOnClick(control, *event);
        return handler(object, event);
    });
    modal.Panel->installEventFilter(modal.Watcher.get());
    for (QWidget* control : modal.Panel->findChildren<QWidget*>()) {
        control->installEventFilter(modal.Watcher.get());
    }
}

// --- the box ------------------------------------------------------------------------------------------------

/// A button of the box; a click closes it, with OK or not.
void AddButton(ModalPanel& modal, QHBoxLayout* layout, const QString& name, const std::string& caption,
               bool ok)
{
    auto* button = new QPushButton(FromText(caption));
    button->setFocusPolicy(Qt::NoFocus);
    NameControl(button, name);
    layout->addWidget(button, 1);
    QObject::connect(button, &QPushButton::clicked, [&modal, ok] { ClosePanel(modal, ok); });
}

bool BoxEvent(ModalPanel& modal, QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    if (event->type() != QEvent::KeyPress) {
        return false;
    }
    const auto& key = *static_cast<QKeyEvent*>(event);
    bool result = false;
    if (!key.isAutoRepeat() && BoxKey(KeyCodeOf(key), result)) { // a key still held is no answer
        ClosePanel(modal, result);
    }
    return true;
}

// --- the dialog -----------------------------------------------------------------------------------------------

std::int16_t SlotOf(const QObject* control)
{
    for (std::size_t slot = 1; slot < Rows.size(); ++slot) {
        if (control != nullptr && (Rows[slot].Combo == control || Rows[slot].Text == control)) {
            return static_cast<std::int16_t>(slot);
        }
    }
    return 0;
}

QWidget* EntryOf(std::int16_t slot)
{
    const DialogRow& row = Rows[static_cast<std::size_t>(slot)];
    return row.Combo != nullptr ? static_cast<QWidget*>(row.Combo) : row.Text;
}

int EntryWidth()
{
    return EntryLetters * Window.Main->fontMetrics().horizontalAdvance('0');
}

void MakeEntry(std::size_t slot)
{
    InputRow& record = AppState.InputDialogRows[slot];
    DialogRow& row = Rows[slot];
    if (record.IsList != FlagOff) {
        row.Combo = new QComboBox;
        row.Combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        for (const std::string& option : record.Options) {
            row.Combo->addItem(FromText(option));
        }
        row.Combo->setCurrentIndex(std::max(0, row.Combo->findText(FromText(record.Text))));
        record.Text = ToText(row.Combo->currentText());
        QObject::connect(row.Combo, &QComboBox::currentTextChanged,
                         [&record](const QString& text) { record.Text = ToText(text); });
        NameControl(row.Combo, QString("PprParam_Combo %1").arg(slot - 1));
        row.Combo->view()->setObjectName(
            "PprParam_Combo options"); // makes it, so that its keys are watched, too
    } else {
        row.Text = new QLineEdit(FromText(record.Text));
        row.Text->setContextMenuPolicy(Qt::NoContextMenu);
        QObject::connect(row.Text, &QLineEdit::textChanged,
                         [&record](const QString& text) { record.Text = ToText(text); });
        NameControl(row.Text, QString("PprParam_Text %1").arg(slot - 1));
    }
    EntryOf(static_cast<std::int16_t>(slot))->setMinimumWidth(EntryWidth());
}

/// Beside its entry; on two lines when it is long, and cut off where they end.
QLabel* MakeRowLabel(std::size_t slot)
{
    const QFontMetrics metrics = Window.Main->fontMetrics();
    const int room = std::max(1, LineRoom() - EntryWidth() - 2 * Margin);
    const QString whole = FromText(AppState.PprInput[slot].Label);
    const bool fits = metrics.horizontalAdvance(whole) <= room;
    const QString text =
        fits ? whole : metrics.elidedText(whole, Qt::ElideRight, room * TwoLinesPercent / 100);
    QLabel* label = MakeWrapped(QString("PprParam_Label %1").arg(slot - 1), text, room);
    label->setWordWrap(!fits);
    label->setFixedWidth(fits ? metrics.horizontalAdvance(whole) + 2 : room);
    return label;
}

void MakeRows(QGridLayout* grid)
{
    for (std::size_t slot = 1; slot < Rows.size(); ++slot) {
        Rows[slot] = DialogRow();
        if (AppState.InputDialogRows[slot].Visible == FlagOff) {
            continue;
        }
        MakeEntry(slot);
        Rows[slot].Label = MakeRowLabel(slot);
        const int at = static_cast<int>(slot);
        grid->addWidget(Rows[slot].Label, at, 0);
        grid->addWidget(EntryOf(static_cast<std::int16_t>(slot)), at, 1);
    }
}

/// The next row in use, round to the first or the last.
void StepRow(std::int16_t slot, bool forward)
{
    const auto count = static_cast<int>(Rows.size()) - 1;
    for (int step = 1; step <= count; ++step) {
        const int at = (slot - 1 + (forward ? step : count - step)) % count + 1;
        if (QWidget* entry = EntryOf(static_cast<std::int16_t>(at))) {
            entry->setFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return;
        }
    }
}

void CloseDialog(ModalPanel& modal)
{
    for (const DialogRow& row : Rows) {
        if (row.Combo != nullptr) {
            row.Combo->hidePopup();
        }
    }
    ClosePanel(modal, true);
}

/// Keys of a row, or of the panel: slot 0.
bool DialogKey(ModalPanel& modal, std::int16_t slot, const QKeyEvent& key)
{
    if (slot > 0 && (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab)) {
        StepRow(slot, key.key() == Qt::Key_Tab);
        return true;
    }
    const std::int16_t code = KeyCodeOf(key);
    if (code == KeyF8 || code == KeyF10 || code == KeyEnter) {
        if (key.isAutoRepeat()) {
            return true; // still held from before the dialog
        }
        RunEvent([&] {
            if (InputDialogKey(slot, code)) {
                CloseDialog(modal);
            }
        });
        return true;
    }
    return code == KeyEsc; // nothing hides a question that the program needs an answer to
}

/// The options of a row that are open take their own keys, but not those that close the dialog.
bool OptionsKey(ModalPanel& modal, const QKeyEvent& key)
{
    const std::int16_t code = KeyCodeOf(key);
    return (code == KeyF8 || code == KeyF10) && DialogKey(modal, 0, key);
}

/// A list moves by its arrow keys, a text is typed; all else is the dialog's.
bool DialogEvent(ModalPanel& modal, QObject* object, QEvent* event)
{
    const std::int16_t slot = SlotOf(object);
    if (event->type() == QEvent::FocusIn && slot > 0) {
        RunEvent([slot] { InputRowEntered(slot); });
        return false;
    }
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    if (event->type() != QEvent::KeyPress) {
        return false;
    }
    const auto& key = *static_cast<QKeyEvent*>(event);
    return slot == 0 && object != modal.Panel ? OptionsKey(modal, key) : DialogKey(modal, slot, key);
}
} // namespace

bool RunStationBox(const std::string& line1, const std::string& line2, const std::string& line3,
                   bool twoButtons)
{
    ModalPanel modal;
    OpenPanel(modal, "MsgBox_Unicode");
    auto* layout = new QVBoxLayout(modal.Panel);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    int number = 0;
    for (const std::string& line : {line1, line2, line3}) {
        AddLine(layout, QString("Label1 %1").arg(number++), line);
    }
    std::string ok;
    std::string cancel;
    BoxCaptions(twoButtons, ok, cancel);
    auto* buttons = new QHBoxLayout;
    layout->addSpacing(Margin);
    layout->addLayout(buttons);
    AddButton(modal, buttons, "CancelButton", cancel, false);
    if (twoButtons) {
        AddButton(modal, buttons, "OKButton", ok, true);
    }
    modal.Panel->setFocusPolicy(Qt::StrongFocus);
    WatchPanel(modal,
               [&modal](QObject*, QEvent* event) { return KeepLateKey(event) || BoxEvent(modal, event); });
    RunPanel(modal, modal.Panel);
    return modal.Ok;
}

void RunStationDialog()
{
    ModalPanel modal;
    OpenPanel(modal, "Korvanta_InputParamPPR");
    auto* layout = new QVBoxLayout(modal.Panel);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    AddLine(layout, "Caption", AppState.InputDialogTitle);
    auto* grid = new QGridLayout;
    layout->addLayout(grid);
    MakeRows(grid);
    auto* button = new QPushButton(FromText(AppState.InputDialogButton));
    button->setFocusPolicy(Qt::NoFocus); // it would hand the focus on to the first row
    NameControl(button, "OKButton");
    layout->addWidget(button);
    QObject::connect(button, &QPushButton::clicked, [&modal] { CloseDialog(modal); });
    modal.Panel->setFocusPolicy(Qt::StrongFocus);
    WatchPanel(modal, [&modal](QObject* object, QEvent* event) {
        return KeepLateKey(event) || DialogEvent(modal, object, event);
    });
    QWidget* first = nullptr;
    for (std::int16_t slot = 1; slot < static_cast<std::int16_t>(Rows.size()) && first == nullptr; ++slot) {
        first = EntryOf(slot);
    }
    RunPanel(modal, first != nullptr ? first : modal.Panel);
    Rows = {};
}

void FocusDialogRow(std::int16_t slot)
{
    QWidget* entry = slot > 0 && static_cast<std::size_t>(slot) < Rows.size() ? EntryOf(slot) : nullptr;
    if (entry != nullptr) {
        entry->setFocus(Qt::OtherFocusReason);
    }
}

void SelectDialogRow(std::int16_t slot)
{
    if (slot > 0 && static_cast<std::size_t>(slot) < Rows.size() &&
        Rows[static_cast<std::size_t>(slot)].Text != nullptr) {
        Rows[static_cast<std::size_t>(slot)].Text->selectAll();
    }
}

void KeepModalFocus()
{
    if (TopPanel != nullptr && TopPanel->Focus != nullptr) {
        TopPanel->Focus->setFocus(Qt::OtherFocusReason);
    }
}
