// The painting body of the drawing seam, pixel by pixel.
#include "qt/PaintSurface.h"

#include "profile/Drawing.h"
#include "profile/Strokes.h"

#include <QImage>

#include <array>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vector>

namespace
{
constexpr QRgb White = 0xFFFFFFFF;
constexpr QRgb Black = 0xFF000000;
constexpr QRgb Red = 0xFFFF0000;
constexpr SurfacePen Thin{ColourBlack, 1, false, false};
constexpr SurfacePen Thick{ColourBlack, 3, false, false};
constexpr SurfacePen Frame{ColourRed, 1, false, true};
constexpr std::array<std::int16_t, 3> Widths{1, 2, 3};
constexpr Picture Tecno = Picture::Tecno;

int TouchedCount = 0;
std::vector<bool> Crosses;

class PaintSurface : public testing::Test
{
protected:
    void SetUp() override
    {
        SurfaceListener = SurfaceListeners();
        ResizeSurface(Tecno, QSize(), 1.0);
        Open(Tecno, 40, 30, 1.0);
    }
    void TearDown() override
    {
        SurfaceListener = SurfaceListeners();
        for (const Picture picture : {Picture::Param, Tecno, Picture::Nesting, Picture::Preview}) {
            ResizeSurface(picture, QSize(), 1.0);
        }
    }

    /// An empty picture in which a unit of the world is a device-independent pixel; (0, 0) is low left.
    static void Open(Picture picture, int width, int height, double ratio)
    {
        ResizeSurface(picture, QSize(width, height), ratio);
        SurfaceSetScale(picture, 0, height, width, -height);
        SurfaceClear(picture);
        SurfaceSetPen(picture, Thin);
    }

    static QImage Image(Picture picture = Tecno)
    {
        return SurfaceImage(picture).copy();
    }

    static QRgb At(int x, int y)
    {
        return SurfaceImage(Tecno).pixel(x, y);
    }

    /// The pixels that aren't white.
    static int Inked(const QImage& image)
    {
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                count += image.pixel(x, y) != White ? 1 : 0;
            }
        }
        return count;
    }

    /// Black on white, in whole pixels.
    static double Ink(const QImage& image)
    {
        double sum = 0.0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                sum += (255 - qRed(image.pixel(x, y))) / 255.0;
            }
        }
        return sum;
    }

    /// All pixels of the columns x1 .. x2 and rows y1 .. y2 black, all others white.
    static void ExpectOnlyBlack(const QImage& image, int x1, int y1, int x2, int y2)
    {
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const bool inside = x >= x1 && x <= x2 && y >= y1 && y <= y2;
                ASSERT_EQ(image.pixel(x, y), inside ? Black : White) << x << ", " << y;
            }
        }
    }

    static int LargestDifference(const QImage& a, const QImage& b)
    {
        EXPECT_EQ(a.size(), b.size());
        int worst = 0;
        for (int y = 0; y < a.height(); ++y) {
            for (int x = 0; x < a.width(); ++x) {
                const QRgb p = a.pixel(x, y);
                const QRgb q = b.pixel(x, y);
                worst = std::max({worst, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                                  std::abs(qBlue(p) - qBlue(q))});
            }
        }
        return worst;
    }
};

/// A stroke of any kind within and around a box of the world, always the same for the same number.
void RandomStroke(Picture picture, SurfacePen pen, std::uint32_t number, float width, float height)
{
    std::mt19937 random(number);
    const auto between = [&random](double low, double high) {
        return static_cast<float>(std::uniform_real_distribution<double>(low, high)(random));
    };
    const float x = between(-0.3, 1.3) * width;
    const float y = between(-0.3, 1.3) * height;
    const float x2 = between(-0.3, 1.3) * width;
    const float y2 = between(-0.3, 1.3) * height;
    SurfaceSetPen(picture, pen);
    switch (random() % 5) {
    case 0:
        SurfaceLine(picture, x, y, x2, y);
        break;
    case 1:
        SurfaceLine(picture, x, y, x, y2);
        break;
    case 2:
        SurfaceCircle(picture, x, y, between(0, 1) * height);
        break;
    case 3:
        SurfaceArc(picture, x, y, between(0, 2) * height, between(0, 6), between(0, 6));
        break;
    default:
        SurfaceLine(picture, x, y, x2, y2);
        break;
    }
}

