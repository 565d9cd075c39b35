#include "qt/Artwork.h"

#include "qt/ShapePictures.h"

QPixmap ArtPicture(const ImageRef& image, QSize size, qreal pixelRatio)
{
    switch (image.List) {
    case ImageList::Rect:
        return ShapePicture(static_cast<std::int16_t>(1000 + image.Image), size, pixelRatio);
    case ImageList::Circular:
        return ShapePicture(static_cast<std::int16_t>(2000 + image.Image), size, pixelRatio);
    case ImageList::Holes:
        return ShapePicture(static_cast<std::int16_t>(3000 + image.Image), size, pixelRatio);
    default:
        return {};
    }
}

QPixmap NamedPicture(const QString&, QSize, qreal)
{
    return {};
}
