// The walk over the copies of a nest in the order of the program.
#include "nesting/Korvanta_CutTecnology.h"
#include "nesting/NestNumbers.h"

#include <algorithm>

namespace
{
/// Lines of the grid, counted from 1; none when Last is below First.
struct LineRange {
    std::int64_t First = 1;
    std::int64_t Last = 0;

    std::int64_t Count() const
    {
        return std::max(std::int64_t{0}, Last - First + 1);
    }
    bool Holds(std::int64_t line) const
    {
        return line >= First && line <= Last;
    }
};

/// How many of the lines First .. Last of `range` have numbers of this parity.
std::int64_t CountParity(const LineRange& range, bool even)
{
    const auto upTo = [even](std::int64_t last) { return even ? last / 2 : (last + 1) / 2; };
    return range.Count() == 0 ? 0 : upTo(range.Last) - upTo(range.First - 1);
}

struct Grid {
    double OriginX;
    double OriginY;
    double PitchX;
    double PitchY;
    double SheetX;
    double SheetY;
    std::int64_t Columns;
    std::int64_t Rows; ///< one more than counted in the staggered types
    bool Staggered;
};

Grid CurrentGrid(double originX, double originY)
{
    const bool staggered = AppState.NestKind >= FirstStaggeredType;
    return {originX,
            originY,
            AppState.PartSizeX + AppState.GapX,
            AppState.PartSizeY + AppState.GapY,
            NestNumber(FieldSheetX),
            NestNumber(FieldSheetY),
            std::max(std::int64_t{0}, std::int64_t{AppState.CountX}),
            std::max(std::int64_t{0}, std::int64_t{AppState.CountY} + (staggered ? 1 : 0)),
            staggered};
}

double CopyXOf(const Grid& grid, std::int64_t column, bool shifted)
{
    const double offset = static_cast<double>(column - 1) * grid.PitchX;
    return grid.OriginX + (shifted ? offset + grid.PitchX / 2 : offset);
}

double CopyYOf(const Grid& grid, std::int64_t row)
{
    const double offset = static_cast<double>(row - 1) * grid.PitchY;
    return grid.OriginY + (grid.Staggered ? offset * Stagger : offset);
}

/// The lines 1 .. count that fit. Positions grow with the line, or fall with it when the pitch is negative, so the
/// fitting lines are a run at one end, found by halving with the very comparison that a cell would be put to.
template <class Fits> LineRange FittingLines(std::int64_t count, double pitch, Fits fits)
{
    const bool lowEnd = pitch >= 0.0;
    std::int64_t good = 0; // lines known to fit, counted from the good end
    std::int64_t bad = count + 1;
    while (bad - good > 1) {
        const std::int64_t middle = good + (bad - good) / 2;
        (fits(lowEnd ? middle : count + 1 - middle) ? good : bad) = middle;
    }
    return lowEnd ? LineRange{1, good} : LineRange{count + 1 - good, count};
}

LineRange FittingColumns(const Grid& grid, bool shifted)
{
    if (!grid.Staggered) {
        return {1, grid.Columns};
    }
    return FittingLines(grid.Columns, grid.PitchX, [&](std::int64_t column) {
        return CopyXOf(grid, column, shifted) + AppState.PartSizeX <= grid.SheetX;
    });
}

LineRange FittingRows(const Grid& grid)
{
    if (!grid.Staggered) {
        return {1, grid.Rows};
    }
    return FittingLines(grid.Rows, grid.PitchY, [&](std::int64_t row) {
        return CopyYOf(grid, row) + AppState.PartSizeY + AppState.GapY <= grid.SheetY;
    });
}

/// What of the grid lies on the sheet: its rows, and the columns of odd rows and of even, shifted ones.
struct Placed {
    LineRange Rows;
    LineRange OddColumns;
    LineRange EvenColumns;
};

Placed PlacedCells(const Grid& grid)
{
    return {FittingRows(grid), FittingColumns(grid, false), FittingColumns(grid, grid.Staggered)};
}

bool IsEven(std::int64_t line)
{
    return line % 2 == 0;
}

/// Row by row; every even row runs back, and in the staggered type it is the shifted one.
std::int64_t WalkRows(const Grid& grid, CopyVisitor visit, void* context)
{
    const Placed placed = PlacedCells(grid);
    std::int64_t copies = 0;
    if (placed.OddColumns.Count() == 0 && placed.EvenColumns.Count() == 0) {
        return copies;
    }
    for (std::int64_t row = placed.Rows.First; row <= placed.Rows.Last; ++row) {
        const bool back = IsEven(row);
        const LineRange& columns = back ? placed.EvenColumns : placed.OddColumns;
        for (std::int64_t i = 0; i < columns.Count(); ++i) {
            const std::int64_t column = back ? columns.Last - i : columns.First + i;
            ++copies;
            if (!visit(CopyXOf(grid, column, back && grid.Staggered), CopyYOf(grid, row), context)) {
                return copies;
            }
        }
    }
    return copies;
}

/// Column by column; every even column runs back, and in the staggered type every even row is shifted.
std::int64_t WalkColumns(const Grid& grid, CopyVisitor visit, void* context)
{
    const Placed placed = PlacedCells(grid);
    std::int64_t copies = 0;
    if (placed.Rows.Count() == 0) {
        return copies;
    }
    const LineRange& odd = placed.OddColumns;
    const LineRange& even = placed.EvenColumns;
    const std::int64_t first = std::min(odd.First, even.First);
    const std::int64_t last = std::max(odd.Last, even.Last);
    for (std::int64_t column = first; column <= last; ++column) {
        for (std::int64_t i = 0; i < placed.Rows.Count(); ++i) {
            const std::int64_t row = IsEven(column) ? placed.Rows.Last - i : placed.Rows.First + i;
            if (!(IsEven(row) ? even : odd).Holds(column)) {
                continue;
            }
            ++copies;
            if (!visit(CopyXOf(grid, column, IsEven(row) && grid.Staggered), CopyYOf(grid, row), context)) {
                return copies;
            }
        }
    }
    return copies;
}

/// The first and the last of the lines with numbers of this parity.
LineRange OfParity(const LineRange& range, bool even)
{
    const auto wrong = [even](std::int64_t line) { return IsEven(line) != even ? 1 : 0; };
    return {range.First + wrong(range.First), range.Last - wrong(range.Last)};
}

void IncludeCopy(NestBox& box, double x, double y)
{
    box.Left = std::min(box.Left, x);
    box.Bottom = std::min(box.Bottom, y);
    box.Right = std::max(box.Right, x + AppState.PartSizeX);
    box.Top = std::max(box.Top, y + AppState.PartSizeY);
}
} // namespace

