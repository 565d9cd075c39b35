// DrawingRecord.h -- one record of a .drw file: 198 bytes, the members in their order with nothing between them, numbers
// little-endian on every machine, doubles as 64-bit IEEE.
#pragma once

#include "state/ProfileElement.h"
#include "state/ProfileRecord.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

inline constexpr std::size_t DrawingRecordSize = 198;

/// Offsets in a record.
inline constexpr std::size_t ProfileCountAt = 0; ///< 32-bit
inline constexpr std::size_t ProfileAt = 4;
inline constexpr std::size_t ElementCountAt = 124; ///< 32-bit
inline constexpr std::size_t ElementAt = 128;

/// Writes members into the record that begins at `record`; the rest of it stays.
void PackCount(char* record, std::size_t offset, std::int32_t count);
void PackProfile(char* record, const ProfileRecord& profile);
void PackElement(char* record, const ProfileElement& element);

/// Reads members of `record`, which holds at least DrawingRecordSize bytes.
std::int32_t UnpackCount(std::string_view record, std::size_t offset);
ProfileRecord UnpackProfile(std::string_view record);
ProfileElement UnpackElement(std::string_view record);
