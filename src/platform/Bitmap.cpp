#include "platform/Bitmap.h"

#include <cstddef>

namespace
{
constexpr std::uint32_t HeaderSize = 54; // of the file 14, of the picture 40
constexpr std::uint32_t PictureHeaderSize = 40;
constexpr std::uint32_t PixelsPerMetre = 3780; // 96 to the inch
constexpr std::uint32_t BytesPerPixel = 3;

/// Little-endian.
void Add(std::string& bytes, std::uint32_t number, int size)
{
    for (int i = 0; i < size; ++i) {
        bytes += static_cast<char>(number >> (8 * i) & 0xFF);
    }
}

void AddHeader(std::string& bytes, std::uint32_t width, std::uint32_t height, std::uint32_t pixelBytes)
{
    bytes += "BM";
    Add(bytes, HeaderSize + pixelBytes, 4);
    Add(bytes, 0, 4);
    Add(bytes, HeaderSize, 4); // where the pixels begin
    Add(bytes, PictureHeaderSize, 4);
    Add(bytes, width, 4);
    Add(bytes, height, 4); // positive: rows from the bottom
    Add(bytes, 1, 2);      // planes
    Add(bytes, BytesPerPixel * 8, 2);
    Add(bytes, 0, 4); // not compressed
    Add(bytes, pixelBytes, 4);
    Add(bytes, PixelsPerMetre, 4);
    Add(bytes, PixelsPerMetre, 4);
    Add(bytes, 0, 4); // no palette
    Add(bytes, 0, 4);
}
} // namespace

std::string BitmapBytes(std::int32_t width, std::int32_t height, std::span<const std::uint32_t> pixels)
{
    const auto columns = static_cast<std::uint32_t>(width);
    const auto rows = static_cast<std::uint32_t>(height);
    const std::uint32_t rowBytes = (columns * BytesPerPixel + 3) / 4 * 4; // to a multiple of four
    std::string bytes;
    bytes.reserve(HeaderSize + std::size_t{rowBytes} * rows);
    AddHeader(bytes, columns, rows, rowBytes * rows);
    for (std::uint32_t row = rows; row-- > 0;) {
        for (const std::uint32_t pixel : pixels.subspan(std::size_t{row} * columns, columns)) {
            Add(bytes, pixel, BytesPerPixel); // blue, green, red
        }
        bytes.append(rowBytes - columns * BytesPerPixel, '\0');
    }
    return bytes;
}
