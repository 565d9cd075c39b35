#include "qt/PaintSurface.h"

#include <array>

SurfaceListeners SurfaceListener;

namespace
{
std::array<QImage, 4> Images;
}

bool PictureShown()
{
    return true;
}

void ResizeSurface(Picture picture, QSize size, qreal pixelRatio)
{
    QImage& image = Images[static_cast<std::size_t>(picture)];
    image = QImage(size * pixelRatio, QImage::Format_RGB32);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::white);
}

const QImage& SurfaceImage(Picture picture)
{
    return Images[static_cast<std::size_t>(picture)];
}

void SurfaceWorldOf(Picture, QPointF, double& x, double& y)
{
    x = y = 0.0;
}

void SurfaceSize(Picture picture, std::int32_t& width, std::int32_t& height)
{
    const QSize size = SurfaceImage(picture).deviceIndependentSize().toSize();
    width = size.width();
    height = size.height();
}

void SurfaceSetScale(Picture, double, double, double, double) {}
void SurfaceClear(Picture) {}
void SurfaceSetFont(Picture, std::int16_t) {}
void SurfaceSetPen(Picture, const SurfacePen&) {}
void SurfaceLine(Picture, float, float, float, float) {}
void SurfaceBox(Picture, float, float, float, float) {}
void SurfaceFillBox(Picture, float, float, float, float, std::uint32_t) {}
void SurfaceCircle(Picture, float, float, float) {}
void SurfaceArc(Picture, float, float, float, float, float) {}
void SurfaceText(Picture, float, float, const std::string&, std::uint32_t) {}

void SurfaceTextSize(Picture, const std::string&, double& width, double& height)
{
    width = height = 0.0;
}

void SurfaceSetCrossPointer(Picture, bool) {}