/// A pen of changing colour, width and dash.
SurfacePen RandomPen(std::uint32_t number)
{
    constexpr std::array<std::uint32_t, 4> Colours{ColourBlack, ColourRed, ColourPaletteMagenta,
                                                   ColourPaletteGreen};
    return {Colours[number % 4], static_cast<std::int16_t>(1 + number % 3), number % 5 == 0, false};
}

// --- the picture -------------------------------------------------------------------------------------------

TEST_F(PaintSurface, IsAnImageInPixelsOfTheScreen)
{
    Open(Tecno, 40, 30, 1.5);
    std::int32_t width = 0;
    std::int32_t height = 0;
    SurfaceSize(Tecno, width, height);
    EXPECT_EQ(width, 40);
    EXPECT_EQ(height, 30);
    EXPECT_EQ(Image().size(), QSize(60, 45));
    EXPECT_EQ(Image().devicePixelRatio(), 1.5);
    EXPECT_EQ(Inked(Image()), 0);
}

TEST_F(PaintSurface, AnotherSizeEmptiesTheSameSizeDoesNot)
{
    SurfaceLine(Tecno, 5, 5, 10, 5);
    ResizeSurface(Tecno, QSize(40, 30), 1.0);
    EXPECT_EQ(Inked(Image()), 6);
    ResizeSurface(Tecno, QSize(41, 30), 1.0);
    EXPECT_EQ(Inked(Image()), 0);
}

TEST_F(PaintSurface, StrokesBeforeSizeOrScaleAreNothing)
{
    ResizeSurface(Tecno, QSize(0, 30), 1.0);
    SurfaceClear(Tecno);
    SurfaceLine(Tecno, 5, 5, 10, 5);
    SurfaceText(Tecno, 5, 20, "text", ColourBlack);
    SurfaceFillBox(Tecno, 0, 0, 5, 5, ColourRed);
    double width = 1;
    double height = 1;
    SurfaceTextSize(Tecno, "text", width, height);
    EXPECT_EQ(width, 0);
    EXPECT_TRUE(SurfaceImage(Tecno).isNull());
    std::int32_t pixels = 1;
    std::int32_t rows = 1;
    SurfaceSize(Tecno, pixels, rows);
    EXPECT_EQ(pixels, 0);
    EXPECT_EQ(rows, 0);
    ResizeSurface(Tecno, QSize(40, 30), 1.0);
    for (const double bad : {0.0, std::numeric_limits<double>::quiet_NaN(), HUGE_VAL}) {
        SurfaceSetScale(Tecno, 0, 30, bad, -30);
        SurfaceBox(Tecno, 5, 5, 10, 10);
        SurfaceFillBox(Tecno, 0, 0, 5, 5, ColourRed);
        SurfaceText(Tecno, 5, 20, "text", ColourBlack);
        EXPECT_EQ(Inked(Image()), 0) << bad;
    }
}

TEST_F(PaintSurface, TellsTheWorldUnderThePointer)
{
    ResizeSurface(Tecno, QSize(400, 300), 2.0);
    SurfaceSetScale(Tecno, -20, 110, 200, -150);
    double x = 0;
    double y = 0;
    SurfaceWorldOf(Tecno, QPointF(100, 60), x, y);
    EXPECT_DOUBLE_EQ(x, 30); // half a unit a pixel, whatever the ratio
    EXPECT_DOUBLE_EQ(y, 80);
}

TEST_F(PaintSurface, TellsOncePerLook)
{
    SurfaceListener.Touched = [](Picture) { ++TouchedCount; };
    SurfaceImage(Tecno);
    TouchedCount = 0;
    SurfaceSetPen(Tecno, Thick);
    EXPECT_EQ(TouchedCount, 0);
    SurfaceLine(Tecno, 0, 0, 5, 5);
    SurfaceClear(Tecno);
    SurfaceText(Tecno, 0, 20, "A", ColourBlack);
    SurfaceFillBox(Tecno, 0, 0, 5, 5, ColourRed);
    EXPECT_EQ(TouchedCount, 1);
    SurfaceImage(Tecno);
    SurfaceFillBox(Tecno, 0, 0, 5, 5, ColourRed);
    EXPECT_EQ(TouchedCount, 2);
    SurfaceImage(Tecno);
    SurfaceClear(Tecno);
    EXPECT_EQ(TouchedCount, 3);
}

