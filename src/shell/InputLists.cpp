#include "shell/InputLists.h"

#include "config/Korvanta_Utility.h"
#include "jobfiles/JobFiles.h"
#include "platform/Paths.h"
#include "platform/Screen.h"
#include "shapes/Korvanta_Parameters.h"
#include "shell/KeyBar.h"
#include "shell/MsgBox_Unicode.h"

#include <algorithm>

namespace
{
constexpr std::int16_t ChineseLanguage = 6;

/// Images of the tabs: each Input tab has a normal and a highlighted one, side by side; the CAM tabs follow.
constexpr std::int16_t SmallTabImage = 3;
constexpr std::int16_t ChinaTabImage = 4;
constexpr std::int16_t SmallCamImage = 15;
constexpr std::int16_t ChinaCamImage = 1;

/// Images of ImageListFileListNormal, one for each kind of file.
constexpr ImageRef JobIcon = {ImageList::FileListNormal, 1};
constexpr ImageRef DxfIcon = {ImageList::FileListNormal, 2};
constexpr ImageRef DwgIcon = {ImageList::FileListNormal, 3};
constexpr ImageRef IsoIcon = {ImageList::FileListNormal, 4};

/// Spacing of the items by layout, as a factor of their size.
constexpr double IconSpacing = 1.2;
constexpr double JobSpacing = 1.02;
constexpr double LineSpacing = 1.1;

ListRecord& List(std::int16_t tab)
{
    return AppState.Lists[static_cast<std::size_t>(tab)];
}

bool ShowsChinese()
{
    return AppState.Language == ChineseLanguage && IsUnicodeLanguage();
}

bool HasExtension(std::string_view upperName, std::string_view upperExtension)
{
    if (upperExtension == "*") {
        return true;
    }
    const std::size_t point = upperName.rfind('.');
    return point != std::string_view::npos && upperName.substr(point + 1) == upperExtension;
}

void SelectFirst(ListRecord& list)
{
    if (list.Selected < 0 && !list.Items.empty()) {
        list.Selected = 0;
    }
}

void FillShapeList(std::int16_t tab, std::int16_t family, ImageList pictures)
{
    ListRecord& list = List(tab);
    list = ListRecord();
    for (const ShapeRow& row : ShapeCatalogue()) {
        if (row.ShapeId > family && row.ShapeId < family + 1000) {
            list.Items.push_back({row.Name, {pictures, static_cast<std::int16_t>(row.ShapeId - family)}});
        }
    }
    SelectFirst(list);
    ++list.Filled;
}

/// How many items of a size stand side by side, with their spacing.
std::int32_t ItemsAcross(std::int32_t room, double spacing, std::int32_t size)
{
    return size <= 0 ? 0 : CutAndClampToInt32(room / (spacing * size));
}

/// Items that a step in `direction` passes over, backwards below 0.
std::int32_t StepOf(std::string_view direction, std::int16_t view)
{
    const bool sideways = direction == "Dx" || direction == "Sx";
    std::int32_t step = 1;
    const bool singleStep = sideways == (view == ViewIcons);
    if (!singleStep) {
        const ListMetrics metrics = MeasureList(AppState.InputTab);
        step = view == ViewIcons
                   ? ItemsAcross(metrics.Width, IconSpacing, metrics.ItemWidth)
                   : ItemsAcross(metrics.Height, AppState.InputTab == TabPrograms ? JobSpacing : LineSpacing,
                                 metrics.ItemHeight);
    }
    return direction == "Sx" || direction == "Up" ? -step : step;
}
} // namespace

void FillFileList(std::int16_t list, const std::string& folder, std::string_view extension, ImageRef icon,
                  std::int32_t color, bool stripExtension, std::string_view filter, bool clearFirst)
{
    ListRecord& record = List(list);
    if (clearFirst) {
        record.Items.clear();
        record.Selected = -1;
    }
    if (list == AppState.InputTab) {
        AppState.FrontList = list;
    }
    record.View = ViewList;
    record.TextColor = color;
    ++record.Filled;
    const std::string wantedExtension = UpperCase(extension);
    const std::string wantedStart = UpperCase(filter);
    std::vector<std::string> texts;
    for (const std::string& file : ListFiles(folder)) {
        std::string name = UpperCase(file);
        if (HasExtension(name, wantedExtension) && name.starts_with(wantedStart)) {
            texts.push_back(stripExtension ? name.substr(0, name.find('.')) : name);
        }
    }
    std::sort(texts.begin(), texts.end());
    for (std::string& text : texts) {
        record.Items.push_back({std::move(text), icon});
    }
    SelectFirst(record);
}

