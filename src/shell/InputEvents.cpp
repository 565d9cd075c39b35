#include "shell/InputEvents.h"

#include "config/Korvanta_Utility.h"
#include "jobfiles/JobFiles.h"
#include "platform/Screen.h"
#include "shell/FieldEvents.h"
#include "shell/InputLists.h"
#include "shell/InputScreen.h"
#include "shell/KeyBar.h"
#include "shell/KeyCodes.h"
#include "shell/KeyDispatcher.h"
#include "shell/ValueFields.h"

#include <string>

namespace
{
ListRecord& List(std::int16_t tab)
{
    return AppState.Lists[static_cast<std::size_t>(tab)];
}

void ShowSign()
{
    AppState.FileNameImage = AppState.SaveMode != FlagOff ? "SaveFile" : "LoadFile";
}

/// Lists that are filled anew report indices of the items that were; those select nothing.
void SelectItem(std::int16_t tab, std::int32_t index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= List(tab).Items.size()) {
        return;
    }
    List(tab).Selected = index;
    const ListItem* item = SelectedItem(tab);
    if (tab == TabPrograms && item != nullptr) {
        ShowJobPreview(Picture::Preview, item->Text);
    }
}

/// The list is filled anew by the text that changes, so the item's text is copied first.
void CopySelectedName()
{
    const ListItem* item = SelectedItem(TabPrograms);
    if (item != nullptr) {
        SetText(AppState.TextFileName, std::string(item->Text));
    }
}

void ShowSelectedPreview()
{
    const ListItem* item = SelectedItem(TabPrograms);
    if (item != nullptr) {
        ShowJobPreview(Picture::Preview, item->Text);
    }
}

void JobListKey(std::int16_t keyCode, std::int16_t shift)
{
    switch (keyCode) {
    case KeySpace:
        CopySelectedName();
        break;
    case KeyEnter:
        CopySelectedName();
        FileNameKey(KeyEnter, shift);
        break;
    default:
        KeyDispatcher(keyCode, shift);
        ShowSelectedPreview();
        break;
    }
}

/// Enter in the name goes on when it is certain what is meant; otherwise the list is there to choose from.
void FileNameEnter(std::int16_t shift)
{
    const std::string& text = AppState.TextFileName.Text;
    const bool saving = AppState.SaveMode != FlagOff;
    if (saving && text.empty()) {
        return;
    }
    if (!saving && List(TabPrograms).Items.size() != 1) {
        FocusList(TabPrograms);
        return;
    }
    AppState.JobName = UpperCase(text);
    KeyDispatcher(KeyEnter, shift);
}
} // namespace

void FileNameChanged(std::int16_t)
{
    FillJobList(AppState.TextFileName.Text);
}

void FileNameEntered()
{
    const bool saving = AppState.SaveMode != FlagOff;
    AppState.FocusedSet = FieldSet::FileName;
    ShowSign();
    AppState.FileNameColor = saving ? ColorRed : ColorBlue;
    AppState.FileNameBackColor = ColorWhite;
    AppState.PreviewNest = ToFlag(saving);
    SelectWholeText(AppState.TextFileName);
    RefreshKeyBar();
}

void FileNameLeft()
{
    if (AppState.FocusedSet == FieldSet::FileName) {
        AppState.FocusedSet = FieldSet::None;
    }
    if (AppState.TextFileLostFocus == FlagOff) {
        return;
    }
    ShowSign();
    if (AppState.SaveMode == FlagOff) {
        AppState.FileNameColor = ColorYellow;
        AppState.FileNameBackColor = ColorBlack;
        SelectFieldText(AppState.TextFileName, 0, 0);
    }
}

void FileNameKey(std::int16_t keyCode, std::int16_t shift)
{
    switch (keyCode) {
    case KeyEnter:
        FileNameEnter(shift);
        break;
    case KeyUp:
    case KeyDown:
        FocusList(TabPrograms);
        break;
    default:
        KeyDispatcher(keyCode, shift);
        break;
    }
}

void ListClicked(std::int16_t tab, std::int32_t index)
{
    if (List(tab).Items.empty()) {
        if (tab == TabPrograms) {
            FocusField(AppState.TextFileName);
        }
        return;
    }
    SelectItem(tab, index);
}

void ListSelectionMoved(std::int16_t tab, std::int32_t index)
{
    SelectItem(tab, index);
}

void ListKey(std::int16_t tab, std::int16_t keyCode, std::int16_t shift)
{
    if (tab == TabPrograms) {
        JobListKey(keyCode, shift);
    } else {
        KeyDispatcher(keyCode, shift);
    }
}

void ListDoubleClicked(std::int16_t tab)
{
    ListKey(tab, KeyEnter, 0);
}

void ClickInputTab(std::int16_t tab)
{
    if (AppState.SaveMode == FlagOff) {
        SelectInputTab(tab);
    }
}

void WindowActivated()
{
    if (AppState.ScreenState != ScreenInput) {
        return; // the list that would get the focus is hidden
    }
    SetTabIcons();
    if (AppState.SaveMode != FlagOff) {
        FocusField(AppState.TextFileName);
    }
}
