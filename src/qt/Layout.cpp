#include "qt/Layout.h"

#include "nesting/Korvanta_CutTecnology.h"
#include "qt/Artwork.h"
#include "qt/PaintSurface.h"
#include "qt/StationWindow.h"
#include "shapes/DimensionDrawing.h"
#include "shell/MsgBox_Unicode.h"

#include <QFontInfo>
#include <QFontMetrics>

#include <algorithm>

namespace
{
constexpr int DesignHeight = 480; ///< window height of the design font
constexpr int DesignFont = 13;    ///< pixels of it
constexpr int LargestFont = 22;
constexpr int LeastTabFont = 9;
constexpr int DesignScreen = 768;      ///< height of the screen that the key bar is designed for
constexpr int DesignButtonHeight = 60; ///< of that key bar
constexpr int KeyDivisor = 11;         ///< a key is an eleventh of the window wide
constexpr int KeyInset = 6;            ///< from a key's edge to its picture
constexpr int LeastKeyIcon = 8;
constexpr int TabIconExtra = 4; ///< of a tab's icon over the height of its letters
constexpr int ListTop = 11;     ///< of the lists below the edge of the tabs
constexpr int ListInset = 3;
constexpr int HostMargin = 12;  ///< between the job list and its frame, with a host's bar
constexpr int FrameMargin = 18; ///< and without
constexpr int Gap = 6;
constexpr int FieldDigits = 12;  ///< that a field has room for
constexpr int CountPercent = 40; ///< of a sheet field's width that its count takes
constexpr int LabelPercent = 28; ///< of the window's width that labels of fields take at most
constexpr int ChineseLanguage = 6;
constexpr const char* ChineseFamily = "Noto Sans CJK SC";
constexpr int ChineseLabelExtra = 2; ///< letters that the Chinese label of the name is wider than its caption
constexpr double LeadHelpAspect = 0.6; ///< height over width

/// Sizes that follow from the window's.
struct Measures {
    int Width = 0;
    int Height = 0;
    int Button = 0;
    int TabHeight = 0;
    QRect Work; ///< above the key bar, less the host's bar
};

int FontPixels(int height)
{
    return std::clamp(DesignFont * height / DesignHeight, DesignFont, LargestFont);
}

QRect AtLeastEmpty(const QRect& rect)
{
    return {rect.x(), rect.y(), std::max(0, rect.width()), std::max(0, rect.height())};
}

Measures MeasureWindow()
{
    Measures m;
    m.Width = Window.Main->width();
    m.Height = Window.Main->height();
    m.Button = AppState.Window.ButtonHeight > 0
                   ? AppState.Window.ButtonHeight
                   : std::max(DesignButtonHeight, DesignButtonHeight * m.Height / DesignScreen);
    m.Button = std::min(m.Button, m.Height / 2);
    const int host = std::clamp<int>(AppState.HostBarHeight, 0, m.Height / 2);
    m.Work = QRect(0, host, m.Width, m.Height - m.Button - host);
    m.TabHeight = std::max(Window.InputTabs->sizeHint().height(), Window.CamTabs->sizeHint().height());
    return m;
}

/// The window's font, or a smaller one where the captions are too long for the window.
void FitTabs(QTabBar* tabs, QFont font)
{
    for (int pixels = font.pixelSize(); pixels >= LeastTabFont; --pixels) {
        font.setPixelSize(pixels);
        tabs->setFont(font);
        const int icon = QFontMetrics(font).height() + TabIconExtra;
        tabs->setIconSize(QSize(icon, icon));
        if (tabs->sizeHint().width() <= Window.Main->width()) {
            return;
        }
    }
}

bool ShowsChinese()
{
    return AppState.Language == ChineseLanguage && IsUnicodeLanguage();
}

/// Chinese is written in its own letter forms, not in the Japanese ones that a desktop may prefer.
QStringList FontFamilies(const QFont& font)
{
    const QString latin =
        QFontInfo(font).family(); // a general name such as Sans Serif would leave it the choice
    return ShowsChinese() ? QStringList{latin, ChineseFamily} : QStringList{latin};
}

void SetFonts()
{
    QFont font = Window.Main->font();
    font.setFamilies(FontFamilies(font));
    font.setPixelSize(FontPixels(Window.Main->height()));
    Window.Main->setFont(font);
    FitTabs(Window.InputTabs, font);
    FitTabs(Window.CamTabs, font);
}

void PlaceKeyBar(const Measures& m)
{
    const int width = m.Width / KeyDivisor;
    for (int i = 0; i < KeyButtonCount; ++i) {
        QToolButton* key = Window.Keys[static_cast<std::size_t>(i)];
        const int left = (m.Width * (2 * i + 1) / KeyButtonCount - width) / 2;
        key->setGeometry(left, m.Height - m.Button, width, m.Button);
        const int icon = std::max(LeastKeyIcon, std::min(width, m.Button) - KeyInset);
        key->setIconSize(QSize(icon, icon));
    }
}

// --- Input screen -----------------------------------------------------------------------------------------

/// The Chinese caption is measured in capital letters, as its font has no other measure of its own.
int NameLabelWidth(const QFontMetrics& metrics)
{
    const QString caption = FromText(AppState.LabelFileName);
    if (ShowsChinese()) {
        return metrics.horizontalAdvance(QString(caption.size() + ChineseLabelExtra, 'W'));
    }
    return metrics.horizontalAdvance(caption) + Gap;
}

/// Preview, label and name one under the other, in a frame at the right edge.
int PlaceNameFrame(const QRect& area)
{
    const QFontMetrics metrics(Window.Main->font());
    const int line = metrics.height() + Gap;
    const int picture = std::clamp<int>(AppState.Window.PreviewWidth, 1, std::max(1, area.width() / 2));
    const int label = std::min(NameLabelWidth(metrics), area.width() / 3);
    const int width =
        std::min(std::max(picture, std::max(label + line + Gap, FieldDigits * line / 2)), area.width() / 2);
    const int height =
        std::clamp<int>(AppState.Window.PreviewHeight, 1, std::max(1, area.height() - 2 * line - 2 * Gap));
    Window.FrameFileNesting->setGeometry(
        AtLeastEmpty({area.right() + 1 - width, area.top(), width, area.height()}));
    PictureBox(Picture::Preview)->setGeometry((width - picture) / 2, 0, picture, height);
    Window.LabelFileName->setGeometry(0, height + Gap, std::min(label, width), line);
    Window.ImageFile->setGeometry(0, height + Gap + line, line, line);
    const QRect name(line + 2, height + Gap + line, std::max(0, width - line - 2), line);
    Window.TextFileName->setGeometry(name);
    Window.Progress->setGeometry(name);
    return width;
}

void PlaceInputPanel(const Measures& m)
{
    Window.InputPanel->setGeometry(m.Work);
    Window.InputTabs->setGeometry(0, 0, m.Width, m.TabHeight);
    const QRect area = AtLeastEmpty({ListInset, m.TabHeight + ListTop - ListInset, m.Width - 2 * ListInset,
                                     m.Work.height() - m.TabHeight - ListTop});
    const int frame = PlaceNameFrame(area);
    const int margin = AppState.HostBarHeight > 0 ? HostMargin : FrameMargin;
    for (QListWidget* list : Window.Lists) {
        list->setGeometry(area);
    }
    Window.Lists[TabPrograms]->setGeometry(AtLeastEmpty(area.adjusted(0, 0, -frame - margin, 0)));
}

// --- CAM screens --------------------------------------------------------------------------------------------

/// Of the rows that are shown: a shape leaves longer captions of another one behind in the rows that it hides.
template <std::size_t Count>
int WidestLabel(const std::array<FieldRow, Count>& rows, const QFontMetrics& metrics)
{
    int width = 0;
    for (const FieldRow& row : rows) {
        if (row.Label->isVisibleTo(row.Label->parentWidget())) {
            width = std::max(width, metrics.horizontalAdvance(row.Label->text()));
        }
    }
    return width;
}

/// Rows from the top of a frame; the height of a row is the result.
template <std::size_t Count>
int PlaceRows(const std::array<FieldRow, Count>& rows, const QSize& frame, int label, int rowCount)
{
    const int font = QFontMetrics(Window.Main->font()).height();
    const int pitch = std::min(font + 2 * Gap + 2, frame.height() / std::max(1, rowCount));
    const int height = std::max(1, std::min(font + Gap, pitch - 1));
    for (std::size_t i = 0; i < Count; ++i) {
        const int top = static_cast<int>(i) * pitch;
        rows[i].Label->setGeometry(0, top, label, height);
        rows[i].Edit->setGeometry(label + 2, top, std::max(1, frame.width() - label - 2), height);
    }
    return pitch;
}

/// The sheet's fields are shorter: their counts stand beside them.
void PlaceCounts()
{
    for (std::size_t i = 0; i < Window.Counts.size(); ++i) {
        QLineEdit* edit = Window.Nesting[i].Edit;
        const QRect whole = edit->geometry();
        const int count = whole.width() * CountPercent / 100;
        edit->setGeometry(whole.adjusted(0, 0, -count - 2, 0));
        Window.Counts[i]->setGeometry(whole.right() + 1 - count, whole.top(), count, whole.height());
    }
}

void PlaceLeadHelp(const QSize& frame, int top)
{
    const int height = std::min(frame.height() - top - Gap, static_cast<int>(frame.width() * LeadHelpAspect));
    const QSize size(frame.width(), std::max(0, height));
    Window.LeadHelp->setGeometry(0, top + Gap, size.width(), size.height());
    Window.LeadHelp->setPixmap(NamedPicture("LeadHelp", size, Window.Main->devicePixelRatioF()));
}

void PlaceCamPanel(const Measures& m)
{
    Window.CamPanel->setGeometry(m.Work);
    Window.CamTabs->setGeometry(0, 0, m.Width, m.TabHeight);
    const QFontMetrics metrics(Window.Main->font());
    const int widest = std::max({WidestLabel(Window.Params, metrics), WidestLabel(Window.Cutting, metrics),
                                 WidestLabel(Window.Nesting, metrics)});
    const int label = std::min(widest + Gap, m.Width * LabelPercent / 100);
    const int field = metrics.horizontalAdvance("0") * FieldDigits;
    const QRect area = AtLeastEmpty({ListInset, m.TabHeight + ListInset, m.Width - 2 * ListInset,
                                     m.Work.height() - m.TabHeight - 2 * ListInset});
    const int frameWidth = std::min(label + field, area.width() / 2);
    const QRect frame(area.right() + 1 - frameWidth, area.top(), frameWidth, area.height());
    for (QWidget* panel : {Window.FrameValue, Window.FrameCutting, Window.FrameNesting}) {
        panel->setGeometry(frame);
    }
    const QRect box = AtLeastEmpty(area.adjusted(0, 0, -frameWidth - Gap, 0));
    for (const Picture picture : {Picture::Param, Picture::Tecno, Picture::Nesting}) {
        PictureBox(picture)->setGeometry(box);
    }
    PlaceRows(Window.Params, frame.size(), label, ParamFieldCount);
    const int pitch = PlaceRows(Window.Cutting, frame.size(), label, ParamFieldCount);
    PlaceRows(Window.Nesting, frame.size(), label, ParamFieldCount);
    PlaceCounts();
    PlaceLeadHelp(frame.size(), pitch * CuttingFieldCount);
}

/// Gives the drawing boxes images of their size; true when one of them became another.
bool SizeImages()
{
    bool changed = false;
    const qreal ratio = Window.Main->devicePixelRatioF();
    for (const Picture picture : {Picture::Param, Picture::Tecno, Picture::Nesting, Picture::Preview}) {
        const QSize size = PictureBox(picture)->size();
        const QImage& image = SurfaceImage(picture);
        const bool same = !image.isNull() && image.deviceIndependentSize().toSize() == size &&
                          image.devicePixelRatio() == ratio;
        if (!same) {
            ResizeSurface(picture, size, ratio);
            changed = true;
        }
    }
    return changed;
}

/// Draws the current screen's picture anew, fitted, after its box became another.
void RedrawBoxes()
{
    if (AppState.ScreenState == ScreenParameters) {
        if (AppState.ShapeId == 0) {
            DrawScene(Picture::Param, FlagOn, FlagOff, FlagOff);
        } else {
            DrawShapePicture(Picture::Param, FocusedParameter());
        }
    } else if (AppState.Redraw != nullptr) {
        AppState.Redraw(FlagOn);
    }
}
} // namespace

void LayOutWindow()
{
    SetFonts();
    const Measures m = MeasureWindow();
    PlaceKeyBar(m);
    PlaceInputPanel(m);
    PlaceCamPanel(m);
    if (SizeImages()) {
        RedrawBoxes();
    }
}

QString LayoutSignature()
{
    QString text = QString("%1x%2@%3|%4|%5|%6x%7|%8|")
                       .arg(Window.Main->width())
                       .arg(Window.Main->height())
                       .arg(Window.Main->devicePixelRatioF())
                       .arg(AppState.Window.ButtonHeight)
                       .arg(AppState.HostBarHeight)
                       .arg(AppState.Window.PreviewWidth)
                       .arg(AppState.Window.PreviewHeight)
                       .arg(AppState.Language);
    text += FromText(AppState.LabelFileName);
    for (const std::string& caption : AppState.InputTabCaption) {
        text += '|' + FromText(caption);
    }
    for (const std::string& caption : AppState.LabelCutting) {
        text += '|' + FromText(caption);
    }
    for (std::size_t i = 0; i < ParamFieldCount; ++i) {
        text += AppState.ParamText[i].Visible != FlagOff ? '|' + FromText(AppState.ParamLabel[i]) : "";
    }
    return text;
}
