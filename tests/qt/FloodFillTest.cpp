// Filling an area up to the strokes around it.
#include "qt/FloodFill.h"

#include "profile/Drawing.h"
#include "qt/PaintSurface.h"

#include <QImage>
#include <QPainter>

#include <cmath>
#include <gtest/gtest.h>

namespace
{
constexpr QRgb White = 0xFFFFFFFF;
constexpr QRgb Fill = 0xFFAA5500;
constexpr QRgb Border = 0xFF5555FF;

QImage Blank()
{
    QImage image(20, 20, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

/// An outline of one pixel from 5 to 14.
QImage Boxed()
{
    QImage image = Blank();
    for (int i = 5; i <= 14; ++i) {
        image.setPixel(i, 5, Border);
        image.setPixel(i, 14, Border);
        image.setPixel(5, i, Border);
        image.setPixel(14, i, Border);
    }
    return image;
}

int CountOf(const QImage& image, QRgb colour)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixel(x, y) == colour ? 1 : 0;
        }
    }
    return count;
}

TEST(FloodFill, StopsAtTheBorder)
{
    QImage image = Boxed();
    FloodFill(image, 10, 10, 0xAA5500, 0x5555FF);
    EXPECT_EQ(CountOf(image, Fill), 8 * 8);
    EXPECT_EQ(CountOf(image, Border), 36);
    EXPECT_EQ(image.pixel(4, 10), White);
}

TEST(FloodFill, AroundABorderUpToTheEdgesOfTheImage)
{
    QImage image = Boxed();
    FloodFill(image, 0, 0, 0xAA5500, 0x5555FF);
    EXPECT_EQ(CountOf(image, Fill), 400 - 100);
    EXPECT_EQ(image.pixel(10, 10), White);
}

TEST(FloodFill, OtherStrokesAreNoBorder)
{
    QImage image = Boxed();
    for (int i = 6; i <= 13; ++i) {
        image.setPixel(i, 9, 0xFF000000);
    }
    FloodFill(image, 10, 7, 0xAA5500, 0x5555FF);
    EXPECT_EQ(CountOf(image, Fill), 64);
}

TEST(FloodFill, OnTheBorderOrOutsideNothingHappens)
{
    QImage image = Boxed();
    const QImage before = image.copy();
    FloodFill(image, 5, 10, 0xAA5500, 0x5555FF);
    FloodFill(image, -1, 10, 0xAA5500, 0x5555FF);
    FloodFill(image, 10, 20, 0xAA5500, 0x5555FF);
    EXPECT_EQ(image, before);
}

TEST(FloodFill, HalfCoveredPixelsHoldAndFainterOnesAreMixedAnew)
{
    QImage image = Blank();
    for (int y = 0; y < 20; ++y) {
        image.setPixel(9, y, qRgb(221, 221, 255));  // a fifth of the border's colour on white
        image.setPixel(10, y, qRgb(136, 136, 255)); // 0.7
    }
    FloodFill(image, 2, 2, 0xAA5500, 0x5555FF);
    EXPECT_EQ(CountOf(image, Fill), 9 * 20);
    EXPECT_EQ(CountOf(image, White), 9 * 20) << "behind the stroke";
    EXPECT_EQ(image.pixel(9, 4), qRgb(153, 85, 51)) << "brown with a fifth of blue";
    EXPECT_EQ(image.pixel(10, 4), qRgb(111, 85, 179)) << "and with 0.7";
}

TEST(FloodFill, SmoothCirclesOfEverySizeHold)
{
    ResizeSurface(Picture::Tecno, QSize(300, 300), 1.0);
    SurfaceSetScale(Picture::Tecno, 0, 300, 300, -300);
    for (int radius = 5; radius < 140; radius += 3) {
        SurfaceClear(Picture::Tecno);
        SurfaceSetPen(Picture::Tecno, {0x5555FF, 2, false, false});
        SurfaceCircle(Picture::Tecno, 150.3F, 149.6F, static_cast<float>(radius) + 0.4F);
        SurfaceFloodFill(Picture::Tecno, 150.0F, 150.0F, 0xAA5500, 0x5555FF);
        EXPECT_EQ(SurfaceImage(Picture::Tecno).pixel(1, 1), White) << "it leaked from radius " << radius;
        const double area = 3.14159 * radius * radius;
        EXPECT_NEAR(CountOf(SurfaceImage(Picture::Tecno), Fill), area, 8.0 * radius) << radius;
    }
    ResizeSurface(Picture::Tecno, QSize(), 1.0);
}

TEST(FloodFill, TheSeedIsAPlaceInTheWorld)
{
    ResizeSurface(Picture::Tecno, QSize(100, 50), 2.0);
    SurfaceSetScale(Picture::Tecno, -10, 40, 200, -100); // a pixel of the image is a unit
    SurfaceSetPen(Picture::Tecno, {0x5555FF, 1, false, false});
    SurfaceLine(Picture::Tecno, 90, 50, 90, -70);
    SurfaceFloodFill(Picture::Tecno, 120, 0, 0xAA5500, 0x5555FF);
    EXPECT_EQ(SurfaceImage(Picture::Tecno).pixel(190, 10), Fill) << "on the right of the line";
    EXPECT_EQ(SurfaceImage(Picture::Tecno).pixel(10, 10), White);
    SurfaceFloodFill(Picture::Tecno, 1e9F, 0, 0x000000, 0x5555FF); // far outside
    EXPECT_EQ(SurfaceImage(Picture::Tecno).pixel(10, 10), White);
    ResizeSurface(Picture::Tecno, QSize(), 1.0);
}
} // namespace