TEST_F(PaintSurface, PassesOnThePointer)
{
    SurfaceSetCrossPointer(Tecno, true); // nobody listens
    Crosses.clear();
    SurfaceListener.Pointer = [](Picture picture, bool cross) {
        EXPECT_EQ(picture, Tecno);
        Crosses.push_back(cross);
    };
    SurfaceSetCrossPointer(Tecno, true);
    SurfaceSetCrossPointer(Tecno, false);
    EXPECT_EQ(Crosses, (std::vector<bool>{true, false}));
}

TEST_F(PaintSurface, PicturesKeepTheirOwnStrokes)
{
    Open(Picture::Nesting, 20, 20, 1.0);
    SurfaceLine(Tecno, 5, 5.5F, 10, 5.5F);
    SurfaceLine(Picture::Nesting, 1, 1, 1, 8);
    SurfaceLine(Tecno, 11, 5.5F, 12, 5.5F);
    ExpectOnlyBlack(Image(Tecno), 5, 24, 12, 24);
    ExpectOnlyBlack(Image(Picture::Nesting), 1, 12, 1, 19);
}

// --- lines -------------------------------------------------------------------------------------------------

TEST_F(PaintSurface, LinesAlongAnAxisAreWholePixels)
{
    SurfaceLine(Tecno, 5.3F, 30 - 10.4F, 20.2F, 30 - 10.4F);
    ExpectOnlyBlack(Image(), 5, 10, 20, 10);
    SurfaceClear(Tecno);
    SurfaceLine(Tecno, 20.2F, 30 - 10.9F, 5.3F, 30 - 10.9F);
    ExpectOnlyBlack(Image(), 5, 10, 20, 10);
    SurfaceClear(Tecno);
    SurfaceLine(Tecno, 7.9F, 30 - 3.1F, 7.9F, 30 - 25.6F);
    ExpectOnlyBlack(Image(), 7, 3, 7, 25);
    SurfaceClear(Tecno);
    SurfaceLine(Tecno, 7.9F, 30 - 3.1F, 7.9F, 30 - 3.1F);
    ExpectOnlyBlack(Image(), 7, 3, 7, 3);
}

TEST_F(PaintSurface, ThickLinesReachOverTheirEnds)
{
    SurfaceSetPen(Tecno, Thick);
    SurfaceLine(Tecno, 5.3F, 30 - 10.4F, 20.2F, 30 - 10.4F); // 8.9 to 11.9; 3.8 to 21.7
    ExpectOnlyBlack(Image(), 4, 9, 21, 11);
}

TEST_F(PaintSurface, PenWidthsFollowThePixelRatio)
{
    Open(Tecno, 40, 30, 2.0);
    SurfaceLine(Tecno, 5.2F, 30 - 10.2F, 20.2F, 30 - 10.2F); // 10.4 to 40.4, about 20.4
    ExpectOnlyBlack(Image(), 9, 19, 40, 20);
    Open(Tecno, 40, 30, 1.5);
    SurfaceSetPen(Tecno, Thick);       // 4.5 pixels are 5
    SurfaceLine(Tecno, 6, 20, 20, 20); // 9 to 30, about 15
    ExpectOnlyBlack(Image(), 7, 13, 32, 17);
}

TEST_F(PaintSurface, TwoPixelsForOneShowTheSamePicture)
{
    Open(Tecno, 120, 90, 2.0);
    Open(Picture::Param, 240, 180, 1.0);
    SurfaceSetScale(Picture::Param, 0, 90, 120, -90);
    for (std::uint32_t i = 0; i < 120; ++i) {
        SurfacePen pen = RandomPen(i);
        pen.Dashed = false;
        RandomStroke(Tecno, pen, i, 120, 90);
        pen.Width = static_cast<std::int16_t>(2 * pen.Width);
        RandomStroke(Picture::Param, pen, i, 120, 90);
    }
    EXPECT_EQ(LargestDifference(Image(Tecno), Image(Picture::Param)), 0);
    EXPECT_GT(Inked(Image()), 3000);
}

