#include "qt/FloodFill.h"

#include <QColor>
#include <QPoint>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace
{
constexpr double HalfCovered = 0.5;
constexpr double ForeignSquared =
    40.0 * 40.0; ///< so far off the mixes of ground and border lies another colour

struct FillColours {
    QRgb Ground = 0; ///< of the seed
    QRgb Fill = 0;
    QRgb Border = 0;
};

/// Share of the border's colour in a pixel, from 0 to 1; 0 for colours that are no mix of it and the ground.
double BorderShare(QRgb pixel, const FillColours& colours)
{
    const double way[] = {static_cast<double>(qRed(colours.Border) - qRed(colours.Ground)),
                          static_cast<double>(qGreen(colours.Border) - qGreen(colours.Ground)),
                          static_cast<double>(qBlue(colours.Border) - qBlue(colours.Ground))};
    const double off[] = {static_cast<double>(qRed(pixel) - qRed(colours.Ground)),
                          static_cast<double>(qGreen(pixel) - qGreen(colours.Ground)),
                          static_cast<double>(qBlue(pixel) - qBlue(colours.Ground))};
    const double square = way[0] * way[0] + way[1] * way[1] + way[2] * way[2];
    if (square == 0.0) {
        return 0.0;
    }
    const double share = std::clamp((way[0] * off[0] + way[1] * off[1] + way[2] * off[2]) / square, 0.0, 1.0);
    double foreign = 0.0;
    for (int i = 0; i < 3; ++i) {
        foreign += (off[i] - share * way[i]) * (off[i] - share * way[i]);
    }
    return foreign < ForeignSquared ? share : 0.0;
}

QRgb MixOf(QRgb under, QRgb over, double share)
{
    const auto mixed = [share](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
    return qRgb(mixed(qRed(under), qRed(over)), mixed(qGreen(under), qGreen(over)),
                mixed(qBlue(under), qBlue(over)));
}

/// A fill under way. Rows of an RGB32 image have no gaps.
struct FillRun {
    int Width;
    int Height;
    QRgb* Pixels;
    FillColours Colours;
    std::vector<char> Seen;
    std::vector<QPoint> Open; ///< places from which rows are still to be filled
};

/// Colours a pixel unless it was met before. True when the area goes on there.
bool MeetPixel(FillRun& run, int x, int y)
{
    const auto cell =
        static_cast<std::size_t>(y) * static_cast<std::size_t>(run.Width) + static_cast<std::size_t>(x);
    if (run.Seen[cell] != 0) {
        return false;
    }
    run.Seen[cell] = 1;
    QRgb& pixel = run.Pixels[cell];
    if (pixel == run.Colours.Ground) {
        pixel = run.Colours.Fill;
        return true;
    }
    const double share = BorderShare(pixel, run.Colours);
    pixel = MixOf(run.Colours.Fill, run.Colours.Border, share);
    return share < HalfCovered;
}

/// Fills the row of a place to both sides; the rows above and below go on from each of its pixels that isn't met yet, from
/// the first of those that lie side by side.
void FillRow(FillRun& run, QPoint place)
{
    const int y = place.y();
    if (!MeetPixel(run, place.x(), y)) {
        return;
    }
    int left = place.x();
    int right = place.x();
    while (left > 0 && MeetPixel(run, left - 1, y)) {
        --left;
    }
    while (right + 1 < run.Width && MeetPixel(run, right + 1, y)) {
        ++right;
    }
    for (const int next : {y - 1, y + 1}) {
        if (next < 0 || next >= run.Height) {
            continue;
        }
        const char* seen = run.Seen.data() + static_cast<std::ptrdiff_t>(next) * run.Width;
        for (int x = left; x <= right; ++x) {
            const bool sideBySide =
                x > left && seen[x - 1] == 0 &&
                run.Pixels[static_cast<std::ptrdiff_t>(next) * run.Width + x - 1] == run.Colours.Ground;
            if (seen[x] == 0 && !sideBySide) {
                run.Open.emplace_back(x, next);
            }
        }
    }
}
} // namespace

void FloodFill(QImage& image, int x, int y, std::uint32_t rgb, std::uint32_t border)
{
    if (!image.valid(x, y) || (image.pixel(x, y) & RGB_MASK) == (border & RGB_MASK)) {
        return;
    }
    const FillColours colours{image.pixel(x, y), 0xFF000000U | rgb, 0xFF000000U | border};
    FillRun run{image.width(), image.height(), reinterpret_cast<QRgb*>(image.bits()), colours, {}, {}};
    run.Seen.resize(static_cast<std::size_t>(run.Width) * static_cast<std::size_t>(run.Height));
    run.Open.push_back({x, y});
    while (!run.Open.empty()) {
        const QPoint place = run.Open.back();
        run.Open.pop_back();
        FillRow(run, place);
    }
}
