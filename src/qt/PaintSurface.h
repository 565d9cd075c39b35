// PaintSurface.h -- the body of the drawing seam that paints: each drawing box has an image in the pixels of the screen,
// which stays until the next stroke.
#pragma once

#include "platform/Surface.h"

#include <QImage>
#include <QPointF>
#include <QSize>

/// What the painted pictures tell the window; null where nobody listens.
struct SurfaceListeners {
    void (*Touched)(Picture picture) = nullptr;             ///< strokes were added or taken away
    void (*Pointer)(Picture picture, bool cross) = nullptr; ///< the pointer over the box is to be another
};

extern SurfaceListeners SurfaceListener;

/// Gives a box its size in device-independent pixels and the screen's pixel ratio. A box of another size is empty.
void ResizeSurface(Picture picture, QSize size, qreal pixelRatio);

/// The picture as it stands, with its device pixel ratio set; null before the box has a size.
const QImage& SurfaceImage(Picture picture);

/// World position of a point of the box, in device-independent pixels from its upper left corner.
void SurfaceWorldOf(Picture picture, QPointF point, double& x, double& y);
