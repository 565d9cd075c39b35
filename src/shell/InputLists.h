// InputLists.h -- the six lists of the Input screen and its tabs, as records.
#pragma once

#include "state/AppState.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Fills list `list` with the files of `folder` that have `extension` ("*" takes all) and begin with `filter`, without
/// regard to case. Texts are upper case, with `stripExtension` cut ahead of the first point, sorted within one call. A
/// folder that can't be read gives none. The first item of a list that had none is selected.
void FillFileList(std::int16_t list, const std::string& folder, std::string_view extension, ImageRef icon,
                  std::int32_t color, bool stripExtension, std::string_view filter, bool clearFirst);

/// The jobs that begin with `filter`. The preview is that of the selected one; a nest that is about to be saved stays in it.
void FillJobList(const std::string& filter);

void FillDxfList();
void FillIsoList();

/// The three lists of the catalogue, once at the start.
void FillShapeLists();

/// Brings the list of the current tab to the front.
void ShowCurrentList();

/// Pictures of the Input tabs, the current one highlighted; gives the current list the focus.
void SetTabIcons();

/// Pictures of the CAM tabs.
void SetCamTabIcons();

/// Makes `tab` the current Input tab, and fills the lists that are filled anew each time. A number that is none does
/// nothing.
void SelectInputTab(std::int16_t tab);

/// Moves the selection of the current list one step: "Dx" right, "Sx" left, "Dw" down, "Up" up, by the layout on the
/// screen. Past an end nothing happens.
void MoveListCursor(std::string_view direction);

/// The selected item of a list, null when there is none.
const ListItem* SelectedItem(std::int16_t tab);
