// The pictures of the shapes, laid beside areas and places that are worked out from the element table in another way.
#include "qt/ShapePictures.h"

#include "platform/Fault.h"
#include "shapes/Korvanta_Parameters.h"
#include "state/AppState.h"
#include "support/TableGeometry.h"

#include <QColor>
#include <QImage>
#include <QRect>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace
{
constexpr QSize Sizes[] = {{48, 48}, {64, 64}, {96, 96}, {128, 128}, {96, 48}};
constexpr qreal Ratios[] = {1.0, 1.5, 2.0};
constexpr QSize Large(128, 128);
constexpr qreal LargeRatio = 2.0;

/// Their outer contour stays open: one or two cuts and no plate.
const std::set<std::string> OpenShapes = {"R-39", "R-40", "R-41", "C-25", "C-26"};

/// A developed default shape.
struct Part {
    std::string Name;
    bool Open = false;
    std::vector<std::vector<TablePoint>> Contours;
    std::vector<double> Areas; ///< not negative
    TableBox Box;
    double Width = 0.0;
    double Height = 0.0;
};

Part Develop(const ShapeRow& row)
{
    ResetAppState();
    AppState.ShapeId = row.ShapeId;
    ShowShapeParameters(row.ShapeId, FlagOn);
    std::int16_t err = 99;
    DevelopShape(err);
    EXPECT_EQ(err, 0) << row.Name;
    Part part;
    part.Name = row.Name;
    part.Open = OpenShapes.contains(row.Name);
    for (const TableProfile& profile : ProfilesInTable()) {
        part.Contours.push_back(PointsAlong(profile));
        part.Areas.push_back(std::fabs(ExactArea(profile)));
    }
    part.Box = BoxOfTable();
    part.Width = part.Box.MaxX - part.Box.MinX;
    part.Height = part.Box.MaxY - part.Box.MinY;
    return part;
}

/// In how many contours a point lies.
int Depth(const Part& part, const TablePoint& point)
{
    return static_cast<int>(
        std::count_if(part.Contours.begin(), part.Contours.end(),
                      [&](const std::vector<TablePoint>& contour) { return IsInside(point, contour); }));
}

double MaterialArea(const Part& part)
{
    double area = 0.0;
    for (std::size_t i = 0; i < part.Contours.size(); ++i) {
        const TablePoint& start = part.Contours[i].front();
        const int own = IsInside(start, part.Contours[i]) ? 1 : 0;
        area += (Depth(part, start) - own) % 2 == 0 ? part.Areas[i] : -part.Areas[i];
    }
    return area;
}

double LengthOf(const Part& part)
{
    double length = 0.0;
    for (const std::vector<TablePoint>& contour : part.Contours) {
        for (std::size_t i = 1; i < contour.size(); ++i) {
            length += std::hypot(contour[i].X - contour[i - 1].X, contour[i].Y - contour[i - 1].Y);
        }
    }
    return length;
}

double DistanceOf(const TablePoint& p, const TablePoint& a, const TablePoint& b)
{
    const double dx = b.X - a.X;
    const double dy = b.Y - a.Y;
    const double square = dx * dx + dy * dy;
    const double along =
        square > 0.0 ? std::clamp(((p.X - a.X) * dx + (p.Y - a.Y) * dy) / square, 0.0, 1.0) : 0.0;
    return std::hypot(p.X - a.X - along * dx, p.Y - a.Y - along * dy);
}

double DistanceToContours(const Part& part, const TablePoint& point)
{
    double least = std::numeric_limits<double>::infinity();
    for (const std::vector<TablePoint>& contour : part.Contours) {
        for (std::size_t i = 1; i < contour.size(); ++i) {
            least = std::min(least, DistanceOf(point, contour[i - 1], contour[i]));
        }
    }
    return least;
}

QImage ImageOf(std::int16_t shapeId, QSize size, qreal ratio)
{
    QImage image =
        ShapePicture(shapeId, size, ratio).toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(1.0);
    return image;
}

int AlphaAt(const QImage& image, int x, int y)
{
    return qAlpha(image.pixel(x, y));
}

double Coverage(const QImage& image)
{
    double sum = 0.0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            sum += AlphaAt(image, x, y) / 255.0;
        }
    }
    return sum;
}

