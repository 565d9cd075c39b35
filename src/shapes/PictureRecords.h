// PictureRecords.h -- the drawings of the shapes: their records of 76 bytes in the file beside the program, and the ones
// that the program makes itself.
#pragma once

#include "state/PictureItem.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

inline constexpr std::size_t PictureRecordLength = 76;
inline constexpr std::size_t PictureLabelLength = 10;

/// The item of one record, packed and little-endian. False when it has another length, or numbers that no drawing has.
bool DecodePictureItem(std::string_view record, PictureItem& item);

/// Adds the record of an item. Its label is cut or padded to 10 characters.
void AppendPictureRecord(std::string& bytes, const PictureItem& item);

/// Puts the items of a shape into AppState.PictureItems: those that code makes, or those of the file, all in light blue.
/// An unknown shape, and a missing or broken file, have none.
void LoadPictureItems(std::int16_t shapeId);

/// Adds the items of, C-25 and C-26, captions in the current language. False for other shapes, which have
/// theirs in the file.
bool MakePictureItems(std::int16_t shapeId, std::vector<PictureItem>& items);
