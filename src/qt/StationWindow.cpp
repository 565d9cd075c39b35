#include "qt/StationWindow.h"

#include "qt/Artwork.h"
#include "qt/Layout.h"
#include "qt/Mirror.h"
#include "qt/WindowEvents.h"

#include <QGuiApplication>
#include <QIcon>
#include <QScreen>
#include <QToolButton>
#include <QWindow>

StationWindowRecord Window;

namespace
{
constexpr int IconPixels = 64;
constexpr int LongestText = 255; ///< characters that a field takes

QLabel* MakeLabel(QWidget* parent, const QString& name)
{
    auto* label = new QLabel(parent);
    label->setAutoFillBackground(true);
    label->setTextFormat(Qt::PlainText);
    label->setIndent(2);
    NameControl(label, name);
    return label;
}

QLineEdit* MakeEdit(QWidget* parent, const QString& name)
{
    auto* edit = new QLineEdit(parent);
    edit->setContextMenuPolicy(Qt::NoContextMenu);
    edit->setMaxLength(LongestText);
    edit->setAcceptDrops(false); // a text comes in only where the focus is
    edit->setDragEnabled(false);
    NameControl(edit, name);
    return edit;
}

template <std::size_t Count>
void MakeRows(std::array<FieldRow, Count>& rows, QWidget* parent, const QString& label, const QString& text)
{
    for (std::size_t i = 0; i < Count; ++i) {
        rows[i].Label = MakeLabel(parent, QString("%1 %2").arg(label).arg(i));
        rows[i].Edit = MakeEdit(parent, QString("%1 %2").arg(text).arg(i));
        rows[i].Label->setBuddy(rows[i].Edit);
    }
}

QWidget* MakePanel(QWidget* parent, const QString& name)
{
    auto* panel = new QWidget(parent);
    NameControl(panel, name);
    return panel;
}

QWidget* MakePicture(QWidget* parent, const QString& name)
{
    QWidget* box = MakePanel(parent, name);
    box->setAttribute(Qt::WA_OpaquePaintEvent); // its image covers it
    return box;
}

QTabBar* MakeTabs(QWidget* parent, const QString& name, int count)
{
    auto* tabs = new QTabBar(parent);
    tabs->setFocusPolicy(Qt::NoFocus);
    tabs->setDrawBase(false);
    tabs->setUsesScrollButtons(true);
    for (QToolButton* arrow : tabs->findChildren<QToolButton*>()) {
        arrow->setFocusPolicy(Qt::NoFocus); // Tab would stop at them in a narrow window
    }
    tabs->setElideMode(Qt::ElideRight);
    tabs->setExpanding(false);
    for (int i = 0; i < count; ++i) {
        tabs->addTab(QString());
    }
    NameControl(tabs, name);
    return tabs;
}

QListWidget* MakeList(QWidget* parent, const QString& name)
{
    auto* list = new QListWidget(parent);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setMovement(QListView::Static);
    list->setResizeMode(QListView::Adjust);
    list->setWrapping(true);
    list->setUniformItemSizes(true);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setDragDropMode(QAbstractItemView::NoDragDrop);
    list->setTabKeyNavigation(false);
    list->setTextElideMode(Qt::ElideMiddle);
    NameControl(list, name);
    return list;
}

void MakeKeyBar()
{
    for (std::size_t i = 0; i < Window.Keys.size(); ++i) {
        auto* key = new QToolButton(Window.Main);
        key->setFocusPolicy(Qt::NoFocus);
        key->setToolButtonStyle(Qt::ToolButtonIconOnly);
        key->setToolTip(QString("F%1").arg(i + 1));
        NameControl(key, QString("FunctionButton %1").arg(i));
        Window.Keys[i] = key;
    }
}

void MakeInputPanel()
{
    Window.InputPanel = MakePanel(Window.Main, "Tab_Input panel");
    Window.InputTabs = MakeTabs(Window.InputPanel, "Tab_Input", InputTabCount);
    constexpr std::array<const char*, InputTabCount> Names = {"ListViewPrograms", "ListViewRect",
                                                              "ListViewCirc",     "ListViewHoles",
                                                              "ListViewDxf_In",   "ListViewIso_In"};
    for (std::size_t tab = 0; tab < Names.size(); ++tab) {
        Window.Lists[tab] = MakeList(Window.InputPanel, Names[tab]);
    }
    Window.FrameFileNesting = MakePanel(Window.InputPanel, "FrameFileNesting");
    QWidget* frame = Window.FrameFileNesting;
    Window.Pictures[static_cast<std::size_t>(Picture::Preview)] = MakePicture(frame, "PictureNestingBmp");
    Window.LabelFileName = MakeLabel(frame, "LabelFileName");
    Window.ImageFile = new QLabel(frame);
    NameControl(Window.ImageFile, "ImageFile");
    Window.TextFileName = MakeEdit(frame, "TextFileName");
    Window.Progress = new QProgressBar(frame);
    NameControl(Window.Progress, "PPR_ProgressBar");
    Window.Progress->hide();
}

void MakeCamPanel()
{
    Window.CamPanel = MakePanel(Window.Main, "Tab_CAM panel");
    QWidget* panel = Window.CamPanel;
    Window.CamTabs = MakeTabs(panel, "Tab_CAM", CamTabCount);
    Window.Pictures[static_cast<std::size_t>(Picture::Param)] = MakePicture(panel, "PicParam");
    Window.Pictures[static_cast<std::size_t>(Picture::Tecno)] = MakePicture(panel, "TecnoPic");
    Window.Pictures[static_cast<std::size_t>(Picture::Nesting)] = MakePicture(panel, "NestingPic");
    Window.FrameValue = MakePanel(panel, "FrameValue");
    Window.FrameCutting = MakePanel(panel, "FrameCutting");
    Window.FrameNesting = MakePanel(panel, "FrameNesting");
    MakeRows(Window.Params, Window.FrameValue, "ParamLabel", "ParamText");
    MakeRows(Window.Cutting, Window.FrameCutting, "LabelCutting", "TextCutting");
    MakeRows(Window.Nesting, Window.FrameNesting, "LabelNesting", "TextNesting");
    for (std::size_t i = 0; i < Window.Counts.size(); ++i) {
        Window.Counts[i] = MakeLabel(Window.FrameNesting, QString("LabelNesting %1").arg(i + LabelCountX));
        Window.Counts[i]->setAlignment(Qt::AlignCenter);
    }
    Window.LeadHelp = new QLabel(Window.FrameCutting);
    Window.LeadHelp->setAlignment(Qt::AlignCenter);
    NameControl(Window.LeadHelp, "PicLeadhelp");
}

void SetGround()
{
    QPalette palette = Window.Main->palette();
    palette.setColor(QPalette::Window, QColor::fromRgb(static_cast<QRgb>(AppState.WindowBackColor)));
    palette.setColor(QPalette::Button, QColor::fromRgb(static_cast<QRgb>(AppState.WindowBackColor)));
    palette.setColor(QPalette::WindowText, Qt::black);
    palette.setColor(QPalette::ButtonText, Qt::black);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    Window.Main->setPalette(palette);
    Window.Main->setAutoFillBackground(true);
}
} // namespace