void FillJobList(const std::string& filter)
{
    FillFileList(TabPrograms, AppState.NestingPath, "nst", JobIcon, ColorBlue, true, filter, true);
    if (AppState.PreviewNest == FlagOff) {
        const ListItem* item = SelectedItem(TabPrograms);
        AppState.PreviewJob = item != nullptr ? item->Text : "";
    }
}

void FillDxfList()
{
    FillFileList(TabDxfIn, AppState.DxfPath, "dxf", DxfIcon, ColorRed, false, "", true);
    FillFileList(TabDxfIn, AppState.DxfPath, "dwg", DwgIcon, ColorRed, false, "", false);
}

void FillIsoList()
{
    FillFileList(TabIsoIn, AppState.NcPath, "*", IsoIcon, ColorRed, false, "", true);
}

void FillShapeLists()
{
    FillShapeList(TabRect, FamilyRect, ImageList::Rect);
    FillShapeList(TabCirc, FamilyCircular, ImageList::Circular);
    FillShapeList(TabHoles, FamilyHoles, ImageList::Holes);
    ShowCurrentList();
}

void ShowCurrentList()
{
    AppState.FrontList = AppState.InputTab;
}

void SetTabIcons()
{
    const bool chinese = ShowsChinese();
    // The last one, too: a tab that was left must not keep its highlight.
    for (std::int16_t tab = 0; tab < InputTabCount; ++tab) {
        const int first = chinese ? ChinaTabImage : SmallTabImage;
        const int image = 2 * tab + first + (tab == AppState.InputTab ? 1 : 0);
        AppState.InputTabIcon[static_cast<std::size_t>(tab)] = {chinese ? ImageList::China : ImageList::Small,
                                                                static_cast<std::int16_t>(image)};
    }
    FocusList(AppState.InputTab);
}

void SetCamTabIcons()
{
    const bool chinese = ShowsChinese();
    for (std::int16_t tab = 0; tab < CamTabCount; ++tab) {
        const int image = tab + (chinese ? ChinaCamImage : SmallCamImage);
        AppState.CamTabIcon[static_cast<std::size_t>(tab)] = {chinese ? ImageList::China : ImageList::Small,
                                                              static_cast<std::int16_t>(image)};
    }
}

void SelectInputTab(std::int16_t tab)
{
    if (tab < 0 || tab >= InputTabCount) {
        return;
    }
    AppState.InputTab = tab;
    ShowCurrentList();
    SetTabIcons();
    RefreshKeyBar();
    switch (tab) {
    case TabPrograms:
        FillJobList("");
        break;
    case TabDxfIn:
        FillDxfList();
        break;
    case TabIsoIn:
        FillIsoList();
        break;
    default:
        break;
    }
}

void MoveListCursor(std::string_view direction)
{
    ListRecord& list = List(AppState.InputTab);
    if (list.Items.empty()) {
        return;
    }
    const std::int64_t target = std::int64_t{list.Selected} + StepOf(direction, list.View);
    if (target < 0 || target >= static_cast<std::int64_t>(list.Items.size())) {
        return;
    }
    list.Selected = static_cast<std::int32_t>(target);
    if (AppState.InputTab == TabPrograms) {
        ShowJobPreview(Picture::Preview, list.Items[static_cast<std::size_t>(target)].Text);
    }
}

const ListItem* SelectedItem(std::int16_t tab)
{
    const ListRecord& list = List(tab);
    const auto selected = static_cast<std::size_t>(list.Selected);
    return list.Selected >= 0 && selected < list.Items.size() ? &list.Items[selected] : nullptr;
}
