#include "import/DrawingReader.h"

#include "import/DxfModel.h"
#include "import/DxfWalk.h"
#include "platform/TextFile.h"

#include <algorithm>
#include <cmath>
#include <memory>

struct Drawing {
    DxfModel Model;
    DrawingAccount Account;
    std::size_t ByteCount = 0;
};

namespace
{

/// Beyond this a coordinate loses too much as a 32-bit float, and the drawing is moved towards its low corner.
constexpr double MaxPlainCoordinate = 4096.0;

/// Steps that inserts and curves may take: some for any drawing, more for a large one.
constexpr std::int64_t FreeSteps = 1'000'000;
constexpr std::size_t BytesPerStep = 2;

bool EndsWithDwg(std::string_view path)
{
    constexpr std::string_view extension = ".dwg";
    if (path.size() < extension.size()) {
        return false;
    }
    const std::string_view tail = path.substr(path.size() - extension.size());
    return std::equal(tail.begin(), tail.end(), extension.begin(),
                      [](char a, char b) { return a == b || a == b - 'a' + 'A'; });
}

void StartWalk(DxfWalk& walk, const Drawing& drawing, bool measuring)
{
    walk.Model = &drawing.Model;
    walk.Measuring = measuring;
    walk.Budget = FreeSteps + static_cast<std::int64_t>(drawing.ByteCount / BytesPerStep);
}

void SetOffset(DxfWalk& walk, DrawingAccount& account, const DrawingBounds& bounds)
{
    if (bounds.Reach > MaxPlainCoordinate) {
        account.OffsetX = std::floor(bounds.MinX);
        account.OffsetY = std::floor(bounds.MinY);
    }
    walk.OffsetX = account.OffsetX;
    walk.OffsetY = account.OffsetY;
}

void StoreCounts(const DxfModel& model, const std::vector<std::int64_t>& counts,
                 std::map<std::string, std::int64_t>& account)
{
    account.clear();
    for (std::size_t i = 0; i < counts.size(); ++i) {
        if (counts[i] > 0) {
            account[model.Names[i]] = counts[i];
        }
    }
}

} // namespace

Drawing* OpenDrawingBytes(std::string_view bytes)
{
    auto drawing = std::make_unique<Drawing>();
    drawing->ByteCount = bytes.size();
    return ReadDrawing(bytes, drawing->Model) ? drawing.release() : nullptr;
}

Drawing* DXFCreate(const std::string& path)
{
    std::string bytes;
    if (EndsWithDwg(path) || !ReadWholeFile(path, bytes)) {
        return nullptr;
    }
    return OpenDrawingBytes(bytes);
}

std::string DrawingRefusal(const std::string& path)
{
    if (EndsWithDwg(path)) {
        return "DWG drawings can't be read yet; save the drawing as DXF";
    }
    std::string bytes;
    return ReadWholeFile(path, bytes) ? "the file is no DXF drawing" : "the file can't be read";
}

int DXFProhibitCurvesAsPoly(Drawing* drawing, int flag)
{
    return drawing != nullptr && flag == 0 ? 1 : 0;
}

bool DXFEnum(Drawing* drawing, int /*flag*/, DxfCallback callback, void* context)
{
    if (drawing == nullptr || callback == nullptr) {
        return false;
    }
    drawing->Account = DrawingAccount();
    DxfWalk measure;
    StartWalk(measure, *drawing, true);
    WalkDrawing(measure);
    if (measure.Exhausted) {
        return false;
    }
    DxfWalk walk;
    StartWalk(walk, *drawing, false);
    walk.Callback = callback;
    walk.Context = context;
    SetOffset(walk, drawing->Account, measure.Bounds);
    WalkDrawing(walk);
    drawing->Account.CutOff = !drawing->Model.Complete;
    StoreCounts(drawing->Model, walk.Read, drawing->Account.Read);
    StoreCounts(drawing->Model, walk.LeftOut, drawing->Account.LeftOut);
    return !walk.Exhausted;
}

void DXFConvert(std::vector<std::array<float, 2>>& vertices, const DxfEntity& entity)
{
    vertices.clear();
    if (entity.Vertices == nullptr) {
        return;
    }
    const float* coordinate = entity.Vertices;
    for (int i = 0; i < entity.PointCount; ++i, coordinate += 2) {
        vertices.push_back({coordinate[0], coordinate[1]});
    }
}

const DrawingAccount& DXFAccount(const Drawing* drawing)
{
    return drawing->Account;
}

void DXFClose(Drawing* drawing)
{
    delete drawing;
}
