// Artwork.h -- the pictures of keys, tabs, lists and signs, drawn from the compiled-in artwork at the size asked for.
#pragma once

#include "state/ScreenRecords.h"

#include <QPixmap>
#include <QSize>
#include <QString>

/// Picture `image` of an image list, fitted into `size` device-independent pixels on a screen of `pixelRatio`; null for
/// ImageList::None and for a number without a picture. The shape lists show the developed default shapes.
QPixmap ArtPicture(const ImageRef& image, QSize size, qreal pixelRatio);

/// A picture by its name: "SaveFile", "LoadFile" (signs beside the file name), "LeadHelp" (the lead values A to D on a
/// contour), "Application". Null for another name.
QPixmap NamedPicture(const QString& name, QSize size, qreal pixelRatio);

/// The drawing behind a picture: the path of its compiled-in file; empty where there is none, as for the shape lists.
QString ArtFile(const ImageRef& image);
QString ArtFile(const QString& name);

/// The drawing `file` fitted into `size` device-independent pixels, centred, its proportions kept, on nothing; the
/// picture has exactly the pixels that `size` takes on a screen of `pixelRatio`. Null for an empty size or a file that
/// can't be drawn. A key bar is drawn at each change of the focus, so pictures are kept in Qt's own bounded store.
QPixmap DrawArt(const QString& file, QSize size, qreal pixelRatio);