/// The pixels that are painted at all.
QRect PaintedBox(const QImage& image)
{
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (AlphaAt(image, x, y) > 8) {
                box |= QRect(x, y, 1, 1);
            }
        }
    }
    return box;
}

/// How much wider and higher than its box a part is painted: the strokes of an open one lie half outside.
double Around(const Part& part, qreal ratio)
{
    return part.Open ? 1.5 * ratio : 0.0;
}

/// Pixels for one unit of the part, by its longer side.
double ScaleOf(const Part& part, const QRect& box, qreal ratio)
{
    return part.Width > part.Height ? (box.width() - Around(part, ratio)) / part.Width
                                    : (box.height() - Around(part, ratio)) / part.Height;
}

bool IsSeenToDiffer(const QImage& a, const QImage& b)
{
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            if (std::abs(qAlpha(p) - qAlpha(q)) > 40 || std::abs(qRed(p) - qRed(q)) > 40) {
                return true;
            }
        }
    }
    return false;
}

std::string CaseText(const std::string& name, QSize size, qreal ratio)
{
    return name + " " + std::to_string(size.width()) + "x" + std::to_string(size.height()) + " at " +
           std::to_string(ratio);
}

/// The very bytes of the state: the record, and what its tables hold. Nothing may move, not even a table.
std::vector<std::string> StateBytes()
{
    const auto bytes = [](const void* begin, std::size_t size) {
        return std::string(static_cast<const char*>(begin), size);
    };
    const auto table = [&bytes](const auto& items) {
        return bytes(items.data(), items.size() * sizeof items[0]);
    };
    std::vector<std::string> all = {
        bytes(&AppState, sizeof AppState), table(AppState.ElementTable), table(AppState.ShadowElements),
        table(AppState.ProfileTable),      table(AppState.MarkPoints),   table(AppState.ShadowMarkPoints),
        table(AppState.ProfileEnds),       table(AppState.ImportOpen),   table(AppState.CollectionBuffer)};
    for (const ValueField& field : AppState.ParamText) {
        all.push_back(field.Text);
    }
    for (const std::string& label : AppState.ParamLabel) {
        all.push_back(label);
    }
    return all;
}

int Calls = 0;

/// A part on the Cutting screen, with leads, and fields that tell each change.
void StandInTheMiddleOfWork()
{
    Develop(*FindShape(FamilyRect + 35));
    AppState.ScreenState = ScreenCutting;
    AppState.ProfileTable[1].Status = LeadNormal;
    AppState.ProfileTable[1].LeadInLength = 7.5;
    AppState.MarkPoints.push_back({3.0, 4.0});
    AppState.MarkPointCount = 1;
    AppState.CurrentProfile = 2;
    AppState.KeepLeadData = FlagOn;
    AppState.Redraw = [](Flag) { ++Calls; };
    for (ValueField& field : AppState.ParamText) {
        field.Text = "a text that is too long to lie in the record itself";
        field.Change = [](std::int16_t) { ++Calls; };
    }
    Calls = 0;
}

ShapeParameters ParametersOf(std::initializer_list<double> values)
{
    ShapeParameters parameters{};
    std::copy(values.begin(), values.end(), parameters.begin() + 1);
    return parameters;
}
} // namespace

TEST(ShapePictures, EachShapeHasOneInEachSize)
{
    for (const ShapeRow& row : ShapeCatalogue()) {
        for (const QSize size : Sizes) {
            for (const qreal ratio : Ratios) {
                const QPixmap picture = ShapePicture(row.ShapeId, size, ratio);
                ASSERT_FALSE(picture.isNull()) << CaseText(row.Name, size, ratio);
                EXPECT_EQ(picture.devicePixelRatio(), ratio);
                EXPECT_EQ(picture.deviceIndependentSize(), QSizeF(size));
                EXPECT_EQ(picture.size(), (QSizeF(size) * ratio).toSize());
            }
        }
    }
    EXPECT_EQ(ShapeCatalogue().size(), 70U);
}

