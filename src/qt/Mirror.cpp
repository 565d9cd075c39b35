#include "qt/Mirror.h"

#include "nesting/Korvanta_CutTecnology.h"
#include "qt/Artwork.h"
#include "qt/Layout.h"
#include "qt/StationWindow.h"
#include "shell/InputEvents.h"

#include <QIcon>
#include <QPalette>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace
{
constexpr int LeastShapeIcon = 64; ///< of the shape lists, in device-independent pixels
constexpr int LargestShapeIcon = 128;
constexpr int IconsDown = 8;        ///< pictures that the window's height has room for
constexpr double IconSpacing = 1.2; ///< of the items, as the shell counts them
constexpr double JobSpacing = 1.02;
constexpr double LineSpacing = 1.1;
constexpr int ColumnGap = 24;  ///< between the names of two columns
constexpr int FilePoints = 10; ///< font of the file lists

QColor FromRgb(std::int32_t rgb)
{
    return QColor::fromRgb(static_cast<QRgb>(rgb));
}

void ShowColour(QWidget* control, QPalette::ColorRole role, std::int32_t rgb)
{
    const QColor colour = FromRgb(rgb);
    if (control->palette().color(role) != colour) {
        QPalette palette = control->palette();
        palette.setColor(role, colour);
        control->setPalette(palette);
    }
}

void ShowText(QLabel* label, const std::string& text)
{
    const QString shown = FromText(text);
    if (label->text() != shown) {
        label->setText(shown);
    }
}

void ShowIn(QWidget* control, bool visible)
{
    if (control->isVisibleTo(control->parentWidget()) != visible) {
        control->setVisible(visible);
    }
}

void ShowField(QLineEdit* edit, const ValueField& field)
{
    const QString shown = FromText(field.Text);
    if (edit->text() != shown) {
        const bool whole = edit->hasSelectedText() && edit->selectedText() == edit->text();
        edit->setText(shown);
        if (whole) {
            edit->selectAll(); // a field that waits to be typed over goes on waiting
        }
    }
    ShowColour(edit, QPalette::Base, field.BackColor);
}

template <std::size_t Count, std::size_t Labels>
void ShowRows(const std::array<FieldRow, Count>& rows, const std::array<ValueField, Count>& fields,
              const std::array<std::string, Labels>& captions,
              const std::array<std::int32_t, Labels>& colours)
{
    for (std::size_t i = 0; i < Count; ++i) {
        ShowText(rows[i].Label, captions[i]);
        ShowColour(rows[i].Label, QPalette::Window, colours[i]);
        ShowField(rows[i].Edit, fields[i]);
        ShowIn(rows[i].Label, fields[i].Visible != FlagOff);
        ShowIn(rows[i].Edit, fields[i].Visible != FlagOff);
    }
}

/// A count that the operator asked for stands out in bold from one that the sheet gave.
void ShowCounts()
{
    const std::array<std::int32_t, 2> fixed = {AppState.NestResultX, AppState.NestResultY};
    for (std::size_t i = 0; i < Window.Counts.size(); ++i) {
        QLabel* label = Window.Counts[i];
        ShowText(label, AppState.LabelNesting[i + LabelCountX]);
        ShowColour(label, QPalette::Window, AppState.LabelNestingColor[i + LabelCountX]);
        if (label->font().bold() != (fixed[i] != 0)) {
            QFont font; // asks for its weight alone: the size goes on following the window's
            font.setBold(fixed[i] != 0);
            label->setFont(font);
        }
    }
}

void ShowFields()
{
    ShowRows(Window.Params, AppState.ParamText, AppState.ParamLabel, AppState.ParamLabelColor);
    ShowRows(Window.Cutting, AppState.TextCutting, AppState.LabelCutting, AppState.LabelCuttingColor);
    ShowRows(Window.Nesting, AppState.TextNesting, AppState.LabelNesting, AppState.LabelNestingColor);
    ShowCounts();
}

// --- key bar and tabs -----------------------------------------------------------------------------------------

void ShowKeyBar()
{
    const qreal ratio = Window.Main->devicePixelRatioF();
    for (std::size_t i = 0; i < Window.Keys.size(); ++i) {
        if (Window.Shown.KeyBar[i] == AppState.KeyBar[i]) {
            continue;
        }
        Window.Shown.KeyBar[i] = AppState.KeyBar[i];
        QToolButton* key = Window.Keys[i];
        key->setIcon(QIcon(ArtPicture(AppState.KeyBar[i], key->iconSize(), ratio)));
    }
}

template <std::size_t Count>
void ShowTabs(QTabBar* tabs, std::int16_t current, const std::array<std::string, Count>& captions,
              const std::array<ImageRef, Count>& icons, std::array<ImageRef, Count>& shownIcons)
{
    for (std::size_t i = 0; i < Count; ++i) {
        const int tab = static_cast<int>(i);
        const QString caption = FromText(captions[i]);
        if (tabs->tabText(tab) != caption) {
            tabs->setTabText(tab, caption);
        }
        if (!(shownIcons[i] == icons[i])) {
            shownIcons[i] = icons[i];
            tabs->setTabIcon(tab,
                             QIcon(ArtPicture(icons[i], tabs->iconSize(), Window.Main->devicePixelRatioF())));
        }
    }
    if (tabs->currentIndex() != current) {
        tabs->setCurrentIndex(current);
    }
}

// --- lists ----------------------------------------------------------------------------------------------------

void ArrangeIcons(QListWidget* list)
{
    const int icon = std::clamp(Window.Main->height() / IconsDown, LeastShapeIcon, LargestShapeIcon);
    const int text = list->fontMetrics().height();
    list->setViewMode(QListView::IconMode);
    list->setMovement(QListView::Static);
    list->setFlow(QListView::LeftToRight);
    list->setIconSize(QSize(icon, icon));
    const int item = icon + icon / 8;
    list->setGridSize(QSize(static_cast<int>(item * IconSpacing), icon + 2 * text));
}

/// Columns as wide as the longest name, but not wider than the list.
int ColumnWidth(const QListWidget* list, const ListRecord& record)
{
    const QFontMetrics metrics(list->font());
    int widest = 0;
    for (const ListItem& item : record.Items) {
        widest = std::max(widest, metrics.horizontalAdvance(FromText(item.Text)));
    }
    return std::max(1,
                    std::min(widest + list->iconSize().width() + ColumnGap, list->viewport()->width() - 1));
}

void ArrangeLines(QListWidget* list, const ListRecord& record, double spacing)
{
    QFont font = list->font();
    font.setBold(true);
    font.setPointSize(FilePoints);
    list->setFont(font);
    const int line = QFontMetrics(font).height() + 4;
    list->setViewMode(QListView::ListMode);
    list->setFlow(QListView::TopToBottom);
    list->setIconSize(QSize(line - 2, line - 2));
    list->setGridSize(QSize(ColumnWidth(list, record), static_cast<int>(std::ceil(line * spacing))));
    ShowColour(list, QPalette::Text, record.TextColor);
}

void FillShownList(QListWidget* list, const ListRecord& record)
{
    list->clear();
    const qreal ratio = Window.Main->devicePixelRatioF();
    ImageRef last;
    QIcon icon;
    for (const ListItem& item : record.Items) {
        if (icon.isNull() || !(item.Icon == last)) {
            icon = QIcon(ArtPicture(item.Icon, list->iconSize(), ratio));
            last = item.Icon;
        }
        auto* shown = new QListWidgetItem(icon, FromText(item.Text));
        if (record.View == ViewIcons) {
            shown->setTextAlignment(Qt::AlignHCenter);
        }
        list->addItem(shown);
    }
}

void ShowList(std::int16_t tab)
{
    QListWidget* list = Window.Lists[static_cast<std::size_t>(tab)];
    const ListRecord& record = AppState.Lists[static_cast<std::size_t>(tab)];
    std::int32_t& filled = Window.Shown.ListFilled[static_cast<std::size_t>(tab)];
    if (filled != record.Filled) {
        filled = record.Filled;
        if (record.View == ViewIcons) {
            ArrangeIcons(list);
        } else {
            ArrangeLines(list, record, tab == TabPrograms ? JobSpacing : LineSpacing);
        }
        FillShownList(list, record);
    }
    if (list->currentRow() != record.Selected) {
        list->setCurrentRow(record.Selected);
        if (record.Selected >= 0) {
            list->scrollToItem(list->item(record.Selected));
        }
    }
}

/// All lists stand on one rectangle: the one in front is the one that is seen.
void ShowLists()
{
    for (std::int16_t tab = 0; tab < InputTabCount; ++tab) {
        if (tab == AppState.FrontList) {
            ShowList(tab);
        }
        ShowIn(Window.Lists[static_cast<std::size_t>(tab)], tab == AppState.FrontList);
    }
    ShowIn(Window.FrameFileNesting, AppState.FrontList == TabPrograms);
}

// --- the name and its preview -----------------------------------------------------------------------------------

void ShowFileName()
{
    ShowText(Window.LabelFileName, AppState.LabelFileName);
    QLineEdit* edit = Window.TextFileName;
    const QString text = FromText(AppState.TextFileName.Text);
    if (edit->text() != text) {
        edit->setText(text);
    }
    ShowColour(edit, QPalette::Text, AppState.FileNameColor);
    ShowColour(edit, QPalette::Base, AppState.FileNameBackColor);
    if (Window.Shown.NameSign != AppState.FileNameImage) {
        Window.Shown.NameSign = AppState.FileNameImage;
        Window.ImageFile->setPixmap(NamedPicture(FromText(AppState.FileNameImage), Window.ImageFile->size(),
                                                 Window.Main->devicePixelRatioF()));
    }
}

void ShowPreview()
{
    const bool changed =
        Window.Shown.PreviewJob != AppState.PreviewJob || Window.Shown.PreviewNest != AppState.PreviewNest;
    if (!changed) {
        return;
    }
    Window.Shown.PreviewJob = AppState.PreviewJob;
    Window.Shown.PreviewNest = AppState.PreviewNest;
    if (AppState.PreviewNest != FlagOff) {
        DrawNestPreview();
    }
    PictureBox(Picture::Preview)->update();
}

void ShowPanels()
{
    const auto shown = [](Panel panel) {
        return AppState.PanelVisible[static_cast<std::size_t>(panel)] != FlagOff;
    };
    ShowIn(Window.InputPanel, shown(Panel::TabInput));
    ShowIn(Window.CamPanel, shown(Panel::TabCam));
    ShowIn(PictureBox(Picture::Param), shown(Panel::PicParam));
    ShowIn(PictureBox(Picture::Tecno), shown(Panel::TecnoPic));
    ShowIn(PictureBox(Picture::Nesting), shown(Panel::NestingPic));
    ShowIn(Window.FrameValue, shown(Panel::FrameValue));
    ShowIn(Window.FrameCutting, shown(Panel::FrameCutting));
    ShowIn(Window.FrameNesting, shown(Panel::FrameNesting));
    if (Window.Shown.LogoFile != AppState.LogoFile) {
        Window.Shown.LogoFile = AppState.LogoFile;
        PictureBox(Picture::Param)->update();
    }
}

/// A hidden control can't keep the focus; then the window itself takes the keys. Value fields have been left by then:
/// a screen is left by leaving its field first.
void KeepFocus()
{
    const bool hidden = Window.Focus != nullptr && !Window.Focus->isVisibleTo(Window.Main);
    if (hidden && Window.Focus == Window.TextFileName) {
        FileNameLeft();
    }
    QWidget* wanted =
        Window.Focus != nullptr && Window.Focus->isVisibleTo(Window.Main) ? Window.Focus : Window.Main;
    Window.Focus = wanted;
    if (!wanted->hasFocus() && !Window.Modal) {
        wanted->setFocus(Qt::OtherFocusReason);
    }
}

/// Forgets what depends on sizes, so that it is shown anew.
void ForgetPictures()
{
    Window.Shown.KeyBar = {};
    Window.Shown.InputIcons = {};
    Window.Shown.CamIcons = {};
    Window.Shown.ListFilled = {};
    Window.Shown.NameSign.clear();
}

void ShowLayout()
{
    const std::string layout = ToText(LayoutSignature());
    if (Window.Shown.Layout != layout) {
        Window.Shown.Layout = layout;
        LayOutWindow();
        ForgetPictures();
        ShowFields(); // boxes of another size are drawn anew, and a nest of fixed counts then writes its sheet
    }
}
} // namespace

