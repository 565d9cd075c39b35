#include "qt/ShapePictures.h"

QPixmap ShapePicture(std::int16_t, QSize, qreal)
{
    return {};
}
