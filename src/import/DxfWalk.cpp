#include "import/DxfWalk.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

/// Inserts nested deeper than this give nothing; real drawings stay far below.
constexpr int MaxInsertDepth = 64;

/// An insert's numbers by name.
struct Placement {
    const double* Place;
    const double* Scale;
    double AngleDeg;
    double Columns;
    double Rows;
    double ColumnStep;
    double RowStep;
    const double* Normal;
};

Placement PlacementOf(const double* n)
{
    return {n, n + 3, n[6], n[7], n[8], n[9], n[10], n + 11};
}

bool AllFinite(const double* numbers, std::size_t count)
{
    return std::all_of(numbers, numbers + count, [](double value) { return std::isfinite(value); });
}

void WalkRows(DxfWalk& walk, const std::vector<DxfShape>& rows, std::size_t first, std::size_t end,
              const DxfMatrix& matrix);

void Spend(DxfWalk& walk, std::int64_t steps)
{
    walk.Budget -= steps;
    walk.Exhausted = walk.Exhausted || walk.Budget < 0;
}

bool IsOver(const DxfWalk& walk)
{
    return walk.Ended || walk.Exhausted;
}

/// `copies` more, held at the largest count there is.
void AddCount(std::int64_t& count, double copies)
{
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    constexpr double largestStep = 9e18;
    const auto step = static_cast<std::int64_t>(std::min(copies, largestStep));
    count = count > most - step ? most : count + step;
}

/// A block without geometry is counted, not walked: its array may be of any size.
void CountPlainBlock(DxfWalk& walk, const DxfBlock& block, double copies)
{
    Spend(walk, 1 + static_cast<std::int64_t>(block.End - block.First));
    for (std::size_t i = block.First; !walk.Measuring && i < block.End; ++i) {
        AddCount(walk.LeftOut[walk.Model->BlockShapes[i].Name], copies);
    }
}

void WalkCells(DxfWalk& walk, const DxfBlock& block, const Placement& placement, const DxfMatrix& matrix)
{
    DxfMatrix base = WithNormal(matrix, placement.Normal);
    base = WithShift(base, placement.Place[0], placement.Place[1], placement.Place[2]);
    base = WithTurn(base, placement.AngleDeg);
    for (double row = 0.0; row < placement.Rows; row += 1.0) {
        for (double column = 0.0; column < placement.Columns; column += 1.0) {
            Spend(walk, 1);
            if (IsOver(walk)) {
                return;
            }
            DxfMatrix cell = WithShift(base, column * placement.ColumnStep, row * placement.RowStep, 0.0);
            cell = WithScale(cell, placement.Scale[0], placement.Scale[1], placement.Scale[2]);
            cell = WithShift(cell, -block.Base[0], -block.Base[1], -block.Base[2]);
            WalkRows(walk, walk.Model->BlockShapes, block.First, block.End, cell);
        }
    }
}

/// False when the insert gave nothing: an unknown block, a layout, a block within itself, one without geometry.
bool WalkInsert(DxfWalk& walk, const DxfShape& shape, const DxfMatrix& matrix)
{
    const DxfBlock& block = walk.Model->Blocks[shape.Block];
    const double* const numbers = walk.Model->Numbers.data() + shape.First;
    if (!block.Defined || block.Paper || walk.OpenBlocks[shape.Block] != 0 || walk.Depth >= MaxInsertDepth ||
        !AllFinite(numbers, shape.Count) || !AllFinite(block.Base, 3)) {
        return false;
    }
    const Placement placement = PlacementOf(numbers);
    if (block.Plain) {
        CountPlainBlock(walk, block, placement.Columns * placement.Rows);
        return false;
    }
    const std::int64_t before = walk.ShapesGiven;
    walk.OpenBlocks[shape.Block] = 1;
    ++walk.Depth;
    WalkCells(walk, block, placement, matrix);
    --walk.Depth;
    walk.OpenBlocks[shape.Block] = 0;
    return walk.ShapesGiven > before;
}

void WalkRows(DxfWalk& walk, const std::vector<DxfShape>& rows, std::size_t first, std::size_t end,
              const DxfMatrix& matrix)
{
    for (std::size_t i = first; i < end && !IsOver(walk); ++i) {
        const DxfShape& shape = rows[i];
        if (walk.Depth > 0) {
            Spend(walk, 1 + static_cast<std::int64_t>(shape.Count / 8));
        }
        bool delivered = false;
        if (shape.Type == DxfShapeType::Insert) {
            delivered = WalkInsert(walk, shape, matrix);
        } else {
            walk.Delivered = false;
            WalkShape(walk, shape, matrix);
            delivered = walk.Delivered;
            walk.ShapesGiven += delivered ? 1 : 0;
        }
        if (!walk.Measuring) {
            ++(delivered ? walk.Read : walk.LeftOut)[shape.Name];
        }
    }
}

} // namespace

void WalkDrawing(DxfWalk& walk)
{
    walk.Read.assign(walk.Model->Names.size(), 0);
    walk.LeftOut.assign(walk.Model->Names.size(), 0);
    walk.OpenBlocks.assign(walk.Model->Blocks.size(), 0);
    WalkRows(walk, walk.Model->Entities, 0, walk.Model->Entities.size(), IdentityMatrix);
}
