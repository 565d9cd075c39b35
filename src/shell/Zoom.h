// Zoom.h -- the zoom of the drawing boxes: a frame on the whole picture that is sized and moved, then fills the picture.
#pragma once

#include "platform/Surface.h"
#include "state/AppState.h"

enum class ZoomStep : std::int16_t {
    Enter,  ///< the Zoom field got the focus: the whole picture with the frame
    Change, ///< the factor changed
    Right,  ///< the frame moves by a quarter of its size
    Left,
    Down,
    Up,
    Confirm, ///< "Zoom OK", or the field was left: what the frame holds fills the picture
};

/// One step of the zoom on `picture`, whose Zoom field holds `factor`, 1 to 30. Enter sets FieldMode to ModeZoom, unless it is
/// that already; Change and the moves do nothing outside it. Confirm with factor 1 shows the whole, otherwise it
/// sets the view members and SavedCentreX, SavedCentreY; doing so twice is the same as once. Factors out of the limits
/// count as the limit.
void ApplyZoom(Picture picture, ZoomStep step, double factor);

/// Confirm on the current screen: what a factor comes to that is left or clicked away.
void ApplyZoom(double factor);

/// Forgets the place of the last zoom: a new part begins.
void ClearZoom();
