// Layout.h -- where the panels and controls stand in the window, for any size of it.
#pragma once

#include <QString>

/// Places every control in the window's client area, and gives the drawing boxes images of their size.
void LayOutWindow();

/// What the places depend on, as one text: another text asks for LayOutWindow.
QString LayoutSignature();
