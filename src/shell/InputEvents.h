// InputEvents.h -- what happens to the controls of the Input screen: the file-name field, the lists, the window itself.
#pragma once

#include <cstdint>

// --- TextFileName -------------------------------------------------------------------------------------------

/// Its text became another one: the job list shows the names that begin with it.
void FileNameChanged(std::int16_t index);

void FileNameEntered();
void FileNameLeft();
void FileNameKey(std::int16_t keyCode, std::int16_t shift);

// --- lists --------------------------------------------------------------------------------------------------

/// A click in the list of `tab` on item `index`, -1 beside all items.
void ListClicked(std::int16_t tab, std::int32_t index);

/// The arrow keys of the list itself have moved its selection to item `index`.
void ListSelectionMoved(std::int16_t tab, std::int32_t index);

/// Any other key in the list of `tab`; a double click arrives as Enter.
void ListKey(std::int16_t tab, std::int16_t keyCode, std::int16_t shift);
void ListDoubleClicked(std::int16_t tab);

// --- tabs and window ----------------------------------------------------------------------------------------

/// A click on tab `tab` of Tab_Input. While a name is asked for the list of the jobs stays.
void ClickInputTab(std::int16_t tab);

/// The window became the active one.
void WindowActivated();