TEST(ShapePictures, NoShapeNoPicture)
{
    for (const int id : {0, 1, 11, 69, 1000, 1042, 2000, 2027, 3000, 3004, 4001, 32767, -1, -1001, -32768}) {
        EXPECT_TRUE(ShapePicture(static_cast<std::int16_t>(id), {64, 64}, 1.0).isNull()) << id;
    }
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double ratio : {0.0, -1.0, std::nan(""), infinity, 1e9}) {
        EXPECT_TRUE(ShapePicture(1001, {64, 64}, ratio).isNull()) << ratio;
    }
    for (const QSize size : {QSize(), QSize(0, 64), QSize(64, -3), QSize(1 << 30, 1 << 30)}) {
        EXPECT_TRUE(ShapePicture(1001, size, 1.0).isNull()) << size.width();
    }
}

TEST(ShapePictures, TheSmallestSizesAreNoTrouble)
{
    for (const ShapeRow& row : ShapeCatalogue()) {
        for (const QSize size : {QSize(1, 1), QSize(2, 9), QSize(5, 4)}) {
            EXPECT_FALSE(ShapePicture(row.ShapeId, size, 1.0).isNull()) << row.Name;
            EXPECT_FALSE(ShapePicture(row.ShapeId, size, 0.1).isNull()) << row.Name;
        }
    }
}

// C-01 and H-01 are both a disc; only the tab tells them apart.
TEST(ShapePictures, AreSeenToDiffer)
{
    const std::set<std::pair<std::string, std::string>> alike = {{"C-01", "H-01"}};
    for (const QSize size : {QSize(64, 64), QSize(128, 128)}) {
        std::vector<std::pair<std::string, QImage>> before;
        for (const ShapeRow& row : ShapeCatalogue()) {
            const QImage image = ImageOf(row.ShapeId, size, 1.0);
            for (const auto& [name, other] : before) {
                EXPECT_EQ(!IsSeenToDiffer(image, other), alike.contains({name, row.Name}))
                    << name << " and " << row.Name << " at " << size.width();
            }
            before.emplace_back(row.Name, image);
        }
    }
}

TEST(ShapePictures, KeepProportionsMarginsAndMiddle)
{
    for (const ShapeRow& row : ShapeCatalogue()) {
        const Part part = Develop(row);
        for (const QSize size : Sizes) {
            for (const qreal ratio : Ratios) {
                SCOPED_TRACE(CaseText(row.Name, size, ratio));
                const QImage image = ImageOf(row.ShapeId, size, ratio);
                const QRect box = PaintedBox(image);
                const double scale = ScaleOf(part, box, ratio);
                const double around = Around(part, ratio);
                // An open part may end with a stroke's flat end, which adds nothing.
                EXPECT_NEAR(box.width(), part.Width * scale + around, 2.0 + around / 2);
                EXPECT_NEAR(box.height(), part.Height * scale + around, 2.0 + around / 2);
                const int left = box.left();
                const int right = image.width() - 1 - box.right();
                const int top = box.top();
                const int bottom = image.height() - 1 - box.bottom();
                EXPECT_LE(std::abs(left - right), 2);
                EXPECT_LE(std::abs(top - bottom), 2);
                EXPECT_GE(std::min(left, right), 0.05 * image.width() - 1);
                EXPECT_GE(std::min(top, bottom), 0.05 * image.height() - 1);
                const bool filled = std::max(left, right) <= 0.09 * image.width() + 1.5 ||
                                    std::max(top, bottom) <= 0.09 * image.height() + 1.5;
                EXPECT_TRUE(filled) << left << " " << top << " " << right << " " << bottom;
            }
        }
    }
}

TEST(ShapePictures, FillTheShareOfTheBoxThatThePartFills)
{
    for (const ShapeRow& row : ShapeCatalogue()) {
        const Part part = Develop(row);
        if (part.Open) {
            continue;
        }
        const double share = MaterialArea(part) / (part.Width * part.Height);
        for (const QSize size : Sizes) {
            for (const qreal ratio : Ratios) {
                const QImage image = ImageOf(row.ShapeId, size, ratio);
                const QRect box = PaintedBox(image);
                // The painted box is off by a pixel or so, of which a small picture has few.
                const double tolerance = share * 2.0 * (1.0 / box.width() + 1.0 / box.height()) + 0.002;
                EXPECT_NEAR(Coverage(image) / (box.width() * box.height()), share, tolerance)
                    << CaseText(row.Name, size, ratio);
            }
        }
    }
}