TEST_F(PaintSurface, ObliqueLinesHaveTheirArea)
{
    Open(Tecno, 200, 150, 1.0);
    for (const double angle : {3.0, 20.0, 44.0, 46.0, 75.0, 88.0, 110.0, 160.0, 200.0, 300.0}) {
        for (const std::int16_t width : Widths) {
            SurfaceClear(Tecno);
            SurfaceSetPen(Tecno, {ColourBlack, width, false, false});
            SurfaceLine(Tecno, 100.3F, 75.6F, static_cast<float>(100.3 + 60 * std::cos(angle * Pi / 180)),
                        static_cast<float>(75.6 + 60 * std::sin(angle * Pi / 180)));
            EXPECT_NEAR(Ink(Image()), 60.0 * width, 0.02 * 60 * width) << angle << ", " << width;
        }
    }
}

TEST_F(PaintSurface, ManyShortStrokesAreAsStrongAsOne)
{
    Open(Tecno, 200, 150, 1.0);
    for (const std::int16_t width : Widths) {
        for (const double angle : {10.0, 40.0, 65.0}) {
            SurfaceClear(Tecno);
            SurfaceSetPen(Tecno, {ColourBlack, width, false, false});
            const auto x = [&](int i) {
                return static_cast<float>(20 + 0.7 * i * std::cos(angle * Pi / 180));
            };
            const auto y = [&](int i) {
                return static_cast<float>(20 + 0.7 * i * std::sin(angle * Pi / 180));
            };
            SurfaceLine(Tecno, x(0), y(0), x(150), y(150));
            const QImage one = Image();
            SurfaceClear(Tecno);
            for (int i = 0; i < 150; ++i) {
                SurfaceLine(Tecno, x(i), y(i), x(i + 1), y(i + 1));
            }
            const QImage many = Image();
            EXPECT_NEAR(Ink(many), Ink(one), 0.01 * Ink(one)) << angle << ", " << width;
            EXPECT_LE(LargestDifference(one, many), 40) << angle << ", " << width;
        }
    }
}

TEST_F(PaintSurface, CornersAreClosed)
{
    Open(Tecno, 60, 60, 1.0);
    SurfaceSetPen(Tecno, {ColourBlack, 8, false, false});
    // A square on its point, closed where it began: half the width is 4, a mitre reaches 5.7.
    constexpr std::array<std::array<float, 2>, 5> Corners{{{30, 10}, {50, 30}, {30, 50}, {10, 30}, {30, 10}}};
    for (std::size_t i = 0; i + 1 < Corners.size(); ++i) {
        SurfaceLine(Tecno, Corners[i][0], Corners[i][1], Corners[i + 1][0], Corners[i + 1][1]);
    }
    EXPECT_EQ(At(30, 7), Black); // above the uppermost corner at row 10
    EXPECT_EQ(At(52, 30), Black);
    EXPECT_EQ(At(30, 52), Black);
    EXPECT_EQ(At(7, 30), Black);
    EXPECT_EQ(At(30, 3), White);
    EXPECT_EQ(At(30, 30), White);
}

TEST_F(PaintSurface, DashesHaveGaps)
{
    SurfaceSetPen(Tecno, {ColourBlack, 1, true, false});
    SurfaceLine(Tecno, 2, 20, 38, 20);
    const QImage image = Image();
    std::string row;
    for (int x = 0; x < 40; ++x) {
        row += image.pixel(x, 10) == Black ? '#' : image.pixel(x, 10) == White ? '.' : '?';
    }
    EXPECT_EQ(row, "..######....######....######....######..");
    EXPECT_EQ(Inked(image), 24);
}

// --- arcs --------------------------------------------------------------------------------------------------

/// Quadrants of a circle of radius 10 about (20, 15) that have ink at their middle: bit 0 the upper right one, then
/// counter-clockwise.
int Quadrants()
{
    int found = 0;
    for (int i = 0; i < 4; ++i) {
        const double angle = Pi / 4 + i * Pi / 2;
        const int x = static_cast<int>(20 + 10 * std::cos(angle));
        const int y = static_cast<int>(15 - 10 * std::sin(angle));
        for (int near = 0; near < 9; ++near) {
            found |= qRed(SurfaceImage(Tecno).pixel(x + near % 3 - 1, y + near / 3 - 1)) < 200 ? 1 << i : 0;
        }
    }
    return found;
}

