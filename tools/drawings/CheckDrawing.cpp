#include "CheckDrawing.h"

#include "MeasuringSurface.h"
#include "profile/Strokes.h"
#include "shapes/DimensionDrawing.h"
#include "shapes/Korvanta_Parameters.h"
#include "state/AppState.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <set>

namespace
{
struct BoxSize {
    std::int32_t Width;
    std::int32_t Height;
};

/// Of PicParam in windows of 640x480, 800x600, 1024x768 and 1920x1080, and beside captions that are words.
constexpr BoxSize UsualSizes[] = {{453, 403}, {570, 510}, {737, 662}, {1650, 890}};
constexpr BoxSize WordySizes[] = {{372, 403}, {470, 510}, {600, 662}, {1400, 890}};

/// The station's logo, in the upper left corner.
constexpr double LogoWidth = 0.27;  ///< of the box's width
constexpr double LogoHeight = 0.10; ///< of its height

constexpr double Clearance = 1.0; ///< pixels that a letter keeps from all else

bool BoxesMeet(const MeasuredText& a, const MeasuredText& b)
{
    return a.Left < b.Right && b.Left < a.Right && a.Top < b.Bottom && b.Top < a.Bottom;
}

/// Whether a segment comes closer to a box than its half width and the clearance (cut to the box by its parameter).
bool LineMeets(const MeasuredLine& line, const MeasuredText& text)
{
    const double grow = line.Width / 2.0 + Clearance;
    double from = 0.0;
    double to = 1.0;
    const auto cut = [&](double start, double way, double low, double high) {
        if (way == 0.0) {
            return start > low && start < high;
        }
        const double a = (low - start) / way;
        const double b = (high - start) / way;
        from = std::max(from, std::min(a, b));
        to = std::min(to, std::max(a, b));
        return from < to;
    };
    return cut(line.X1, line.X2 - line.X1, text.Left - grow, text.Right + grow) &&
           cut(line.Y1, line.Y2 - line.Y1, text.Top - grow, text.Bottom + grow);
}

void CheckTexts(std::set<std::string>& faults)
{
    const std::vector<MeasuredText>& texts = Measured.Texts;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const std::string name = "'" + texts[i].Text + "'";
        for (std::size_t k = i + 1; k < texts.size(); ++k) {
            if (BoxesMeet(texts[i], texts[k])) {
                faults.insert(name + " lies over '" + texts[k].Text + "'");
            }
        }
        for (const MeasuredLine& line : Measured.Lines) {
            if (LineMeets(line, texts[i])) {
                faults.insert(name + (line.Rgb == ColourCgaLightBlue ? " lies over the outline"
                                                                     : " lies over a dimension line"));
            }
        }
        if (texts[i].Left < LogoWidth * Measured.Width && texts[i].Top < LogoHeight * Measured.Height) {
            faults.insert(name + " lies over the logo");
        }
        if (texts[i].Left < 0 || texts[i].Top < 0 || texts[i].Right > Measured.Width ||
            texts[i].Bottom > Measured.Height) {
            faults.insert(name + " leaves the picture");
        }
    }
}

bool CaptionsAreWords(const ShapeRow& row)
{
    return std::any_of(std::begin(row.Parameters), std::end(row.Parameters), [](const ShapeParameterRow& p) {
        return p.Letter != nullptr && (p.Letter == TailLetter || p.Letter == SwapLetter);
    });
}
} // namespace

std::vector<std::string> FaultsOf(std::int16_t shapeId, const std::vector<PictureItem>& items)
{
    const ShapeRow* row = FindShape(shapeId);
    const int count = row == nullptr ? 0 : ParameterCount(*row);
    for (int i = 0; i < count; ++i) {
        AppState.ParamLabel[static_cast<std::size_t>(i)] = ParameterCaption(row->Parameters[i].Letter);
    }
    AppState.PictureItems.assign(1, PictureItem());
    AppState.PictureItems.insert(AppState.PictureItems.end(), items.begin(), items.end());
    for (PictureItem& item : AppState.PictureItems) {
        item.ItemColor = ColourCgaLightBlue;
    }
    std::set<std::string> faults;
    const bool words = row != nullptr && CaptionsAreWords(*row);
    for (const BoxSize& size : words ? WordySizes : UsualSizes) {
        Measured = MeasuredPicture();
        Measured.Width = size.Width;
        Measured.Height = size.Height;
        for (std::int16_t highlighted = 0; highlighted <= count; ++highlighted) {
            DrawShapePicture(Picture::Param, highlighted);
            CheckTexts(faults);
        }
    }
    return {faults.begin(), faults.end()};
}
