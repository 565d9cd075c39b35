// PictureBoxes.h -- the drawing boxes as controls: they show their images, and take the mouse for measuring.
#pragma once

#include <QEvent>
#include <QWidget>

/// Paints a box, and forwards the mouse on the drawings of the Cutting and Nesting screens. True when the event is
/// dealt with; false too for a control that is no drawing box.
bool PictureEvent(QWidget* control, QEvent* event);

/// Lets the strokes that arrive refresh their boxes.
void ListenToPictures();