TEST_F(PaintSurface, ArcsRunCounterClockwise)
{
    struct ArcCase {
        double Start, End;
        int Quadrants;
        double Turn;
    };
    for (const ArcCase& each : {ArcCase{0, 0.5 * Pi, 1, 0.5 * Pi}, ArcCase{0.5 * Pi, Pi, 2, 0.5 * Pi},
                                ArcCase{1.5 * Pi, 0.5 * Pi, 9, Pi}, ArcCase{0.5 * Pi, 0, 14, 1.5 * Pi},
                                ArcCase{0, 2 * Pi, 15, 2 * Pi}}) {
        SurfaceClear(Tecno);
        SurfaceArc(Tecno, 20, 15, 10, static_cast<float>(each.Start), static_cast<float>(each.End));
        EXPECT_EQ(Quadrants(), each.Quadrants) << each.Start << ", " << each.End;
        EXPECT_NEAR(Ink(Image()), 10 * each.Turn, 1.0) << each.Start << ", " << each.End;
    }
    SurfaceClear(Tecno);
    SurfaceArc(Tecno, 20, 15, 10, 1, 1);
    EXPECT_LE(Inked(Image()), 1) << "no turn at all";
}

TEST_F(PaintSurface, ClockwiseArcGoesTheLongWayRound)
{
    SurfaceSetPen(Tecno, Thin);
    DrawArc(Tecno, 20, 15, 30, 15, 20, 25, -10);
    EXPECT_EQ(Quadrants(), 14);
    SurfaceClear(Tecno);
    DrawArc(Tecno, 20, 15, 30, 15, 20, 25, 10);
    EXPECT_EQ(Quadrants(), 1);
}

TEST_F(PaintSurface, CirclesOfAnySizeHaveTheirArea)
{
    Open(Tecno, 260, 260, 1.0);
    for (const float radius : {1.5F, 3.0F, 20.0F, 77.3F, 120.0F}) {
        for (const std::int16_t width : Widths) {
            SurfaceClear(Tecno);
            SurfaceSetPen(Tecno, {ColourBlack, width, false, false});
            SurfaceCircle(Tecno, 130.2F, 130.7F, radius);
            const double area = 2 * Pi * radius * width;
            EXPECT_NEAR(Ink(Image()), area, 0.03 * area + 1) << radius << ", " << width;
        }
    }
}

TEST_F(PaintSurface, ArcsGoOnWithLinesWithoutAStep)
{
    // A round corner at every position within a pixel: where arc and line meet, the row of the line goes on.
    for (int i = 0; i < 10; ++i) {
        const float y = 20 + static_cast<float>(i) / 10;
        SurfaceClear(Tecno);
        SurfaceLine(Tecno, 5, y, 20, y);
        const int row = Image().pixel(10, 9) == Black ? 9 : 10;
        SurfaceArc(Tecno, 20, y - 15, 15, 0, static_cast<float>(Pi / 2));
        EXPECT_EQ(At(10, row), Black) << y;
        EXPECT_LT(qRed(At(21, row)), 60) << y;
        EXPECT_EQ(At(21, row - 1), White) << y;
    }
}

// --- boxes -------------------------------------------------------------------------------------------------

TEST_F(PaintSurface, BoxAndFill)
{
    SurfaceFillBox(Tecno, 10.2F, 4.9F, 29.8F, 20.1F, ColourRed); // columns 10 to 29, rows 10 to 24
    const QImage filled = Image();
    EXPECT_EQ(filled.pixel(10, 10), Red);
    EXPECT_EQ(filled.pixel(29, 24), Red);
    EXPECT_EQ(Inked(filled), 20 * 15);
    SurfaceBox(Tecno, 29.8F, 20.1F, 10.2F, 4.9F); // rows 9 (from 9.9) and 25 (25.1), columns 10 and 29
    const QImage outlined = Image();
    EXPECT_EQ(outlined.pixel(10, 9), Black);
    EXPECT_EQ(outlined.pixel(29, 25), Black);
    EXPECT_EQ(outlined.pixel(10, 25), Black);
    EXPECT_EQ(outlined.pixel(20, 17), Red);
    EXPECT_EQ(Inked(outlined), 20 * 17);
}