std::int64_t WalkCopies(double originX, double originY, CopyVisitor visit, void* context)
{
    const Grid grid = CurrentGrid(originX, originY);
    switch (AppState.NestKind) {
    case 0:
        visit(originX, originY, context);
        return 1;
    case 1:
    case 3:
        return WalkRows(grid, visit, context);
    case 2:
    case 4:
        return WalkColumns(grid, visit, context);
    default:
        return 0;
    }
}

std::int64_t CountCopies(double originX, double originY)
{
    if (AppState.NestKind == 0) {
        return 1;
    }
    if (AppState.NestKind < 1 || AppState.NestKind > 4) {
        return 0;
    }
    const Placed placed = PlacedCells(CurrentGrid(originX, originY));
    return CountParity(placed.Rows, false) * placed.OddColumns.Count() +
           CountParity(placed.Rows, true) * placed.EvenColumns.Count();
}

bool FindNestBox(double originX, double originY, NestBox& box)
{
    const std::int64_t copies = CountCopies(originX, originY);
    box = {NoValue, NoValue, -NoValue, -NoValue};
    if (AppState.NestKind == 0) {
        IncludeCopy(box, originX, originY);
    }
    if (AppState.NestKind == 0 || copies == 0) {
        return copies > 0;
    }
    const Grid grid = CurrentGrid(originX, originY);
    const Placed placed = PlacedCells(grid);
    for (const bool even : {false, true}) {
        const LineRange rows = OfParity(placed.Rows, even);
        const LineRange& columns = even ? placed.EvenColumns : placed.OddColumns;
        if (rows.Count() == 0 || columns.Count() == 0) {
            continue;
        }
        const bool shifted = even && grid.Staggered;
        IncludeCopy(box, CopyXOf(grid, columns.First, shifted), CopyYOf(grid, rows.First));
        IncludeCopy(box, CopyXOf(grid, columns.Last, shifted), CopyYOf(grid, rows.Last));
    }
    return true;
}