void MirrorRecords()
{
    if (Window.Main == nullptr || Window.Mirroring) {
        return;
    }
    Window.Mirroring = true;
    const QString title = FromText(AppState.WindowTitle);
    if (Window.Main->windowTitle() != title) {
        Window.Main->setWindowTitle(title);
    }
    ShowTabs(Window.InputTabs, AppState.InputTab, AppState.InputTabCaption, AppState.InputTabIcon,
             Window.Shown.InputIcons);
    ShowTabs(Window.CamTabs, AppState.CamTab, AppState.CamTabCaption, AppState.CamTabIcon,
             Window.Shown.CamIcons);
    ShowFields();
    ShowLayout();
    ShowPanels();
    ShowKeyBar();
    ShowLists();
    ShowFileName();
    ShowPreview();
    KeepFocus();
    Window.Mirroring = false;
}

ListMetrics MeasureShownList(std::int16_t tab)
{
    QListWidget* list = Window.Lists[static_cast<std::size_t>(tab)];
    ListMetrics metrics;
    metrics.Width = list->viewport()->width();
    metrics.Height = list->viewport()->height();
    if (list->count() == 0) {
        return metrics;
    }
    list->doItemsLayout(); // it comes late by itself when the list became another size
    const bool icons = AppState.Lists[static_cast<std::size_t>(tab)].View == ViewIcons;
    const QRect first = list->visualItemRect(list->item(0));
    int across = 1; // items in the first row or column, as they stand
    while (across < list->count()) {
        const QRect next = list->visualItemRect(list->item(across));
        if (icons ? next.top() != first.top() : next.left() != first.left()) {
            break;
        }
        ++across;
    }
    const double spacing = icons ? IconSpacing : tab == TabPrograms ? JobSpacing : LineSpacing;
    const auto room = [across, spacing](int size) {
        return static_cast<std::int32_t>(std::ceil(spacing * size * across)) + 1; // safe from rounding
    };
    metrics.ItemWidth = first.width();
    metrics.ItemHeight = first.height();
    (icons ? metrics.Width : metrics.Height) = icons ? room(first.width()) : room(first.height());
    return metrics;
}