TEST_F(PaintSurface, BoxOfTheWholeViewIsSeen)
{
    for (const float slip : {-1e-4F, 0.0F, 1e-4F}) {
        SurfaceClear(Tecno);
        SurfaceBox(Tecno, 0 + slip, 0 + slip, 40 + slip, 30 + slip);
        const QImage image = Image();
        EXPECT_EQ(Inked(image), 2 * 40 + 2 * 28) << slip;
        EXPECT_EQ(image.pixel(0, 0), Black);
        EXPECT_EQ(image.pixel(39, 29), Black);
    }
}

// --- inverting strokes -------------------------------------------------------------------------------------

TEST_F(PaintSurface, InvertingStrokesShowOnEverything)
{
    SurfaceFillBox(Tecno, 10, 0, 20, 30, ColourBlack);
    SurfaceFillBox(Tecno, 20, 0, 30, 30, ColourRed);
    SurfaceSetPen(Tecno, Frame);
    SurfaceLine(Tecno, 0, 10, 40, 10);
    EXPECT_EQ(At(5, 20), Red) << "the colour that was told, on white";
    EXPECT_EQ(At(15, 20), 0xFF00FFFFU);
    EXPECT_EQ(At(25, 20), White);
    SurfaceSetPen(Tecno, {ColourGreen, 1, false, true});
    SurfaceLine(Tecno, 0, 5, 40, 5);
    EXPECT_EQ(At(5, 25), 0xFF00FF00U);
}

TEST_F(PaintSurface, InvertingBoxHasEachPixelOnce)
{
    SurfaceSetPen(Tecno, Frame);
    SurfaceBox(Tecno, 10, 10, 20, 20);
    const QImage image = Image();
    EXPECT_EQ(Inked(image), 4 * 10);
    for (const auto& [x, y] : {std::pair{10, 10}, {20, 10}, {10, 20}, {20, 20}, {15, 10}}) {
        EXPECT_EQ(image.pixel(x, y), Red) << x << ", " << y;
    }
    SurfaceClear(Tecno);
    SurfaceBox(Tecno, 10, 10, 10, 20);
    EXPECT_EQ(Inked(Image()), 11) << "a box without width is a line";
}

TEST_F(PaintSurface, DrawnTwiceInvertingStrokesAreGone)
{
    for (const double ratio : {1.0, 1.5, 2.0}) {
        Open(Tecno, 160, 120, ratio);
        for (std::uint32_t i = 0; i < 60; ++i) {
            RandomStroke(Tecno, RandomPen(i), i, 160, 120);
        }
        const QImage before = Image();
        const auto strokes = [](std::uint32_t seed) {
            for (std::uint32_t i = seed; i < seed + 25; ++i) {
                RandomStroke(Tecno,
                             {i % 2 != 0 ? ColourRed : ColourGreen, static_cast<std::int16_t>(1 + i % 3),
                              i % 4 == 0, true},
                             1000 + i, 160, 120);
                SurfaceBox(Tecno, static_cast<float>(i), 3.3F, 100.4F, static_cast<float>(i) + 0.2F);
            }
        };
        for (std::uint32_t seed = 0; seed < 20; ++seed) {
            strokes(seed);
            ASSERT_GT(LargestDifference(Image(), before), 200);
            if (seed % 2 == 0) {
                SurfaceSetPen(Tecno, Thin); // nothing depends on the pen in between
            }
            strokes(seed);
            ASSERT_EQ(Image(), before) << ratio << ", " << seed;
        }
    }
}

TEST_F(PaintSurface, MovedInOneGoAnInvertingStrokeLeavesNoTrace)
{
    SurfaceLine(Tecno, 3, 4, 33, 22);
    const QImage before = Image();
    SurfaceSetPen(Tecno, Frame);
    SurfaceBox(Tecno, 5, 5, 20, 20);
    Image();
    SurfaceBox(Tecno, 5, 5, 20, 20); // erased and drawn anew beside, without a look between
    SurfaceBox(Tecno, 6, 5, 21, 20);
    EXPECT_EQ(At(12, 25), Red);
    EXPECT_EQ(At(5, 15), White);
    SurfaceBox(Tecno, 6, 5, 21, 20);
    EXPECT_EQ(Image(), before);
}

// --- what is out of the view -------------------------------------------------------------------------------

