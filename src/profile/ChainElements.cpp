// Chaining: loose elements come to follow each other, turned where they have to be.
//
// The rule is a search: what follows the element in slot i is the element in the LOWEST slot above i that has an end
// closer than the tolerance to its end point. A search through all slots would take quadratic time, so the end points
// are kept as places in a grid of cells, and each place keeps the slots of the elements that meet there as a heap with
// the lowest on top. An element that gives way to a follower moves from slot i + 1, the lowest there is, so its entry
// is on top of its places' heaps and is replaced there. The entries of elements that have found their place stay behind;
// they are thrown away when they come to the top.
#include "profile/ElementSteps.h"
#include "profile/Korvanta_ProfileCut.h"
#include "profile/ProfileSlots.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <functional>

namespace
{
constexpr double CellSize = 5.0 * Tolerance;

/// A hair more than the tolerance, so that no rounding of a distance can hide a point behind a cell's edge.
constexpr double Reach = 1.01 * Tolerance;

constexpr std::int32_t None = -1;

/// One point at which elements start or end.
struct Place {
    double X = 0.0;
    double Y = 0.0;
    std::int32_t Next = None; ///< next place of the same bucket
    std::int32_t Live = 0;    ///< ends of elements above the current slot
    std::int32_t First = 0;   ///< its heap in Slots
    std::int32_t Size = 0;
};

struct ChainIndex {
    std::vector<std::int32_t> Buckets; ///< first place of each, a power of two of them
    std::vector<Place> Places;
    std::vector<std::array<std::int32_t, 2>> PlacesOf; ///< by slot: the two places of its element
    std::vector<std::int32_t> Slots;                   ///< the heaps of all places, one behind the other
};

Place& PlaceAt(ChainIndex& index, std::int32_t place)
{
    return index.Places[static_cast<std::size_t>(place)];
}

std::array<std::int32_t, 2>& PlacesAt(ChainIndex& index, std::int32_t slot)
{
    return index.PlacesOf[static_cast<std::size_t>(slot)];
}

/// Cell numbers stay doubles: no coordinate is too large for them. 0.0 is added to have one zero only.
double CellOf(double coordinate)
{
    return std::floor(coordinate / CellSize) + 0.0;
}

std::int32_t& BucketOf(ChainIndex& index, double cellX, double cellY)
{
    std::uint64_t hash = std::bit_cast<std::uint64_t>(cellX) * 0x9E3779B97F4A7C15ULL;
    hash ^= std::rotl(std::bit_cast<std::uint64_t>(cellY) * 0xC2B2AE3D27D4EB4FULL, 31);
    hash ^= hash >> 29;
    hash *= 0xBF58476D1CE4E5B9ULL;
    hash ^= hash >> 32;
    return index.Buckets[hash & (index.Buckets.size() - 1)];
}

/// The place of a point, made when it is new.
std::int32_t FindPlace(ChainIndex& index, double x, double y)
{
    std::int32_t& bucket = BucketOf(index, CellOf(x), CellOf(y));
    for (std::int32_t p = bucket; p != None; p = PlaceAt(index, p).Next) {
        if (PlaceAt(index, p).X == x && PlaceAt(index, p).Y == y) {
            return p;
        }
    }
    Place place;
    place.X = x;
    place.Y = y;
    place.Next = bucket;
    bucket = static_cast<std::int32_t>(index.Places.size());
    index.Places.push_back(place);
    return bucket;
}

/// The heap of a place: lowest slot first.
std::int32_t* HeapOf(ChainIndex& index, const Place& place)
{
    return index.Slots.data() + place.First;
}

void DropLowest(ChainIndex& index, Place& place)
{
    std::int32_t* heap = HeapOf(index, place);
    std::pop_heap(heap, heap + place.Size, std::greater<>());
    --place.Size;
}

void BuildIndex(ChainIndex& index)
{
    const auto count = static_cast<std::size_t>(AppState.ElementCount);
    index.Buckets.assign(std::bit_ceil(2 * count + 1), None);
    index.Places.reserve(count + count / 4);
    index.PlacesOf.resize(count + 1);
    index.Slots.resize(2 * count);
    for (std::int32_t slot = 1; slot <= AppState.ElementCount; ++slot) {
        const ProfileElement& element = ElementAt(slot);
        const std::int32_t start = FindPlace(index, element.StartX, element.StartY);
        const std::int32_t end = FindPlace(index, element.EndX, element.EndY);
        PlacesAt(index, slot) = {start, end};
        ++PlaceAt(index, start).Live;
        ++PlaceAt(index, end).Live;
    }
    std::int32_t first = 0;
    for (Place& place : index.Places) {
        place.First = first;
        first += place.Live;
    }
    for (std::int32_t slot = 1; slot <= AppState.ElementCount; ++slot) {
        for (const std::int32_t at : PlacesAt(index, slot)) {
            Place& place = PlaceAt(index, at);
            HeapOf(index, place)[place.Size++] = slot; // ascending: a heap as it is
        }
    }
}

/// The lowest slot above `current` with an end at a place that has such a slot.
std::int32_t LowestSlot(ChainIndex& index, std::int32_t at, std::int32_t current)
{
    Place& place = PlaceAt(index, at);
    for (;;) {
        const std::int32_t slot = *HeapOf(index, place);
        const std::array<std::int32_t, 2>& ends = PlacesAt(index, slot);
        if (slot > current && (ends[0] == at || ends[1] == at)) {
            return slot;
        }
        DropLowest(index, place);
    }
}

/// Enters slot `to` at a place for the element that moves there from slot `from`, the lowest above the current one.
void MoveEntry(ChainIndex& index, Place& place, std::int32_t from, std::int32_t to)
{
    std::int32_t* heap = HeapOf(index, place);
    while (*heap < from) {
        DropLowest(index, place);
    }
    std::pop_heap(heap, heap + place.Size, std::greater<>());
    heap[place.Size - 1] = to;
    std::push_heap(heap, heap + place.Size, std::greater<>());
}

/// Looks through one bucket for a lower slot than `lowest` (0 for none yet) near the point. Places that no element
/// above the current one uses are taken out on the way.
void SearchBucket(ChainIndex& index, std::int32_t& bucket, double x, double y, std::int32_t current,
                  std::int32_t& lowest)
{
    std::int32_t* link = &bucket;
    while (*link != None) {
        Place& place = PlaceAt(index, *link);
        if (place.Live == 0) {
            *link = place.Next;
            continue;
        }
        if (dpp(x, y, place.X, place.Y) < Tolerance) {
            const std::int32_t slot = LowestSlot(index, *link, current);
            if (lowest == 0 || slot < lowest) {
                lowest = slot;
            }
        }
        link = &place.Next;
    }
}

/// Cells of one axis that a point within reach of `coordinate` can lie in; one that repeats stands once.
int CellsInReach(std::array<double, 3>& cells, double coordinate)
{
    int count = 0;
    for (const double at : {coordinate - Reach, coordinate, coordinate + Reach}) {
        const double cell = CellOf(at);
        if (count == 0 || cell != cells[static_cast<std::size_t>(count - 1)]) {
            cells[static_cast<std::size_t>(count++)] = cell;
        }
    }
    return count;
}

/// The lowest slot above `current` whose element starts or ends closer than the tolerance to the end of the
/// element in slot `current`, 0 without one.
std::int32_t FindFollower(ChainIndex& index, std::int32_t current)
{
    const double x = ElementAt(current).EndX;
    const double y = ElementAt(current).EndY;
    std::array<double, 3> cellsX{};
    std::array<double, 3> cellsY{};
    const int countX = CellsInReach(cellsX, x);
    const int countY = CellsInReach(cellsY, y);
    std::int32_t lowest = 0;
    for (int ix = 0; ix < countX; ++ix) {
        for (int iy = 0; iy < countY; ++iy) {
            SearchBucket(
                index,
                BucketOf(index, cellsX[static_cast<std::size_t>(ix)], cellsY[static_cast<std::size_t>(iy)]),
                x, y, current, lowest);
        }
    }
    return lowest;
}

/// Brings the element of slot `found` behind the one of slot `current`, turned when only its end touches.
void LinkFollower(ChainIndex& index, std::int32_t current, std::int32_t found)
{
    const ProfileElement& before = ElementAt(current);
    ProfileElement& follower = ElementAt(found);
    if (!(dpp(before.EndX, before.EndY, follower.StartX, follower.StartY) < Tolerance)) {
        TurnElement(follower);
    }
    if (found == current + 1) {
        return;
    }
    std::swap(ElementAt(current + 1), follower);
    std::swap(PlacesAt(index, current + 1), PlacesAt(index, found));
    for (const std::int32_t place : PlacesAt(index, found)) {
        MoveEntry(index, PlaceAt(index, place), current + 1, found);
    }
}
} // namespace

void ChainElements()
{
    ChainIndex index;
    BuildIndex(index);
    bool linked = false;
    for (std::int32_t i = 1; i <= AppState.ElementCount; ++i) {
        for (const std::int32_t place : PlacesAt(index, i)) {
            --PlaceAt(index, place).Live;
        }
        std::int32_t found = FindFollower(index, i);
        if (found == 0 && !linked) {
            // Perhaps a chain begins here with its first element backwards. Turned in vain it stays turned.
            TurnElement(ElementAt(i));
            found = FindFollower(index, i);
        }
        linked = found != 0;
        if (linked) {
            LinkFollower(index, i, found);
        }
    }
    AppState.ProfileEnds.clear();
}
