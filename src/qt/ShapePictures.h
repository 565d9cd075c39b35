// ShapePictures.h -- the shapes of the catalogue as small pictures, filled, from the developed default shapes.
#pragma once

#include "shapes/Korvanta_Develop.h"

#include <QPixmap>
#include <QSize>

#include <cstdint>

/// The shape `shapeId` with its default values, filled, centred in `size` device-independent pixels, its true
/// proportions kept; null without such a shape. AppState is left as it was.
QPixmap ShapePicture(std::int16_t shapeId, QSize size, qreal pixelRatio);

/// The same for other values. A shape that has no builder, or that its builder refuses, gives a plain plate; no size
/// or no pixel ratio gives null. More records than an element table holds: RunTimeFault.
QPixmap ShapePictureOf(std::int16_t shapeId, const ShapeParameters& parameters, QSize size, qreal pixelRatio);