TEST_F(PaintSurface, CuttingToTheViewChangesNothingInIt)
{
    Open(Picture::Nesting, 600, 450, 1.0);
    Open(Tecno, 80, 60, 1.0);
    SurfaceSetScale(Tecno, 250, 260, 80, -60); // rows 190 to 249 of the large picture
    int ink = 0;
    for (std::uint32_t i = 0; i < 400; ++i) {
        SurfaceClear(Picture::Nesting);
        SurfaceClear(Tecno);
        RandomStroke(Picture::Nesting, RandomPen(i), i, 600, 450);
        RandomStroke(Tecno, RandomPen(i), i, 600, 450);
        const QImage seen = Image();
        ASSERT_LE(LargestDifference(seen, Image(Picture::Nesting).copy(250, 190, 80, 60)), 3) << i;
        ink += Inked(seen);
    }
    EXPECT_GT(ink, 4000);
}

TEST_F(PaintSurface, LongLinesAndLargeArcsCrossTheViewWhereTheyShould)
{
    for (const float far : {1e3F, 1e6F, 1e9F, 1e20F, 1e30F}) {
        SurfaceClear(Tecno);
        SurfaceLine(Tecno, -far, 12.5F, far, 12.5F);
        SurfaceLine(Tecno, 7.5F, -far, 7.5F, far);
        EXPECT_EQ(At(0, 17), Black) << far;
        EXPECT_EQ(At(39, 17), Black) << far;
        EXPECT_EQ(At(7, 0), Black) << far;
        EXPECT_EQ(Inked(Image()), 69) << far;
        SurfaceClear(Tecno);
        SurfaceSetPen(Tecno, {ColourBlack, 1, true, false});
        SurfaceLine(Tecno, -far, 12.5F, far, 12.5F);
        EXPECT_GE(Inked(Image()), 20) << far;
        EXPECT_LE(Inked(Image()), 30) << far;
        SurfaceSetPen(Tecno, Thin);
    }
    for (const float radius : {2e3F, 1e5F, 1e6F}) { // nearly upright lines through (20, y)
        SurfaceClear(Tecno);
        SurfaceCircle(Tecno, 20.5F - radius, 15, radius);
        for (const int y : {0, 14, 29}) {
            EXPECT_LT(qRed(At(19, y)) + qRed(At(20, y)) + qRed(At(21, y)), 2 * 255 + 30)
                << radius << ", " << y;
        }
        EXPECT_NEAR(Ink(Image()), 30, 1) << radius;
    }
}

TEST_F(PaintSurface, NoCoordinateIsTooMuch)
{
    constexpr float Infinite = std::numeric_limits<float>::infinity();
    const std::array<float, 12> odd{std::numeric_limits<float>::quiet_NaN(),
                                    Infinite,
                                    -Infinite,
                                    1e30F,
                                    -1e30F,
                                    3e38F,
                                    -3e38F,
                                    1e-40F,
                                    0.0F,
                                    15.0F,
                                    1e7F,
                                    -3e4F};
    std::mt19937 random(7);
    const auto next = [&] { return odd[random() % odd.size()]; };
    for (const SurfacePen& pen :
         {Thin, Thick, Frame, SurfacePen{ColourRed, 1, true, false}, SurfacePen{ColourGreen, -5, true, true},
          SurfacePen{ColourGreen, 32767, false, false}}) {
        SurfaceSetPen(Tecno, pen);
        for (int i = 0; i < 1000; ++i) {
            SurfaceLine(Tecno, next(), next(), next(), next());
            SurfaceBox(Tecno, next(), next(), next(), next());
            SurfaceFillBox(Tecno, next(), next(), next(), next(), ColourRed);
            SurfaceCircle(Tecno, next(), next(), next());
            SurfaceArc(Tecno, next(), next(), next(), next(), next());
        }
    }
    for (int i = 0; i < 200; ++i) {
        SurfaceText(Tecno, next(), next(), "text", ColourBlack);
    }
    SurfaceSetScale(Tecno, 1e300, -1e300, 1e-300, -1e-300);
    SurfaceLine(Tecno, 0, 0, 1e30F, 1e30F);
    SurfaceCircle(Tecno, 0, 0, 1e30F);
    SurfaceText(Tecno, 0, 0, "text", ColourBlack);
    EXPECT_EQ(Image().size(), QSize(40, 30));
    Open(Tecno, 40, 30, 1.0);
    SurfaceLine(Tecno, 5, 20.5F, 20, 20.5F);
    ExpectOnlyBlack(Image(), 5, 9, 20, 9);
}