TEST(ShapePictures, MaterialIsFilledAndHolesAreEmpty)
{
    std::mt19937 random(20260711);
    for (const ShapeRow& row : ShapeCatalogue()) {
        const Part part = Develop(row);
        const QImage image = ImageOf(row.ShapeId, Large, LargeRatio);
        const QRect box = PaintedBox(image);
        const double scale = ScaleOf(part, box, LargeRatio);
        std::uniform_real_distribution<double> alongX(part.Box.MinX, part.Box.MaxX);
        std::uniform_real_distribution<double> alongY(part.Box.MinY, part.Box.MaxY);
        int judged = 0;
        for (int i = 0; i < 400; ++i) {
            const TablePoint point{alongX(random), alongY(random)};
            const double clear = DistanceToContours(part, point) * scale;
            if (clear < 3.5) {
                continue;
            }
            ++judged;
            const double x = image.width() / 2.0 + (point.X - (part.Box.MinX + part.Box.MaxX) / 2) * scale;
            const double y = image.height() / 2.0 - (point.Y - (part.Box.MinY + part.Box.MaxY) / 2) * scale;
            const QRgb pixel = image.pixel(static_cast<int>(x), static_cast<int>(y));
            const bool material = !part.Open && Depth(part, point) % 2 == 1;
            EXPECT_EQ(qAlpha(pixel), material ? 255 : 0) << row.Name << " " << point.X << " " << point.Y;
            if (material && clear > 5.5) {
                EXPECT_GT(qBlue(pixel), qRed(pixel) + 20) << row.Name;
                EXPECT_GT(qRed(pixel), 0x60) << row.Name << ": the edge is too wide";
            }
        }
        EXPECT_GT(judged, 40) << row.Name;
    }
}

TEST(ShapePictures, OpenPartsAreStrokes)
{
    for (const std::string& name : OpenShapes) {
        const ShapeRow& row = *FindShape(ShapeIdOfName(name));
        const Part part = Develop(row);
        const QImage image = ImageOf(row.ShapeId, Large, LargeRatio);
        const QRect box = PaintedBox(image);
        const double expected = LengthOf(part) * ScaleOf(part, box, LargeRatio) * 1.5 * LargeRatio;
        EXPECT_NEAR(Coverage(image), expected, 0.06 * expected) << name;
    }
}

// A plate of 200 by 300 fits whole pixels in every size: its four edges are sharp, and 1.5 wide.
TEST(ShapePictures, EdgesMeetThePixels)
{
    for (const QSize size : Sizes) {
        for (const qreal ratio : Ratios) {
            SCOPED_TRACE(CaseText("R-01", size, ratio));
            const QImage image = ImageOf(1001, size, ratio);
            const QRect box = PaintedBox(image);
            const int middleX = box.center().x();
            const int middleY = box.center().y();
            EXPECT_EQ(AlphaAt(image, box.left(), middleY), 255);
            EXPECT_EQ(AlphaAt(image, box.right(), middleY), 255);
            EXPECT_EQ(AlphaAt(image, middleX, box.top()), 255);
            EXPECT_EQ(AlphaAt(image, middleX, box.bottom()), 255);
            const int edge = qRed(image.pixel(box.left(), middleY));
            const int fill = qRed(image.pixel(middleX, middleY));
            ASSERT_GT(fill, edge + 60);
            double width = 0.0;
            for (int x = box.left(); x < middleX; ++x) {
                width += double(fill - qRed(image.pixel(x, middleY))) / (fill - edge);
            }
            EXPECT_NEAR(width, 1.5 * ratio, 0.05);
        }
    }
}