QString FromText(const std::string& text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string ToText(const QString& text)
{
    return text.toUtf8().toStdString();
}

void NameControl(QWidget* control, const QString& name)
{
    control->setObjectName(name);
    control->setAccessibleName(name);
}

QWidget* PictureBox(Picture picture)
{
    // cppcheck-suppress CastIntegerToAddressAtReturn ; they are pointers, which the checker doesn't see in an array
    return Window.Pictures[static_cast<std::size_t>(picture)];
}

void MakeStationWindow()
{
    Window = StationWindowRecord();
    Window.Main = new QWidget;
    NameControl(Window.Main, "Korvanta");
    Window.Main->setWindowIcon(QIcon(NamedPicture("Application", QSize(IconPixels, IconPixels), 1.0)));
    SetGround();
    MakeInputPanel();
    MakeCamPanel();
    MakeKeyBar();
    ConnectControls();
}

void FitFrame()
{
    const QWindow* window = Window.Main->windowHandle();
    if (Window.FrameFitted || AppState.Window.WholeScreen != FlagOff || window == nullptr ||
        window->frameMargins().isNull()) {
        return;
    }
    Window.FrameFitted = true;
    const QSize planned(AppState.Window.Width, AppState.Window.Height);
    Window.Main->resize(planned.shrunkBy(window->frameMargins()));
}

void ShowStationWindow()
{
    if (AppState.Window.WholeScreen != FlagOff) {
        Window.Main->setGeometry(Window.Main->screen()->geometry()); // where no window manager sees to it
        Window.Main->showFullScreen();
    } else {
        const QSize planned(AppState.Window.Width, AppState.Window.Height);
        const QRect screen = Window.Main->screen()->geometry();
        Window.Main->resize(planned);
        if (planned.width() >= screen.width() || planned.height() >= screen.height()) {
            Window.Main->move(screen.topLeft());
        }
        Window.Main->show();
        FitFrame();
    }
    QObject::connect(Window.Main->windowHandle(), &QWindow::screenChanged, Window.Main,
                     [] { RunEvent([] {}); }); // another ratio of pixels needs other pictures
    Window.Main->activateWindow();
    MirrorRecords();
}
