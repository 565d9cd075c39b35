// DimensionDrawing.h -- the dimensioned drawing of the current shape on the Parameters screen: outline, centre marks, and for
// each parameter its dimension with the letter; that of the focused field stands out.
#pragma once

#include "platform/Surface.h"
#include "state/PictureItem.h"

#include <cstdint>

/// Draws AppState.PictureItems anew. The dimension of field `highlighted` stands out, for 0 none does.
void DrawShapePicture(Picture picture, std::int16_t highlighted);

/// Marks the parameter field `number` (from 1) as the focused one, and redraws the picture with its dimension standing out.
void HighlightParameter(std::int16_t number);

/// Number of the parameter field with the focus, 0 when none has it.
std::int16_t FocusedParameter();

// --- the parts of it ----------------------------------------------------------------------------------------

/// Sets the view of `picture` so that the box of all items stands in its middle, a fifth of the box left free on each
/// side. Without items the scale stays.
void FitPictureScale(Picture picture);

/// The dimension of an item: extension lines, dimension line with its arrows, and the letter beside its middle, on the
/// left of the way from point 1 to point 2.
void DrawItemDimension(Picture picture, const PictureItem& item, bool highlighted);

/// The letter of an item at (x, y): 1.1 of its width to the left of the point, and from 0.6 of its height above it.
void DrawItemText(Picture picture, const PictureItem& item, double x, double y, bool highlighted);

/// A small cross.
void DrawCentreMark(Picture picture, double x, double y, std::uint32_t rgb);
