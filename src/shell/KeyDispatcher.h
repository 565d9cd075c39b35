// KeyDispatcher.h -- every key that no field uses itself, by screen; and the clicks on the key bar.
#pragma once

#include "platform/Surface.h"
#include "state/AppState.h"

#include <cstdint>

/// Runs a key on the current screen. `fields` and `picture` are those of the Cutting and Nesting screens; without fields
/// their keys F3 to F8 have nothing to work on. A key that means nothing, and a screen that is none, do nothing.
void KeyDispatcher(std::int16_t keyCode, std::int16_t shift, FieldArray fields = {},
                   Picture picture = Picture::Param);

/// A click on FunctionButton `button`, 0 to 9: the key F1 to F10, and the focus where it belongs afterwards.
void ClickFunctionButton(std::int16_t button);

/// A click on tab `tab` of Tab_CAM.
void ClickCamTab(std::int16_t tab);

/// The value fields of the current screen, empty on the Input screen; and the drawing beside them.
FieldArray ScreenFields();
Picture ScreenPicture();