TEST(ShapePictures, LeaveTheStateAsItWas)
{
    StandInTheMiddleOfWork();
    const std::vector<std::string> before = StateBytes();
    for (const ShapeRow& row : ShapeCatalogue()) {
        ASSERT_FALSE(ShapePicture(row.ShapeId, {64, 64}, 1.0).isNull());
        ASSERT_EQ(StateBytes(), before) << row.Name;
    }
    ShapePicture(1000, {64, 64}, 1.0);
    ShapePictureOf(1001, ShapeParameters{}, {64, 64}, 1.0);
    ShapePictureOf(9999, ShapeParameters{}, {64, 64}, 1.0);
    // Sixteen thousand holes are more than the table takes.
    const ShapeParameters plenty = ParametersOf({200, 300, 30, 30, 80, 180, 20, 40000, 40000});
    EXPECT_THROW(ShapePictureOf(1035, plenty, {64, 64}, 1.0), RunTimeFault);
    EXPECT_EQ(StateBytes(), before);
    EXPECT_EQ(Calls, 0);
}

TEST(ShapePictures, APlainPlateStandsForWhatCannotBeBuilt)
{
    const double nan = std::nan("");
    const QImage plate = ShapePictureOf(9999, ShapeParameters{}, {64, 64}, 1.0).toImage();
    ASSERT_FALSE(plate.isNull());
    EXPECT_EQ(AlphaAt(plate, 32, 32), 0);
    const QRect box = PaintedBox(plate);
    EXPECT_NEAR(double(box.width()) / box.height(), 1.5, 0.1);
    EXPECT_EQ(ShapePictureOf(1001, ParametersOf({300, 200, 100}), {64, 64}, 1.0).toImage(), plate);
    // Here the height leaves no line between two corners: the builder fails half way.
    EXPECT_EQ(ShapePictureOf(1001, ParametersOf({40, 200, 20}), {64, 64}, 1.0).toImage(), plate);
    EXPECT_EQ(ShapePictureOf(2003, ParametersOf({nan, nan, nan, nan, nan}), {64, 64}, 1.0).toImage(), plate);
    EXPECT_EQ(ShapePictureOf(2001, ParametersOf({1e10}), {64, 64}, 1.0).toImage(), plate);
    EXPECT_EQ(ShapePictureOf(2001, ParametersOf({1e300}), {64, 64}, 1.0).toImage(), plate);
}

TEST(ShapePictures, OtherValuesShow)
{
    EXPECT_EQ(ShapePictureOf(1001, ParametersOf({300, 200, 20}), {64, 64}, 1.0).toImage(),
              ShapePicture(1001, {64, 64}, 1.0).toImage());
    const QRect wide =
        PaintedBox(ShapePictureOf(1001, ParametersOf({200, 300, 20}), {64, 64}, 1.0).toImage());
    EXPECT_GT(wide.width(), wide.height());
}

TEST(ShapePictures, SurviveAnyValues)
{
    std::mt19937 random(4711);
    const double strange[] = {0.0, -1.0, 0.1, 1e-9, 1e6, 1e308, -1e308, std::nan("")};
    for (const ShapeRow& row : ShapeCatalogue()) {
        for (int i = 0; i < 20; ++i) {
            ShapeParameters parameters{};
            for (int field = 0; field < ParameterCount(row); ++field) {
                const bool plain = random() % 3 != 0;
                parameters[static_cast<std::size_t>(field) + 1] =
                    plain ? row.Parameters[field].Default : strange[random() % std::size(strange)];
            }
            try {
                EXPECT_FALSE(ShapePictureOf(row.ShapeId, parameters, {48, 48}, 1.0).isNull()) << row.Name;
            } catch (const RunTimeFault&) { // more holes or chords than the table takes
                EXPECT_TRUE(row.ShapeId == 1035 || row.ShapeId == 2003 || row.ShapeId == 2022) << row.Name;
            }
        }
    }
}

// A strip of 4000 by 1 is a stroke, not a shade.
TEST(ShapePictures, FlatPartsStayVisible)
{
    for (const auto& [width, height] : {std::pair{4000.0, 1.0}, std::pair{1.0, 4000.0}}) {
        const QImage image = ShapePictureOf(1001, ParametersOf({width, height, 0}), {48, 48}, 1.0).toImage();
        const QRect box = PaintedBox(image);
        EXPECT_GE(std::max(box.width(), box.height()), 40);
        EXPECT_LE(std::min(box.width(), box.height()), 3);
        EXPECT_GT(Coverage(image), 1.4 * 40);
    }
}
