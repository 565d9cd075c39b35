#include "qt/FloodFill.h"

#include <QColor>

#include <algorithm>
#include <cmath>
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
} // namespace

void FloodFill(QImage& image, int x, int y, std::uint32_t rgb, std::uint32_t border)
{
    if (!image.valid(x, y) || (image.pixel(x, y) & RGB_MASK) == (border & RGB_MASK)) {
        return;
    }
    const FillColours colours{image.pixel(x, y), 0xFF000000U | rgb, 0xFF000000U | border};
    const int width = image.width();
    const int height = image.height();
    auto* pixels = reinterpret_cast<QRgb*>(image.bits()); // rows of RGB32 have no gaps
    std::vector<bool> seen(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    std::vector<std::int32_t> open;
    const auto meet = [&](int column, int row) {
        const std::int32_t cell = row * width + column;
        if (column < 0 || column >= width || row < 0 || row >= height ||
            seen[static_cast<std::size_t>(cell)]) {
            return;
        }
        seen[static_cast<std::size_t>(cell)] = true;
        const double share = BorderShare(pixels[cell], colours);
        pixels[cell] = MixOf(colours.Fill, colours.Border, share);
        if (share < HalfCovered) {
            open.push_back(cell);
        }
    };
    meet(x, y);
    while (!open.empty()) {
        const std::int32_t cell = open.back();
        open.pop_back();
        const int column = cell % width;
        const int row = cell / width;
        meet(column - 1, row);
        meet(column + 1, row);
        meet(column, row - 1);
        meet(column, row + 1);
    }
}