TEST_F(PaintSurface, PartsBelowAPixelAreSeen)
{
    // A ring of chords, a third of a pixel across, far from the borders of its pixel.
    for (int i = 0; i < 50; ++i) {
        const auto x = [](int k) { return static_cast<float>(20.5 + 0.16 * std::cos(2 * Pi * k / 50)); };
        const auto y = [](int k) { return static_cast<float>(15.5 + 0.16 * std::sin(2 * Pi * k / 50)); };
        SurfaceLine(Tecno, x(i), y(i), x(i + 1), y(i + 1));
    }
    EXPECT_GT(Ink(Image()), 0.5);
    EXPECT_LT(Ink(Image()), 4.0);
}

// --- texts -------------------------------------------------------------------------------------------------

TEST_F(PaintSurface, TextStandsInItsBox)
{
    for (const double ratio : {1.0, 1.5, 2.0}) {
        Open(Tecno, 200, 100, ratio);
        SurfaceSetScale(Tecno, 0, 50, 100, -50); // two pixels a unit
        SurfaceSetFont(Tecno, 12);
        double width = 0;
        double height = 0;
        SurfaceTextSize(Tecno, "Part", width, height);
        EXPECT_GT(width, 8) << ratio;
        EXPECT_GT(height, 5) << ratio;
        EXPECT_LT(height, 25) << ratio;
        SurfaceText(Tecno, 10, 40, "Part", ColourBlack);
        const QImage image = Image();
        int inside = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixel(x, y) == White) {
                    continue;
                }
                const double worldX = (x + 0.5) / ratio / 2;
                const double worldY = 50 - (y + 0.5) / ratio / 2;
                EXPECT_TRUE(worldX > 9 && worldX < 11 + width && worldY < 41 && worldY > 39 - height)
                    << ratio << ": " << worldX << ", " << worldY;
                EXPECT_EQ(qRed(image.pixel(x, y)), qBlue(image.pixel(x, y))) << "no coloured fringes";
                ++inside;
            }
        }
        EXPECT_GT(inside, 20) << ratio;
    }
}

TEST_F(PaintSurface, TextSizesAreInUnitsOfTheWorld)
{
    Open(Tecno, 2000, 2000, 1.0);
    SurfaceSetScale(Tecno, 0, 100, 200, -100);
    double width = 0;
    double height = 0;
    SurfaceTextSize(Tecno, "123.45", width, height);
    SurfaceSetScale(Tecno, 0, 1000, 2000, -1000);
    double width10 = 0;
    double height10 = 0;
    SurfaceTextSize(Tecno, "123.45", width10, height10);
    EXPECT_NEAR(width10, 10 * width, 1e-9 * width10);
    EXPECT_NEAR(height10, 10 * height, 1e-9 * height10);
    SurfaceSetFont(Tecno, 30);
    double larger = 0;
    SurfaceTextSize(Tecno, "123.45", larger, height10);
    EXPECT_GT(larger, 1.5 * width10);
    SurfaceSetFont(Tecno, 0);
    SurfaceTextSize(Tecno, "", width, height);
    EXPECT_EQ(width, 0);
    EXPECT_GT(height, 0);
}

TEST_F(PaintSurface, LettersLeaveRoomInLowPicturesAndStayLegible)
{
    const auto lineOf = [](int pixels) { // height of a line of the given picture, in its pixels
        Open(Tecno, pixels, pixels, 1.0);
        SurfaceSetScale(Tecno, 0, pixels, pixels, -pixels);
        SurfaceSetFont(Tecno, 15);
        double width = 0;
        double height = 0;
        SurfaceTextSize(Tecno, "A", width, height);
        return height;
    };
    EXPECT_LT(lineOf(400) * 1.2, 0.05 / 1.15 * 400 + 2); // above a part that fills the view
    EXPECT_GE(lineOf(100), 10);
    EXPECT_NEAR(lineOf(2000), lineOf(1000), 1e-9); // 15 points from there on
}
} // namespace
