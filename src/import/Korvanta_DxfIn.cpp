#include "import/Korvanta_DxfIn.h"

#include "config/Korvanta_Configuration.h"
#include "config/Korvanta_Utility.h"
#include "geometry/Orbalib.h"
#include "import/DrawingReader.h"
#include "profile/Korvanta_ProfileCut.h"
#include "state/AppState.h"

#include <array>
#include <memory>
#include <vector>

namespace
{

/// Sense that an imported element starts with.
constexpr std::int16_t WantedDirection = 1;

/// State of one enumeration.
struct DxfImport {
    bool TooLarge = false; ///< the element table is full
    std::vector<std::array<float, 2>> Vertices;
};

/// Adds an element; the last slot of the table stays free for the end mark that every part needs.
void AddImported(DxfImport& import, std::int16_t kind, double startX, double startY, const GeoLine& geo,
                 double endX, double endY)
{
    if (AppState.ElementCount >= MaxElements - 1) {
        import.TooLarge = true;
        return;
    }
    AddElement(kind, startX, startY, geo[1], geo[2], geo[3], endX, endY, WantedDirection);
}

/// A straight element; 0.01 or less is dropped.
void AddLine(DxfImport& import, double ax, double ay, double bx, double by)
{
    if (!(dpp(ax, ay, bx, by) > Tolerance)) {
        return;
    }
    GeoLine line{};
    std::int16_t err = 0;
    r_pp(line, {0.0, ax, ay, 0.0}, {0.0, bx, by, 0.0}, err);
    AddImported(import, KindLine, ax, ay, line, bx, by);
}

void AddArc(DxfImport& import, const DxfEntity& entity)
{
    const double radius = entity.P2[0];
    if (radius == 0.0) { // exact: an arc without a radius is its chord
        AddLine(import, entity.P3[0], entity.P3[1], entity.P4[0], entity.P4[1]);
        return;
    }
    AddImported(import, KindArc, entity.P3[0], entity.P3[1], {0.0, entity.P1[0], entity.P1[1], radius},
                entity.P4[0], entity.P4[1]);
}

void AddPolyline(DxfImport& import, const DxfEntity& entity)
{
    if (entity.PointCount <= 0) {
        return;
    }
    DXFConvert(import.Vertices, entity);
    for (std::size_t i = 1; i < import.Vertices.size() && !import.TooLarge; ++i) {
        const std::array<float, 2>& a = import.Vertices[i - 1];
        const std::array<float, 2>& b = import.Vertices[i];
        AddLine(import, a[0], a[1], b[0], b[1]);
    }
}

void AddPoint(const DxfEntity& entity)
{
    AppState.MarkPoints.push_back({entity.P1[0], entity.P1[1]});
    ++AppState.MarkPointCount;
}

/// The callback of the drawing reader. Goes on with 0; a full table ends it.
int TakeEntity(const DxfEntity& entity, void* context)
{
    DxfImport& import = *static_cast<DxfImport*>(context);
    switch (entity.Kind) {
    case DxfLine:
        AddLine(import, entity.P1[0], entity.P1[1], entity.P2[0], entity.P2[1]);
        break;
    case DxfArc:
    case DxfCircle:
    case DxfArcPiece:
        AddArc(import, entity);
        break;
    case DxfPolyline:
    case DxfLwPolyline:
    case DxfCurve:
        AddPolyline(import, entity);
        break;
    case DxfPoint:
        AddPoint(entity);
        break;
    default: // texts and all that gives no geometry
        break;
    }
    return import.TooLarge ? 1 : 0;
}

/// Without elements no shift to the origin hides the reader's offset: the mark points get it back.
void RestoreLoosePoints(const DrawingAccount& account)
{
    for (std::int32_t i = 1; AppState.ElementCount == 0 && i <= AppState.MarkPointCount; ++i) {
        MarkPoint& point = AppState.MarkPoints[static_cast<std::size_t>(i)];
        point.X += account.OffsetX;
        point.Y += account.OffsetY;
    }
}

/// The path without its folders, and without ".abc".
std::string DisplayName(const std::string& path)
{
    constexpr std::string_view extension = ".ABC";
    const std::size_t slash = path.find_last_of("\\/");
    std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
    if (name.size() >= extension.size() &&
        UpperCase(name.substr(name.size() - extension.size())) == extension) {
        name.resize(name.size() - extension.size());
    }
    return name;
}

/// The end of an import that gives nothing.
bool Fail(const std::string& why)
{
    ClearPart();
    ClearImportAccount();
    AppState.ImportFailure = why;
    return false;
}

} // namespace

bool ImportDxf(std::string& name)
{
    ClearPart();
    ClearImportAccount();
    if (name.empty() || name.front() != '/') {
        name = WithBackslash(AppState.DxfPath) + name;
    }
    const std::unique_ptr<Drawing, void (*)(Drawing*)> drawing(DXFCreate(name), DXFClose);
    if (drawing == nullptr || DXFProhibitCurvesAsPoly(drawing.get(), 0) == 0) {
        return Fail(DrawingRefusal(name));
    }
    AppState.SourceName = name;
    AppState.JobName = DisplayName(name);
    ClearPart();
    DxfImport import;
    const bool complete = DXFEnum(drawing.get(), 0, TakeEntity, &import);
    if (import.TooLarge) {
        return Fail("there are more elements than the station holds (32767, profile ends included)");
    }
    if (!complete) {
        return Fail("the blocks or curves of the drawing multiply beyond measure");
    }
    const DrawingAccount& account = DXFAccount(drawing.get());
    ChainElements();
    RestoreLoosePoints(account);
    if (!NormaliseImport(ImportSides::Drawing, account.OffsetX, account.OffsetY)) {
        return Fail(std::string(AppState.ImportFailure));
    }
    AppState.ImportCutOff = ToFlag(account.CutOff);
    AppState.ImportRead = account.Read;
    AppState.ImportLeftOut = account.LeftOut;
    return true;
}
