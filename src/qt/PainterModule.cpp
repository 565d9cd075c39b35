// The painting of the window as a module of its own, for programs without one. Texts are left out: fonts would need the
// window system to be started.
#include "platform/Painter.h"
#include "qt/PaintSurface.h"

namespace
{
void Resize(Picture picture, std::int32_t width, std::int32_t height)
{
    ResizeSurface(picture, QSize(width, height), 1.0);
}

constexpr SurfacePainter Table = {
    Resize,     SurfaceSize,    SurfaceSetScale, SurfaceClear, SurfaceSetPen, SurfaceLine,
    SurfaceBox, SurfaceFillBox, SurfaceCircle,   SurfaceArc,   SurfaceBitmap,
};
} // namespace

extern "C" __attribute__((visibility("default"))) const SurfacePainter* KorvantaPainter();

const SurfacePainter* KorvantaPainter()
{
    return &Table;
}
