// ShapePictures.h -- the shapes of the catalogue as small pictures, filled, from the developed default shapes.
#pragma once

#include <QPixmap>
#include <QSize>

#include <cstdint>

/// The shape `shapeId` with its default values, filled, centred in `size` device-independent pixels, its true
/// proportions kept; null without such a shape. AppState is left as it was.
QPixmap ShapePicture(std::int16_t shapeId, QSize size, qreal pixelRatio);
