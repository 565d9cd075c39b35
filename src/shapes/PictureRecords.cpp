#include "shapes/PictureRecords.h"

#include "platform/RecordFile.h"
#include "profile/Strokes.h"
#include "state/AppState.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace
{
constexpr const char* PictureFileEnd = ".DBG";

/// A drawing has some dozens: more of them are no drawing, and only cost memory.
constexpr std::size_t MostItems = 2000;

/// Coordinates beyond it are no drawing's; what is smaller can be squared and scaled without care.
constexpr double LargestCoordinate = 1e9;

/// Little-endian numbers off the front of a record.
struct RecordReader {
    std::string_view Rest;

    std::uint64_t Bytes(std::size_t count)
    {
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < count; ++i) {
            value |= std::uint64_t{static_cast<unsigned char>(Rest[i])} << (8 * i);
        }
        Rest.remove_prefix(count);
        return value;
    }

    std::int16_t Short()
    {
        return static_cast<std::int16_t>(static_cast<std::uint16_t>(Bytes(2)));
    }

    double Double()
    {
        return std::bit_cast<double>(Bytes(8));
    }
};

void AppendBytes(std::string& bytes, std::uint64_t value, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        bytes += static_cast<char>(static_cast<unsigned char>(value >> (8 * i)));
    }
}

void AppendShort(std::string& bytes, std::int16_t value)
{
    AppendBytes(bytes, static_cast<std::uint16_t>(value), 2);
}
} // namespace

bool DecodePictureItem(std::string_view record, PictureItem& item)
{
    if (record.size() != PictureRecordLength) {
        return false;
    }
    RecordReader reader{record};
    item.Shape = reader.Short();
    item.ItemKind = reader.Short();
    item.Slot = reader.Short();
    bool sound = true;
    for (double* value : {&item.X1, &item.Y1, &item.X2, &item.Y2, &item.V1, &item.V2, &item.V3}) {
        *value = reader.Double();
        sound = sound && std::fabs(*value) <= LargestCoordinate; // no NaN passes
    }
    item.Label = std::string(reader.Rest.substr(0, PictureLabelLength));
    reader.Rest.remove_prefix(PictureLabelLength);
    item.ItemColor = static_cast<std::uint32_t>(reader.Bytes(4));
    return sound;
}

void AppendPictureRecord(std::string& bytes, const PictureItem& item)
{
    AppendShort(bytes, item.Shape);
    AppendShort(bytes, item.ItemKind);
    AppendShort(bytes, item.Slot);
    for (const double value : {item.X1, item.Y1, item.X2, item.Y2, item.V1, item.V2, item.V3}) {
        AppendBytes(bytes, std::bit_cast<std::uint64_t>(value), 8);
    }
    std::string label = item.Label;
    label.resize(PictureLabelLength, ' ');
    bytes += label;
    AppendBytes(bytes, item.ItemColor, 4);
}

void LoadPictureItems(std::int16_t shapeId)
{
    std::vector<PictureItem>& items = AppState.PictureItems;
    items.assign(1, PictureItem());
    if (shapeId <= 0) {
        return;
    }
    if (!MakePictureItems(shapeId, items)) {
        const std::string path = AppState.AppPath + "\\" + AppState.ProgramName + PictureFileEnd;
        PictureItem item;
        ReadRecords(path, PictureRecordLength, [&](std::string_view record) {
            if (DecodePictureItem(record, item) && item.Shape == shapeId) {
                items.push_back(item);
            }
            return items.size() <= MostItems;
        });
    }
    std::for_each(items.begin() + 1, items.end(),
                  [](PictureItem& item) { item.ItemColor = ColourCgaLightBlue; });
}
