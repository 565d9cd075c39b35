// RecordFile.h -- files of records of one length, read one behind the other.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

/// Hands each whole record of a plain file to `visit`, until that returns false; a torn last one is dropped. A file that
/// is missing or can't be read has no records. Holds a few records in memory, however long the file.
void ReadRecords(const std::string& path, std::size_t recordLength,
                 const std::function<bool(std::string_view record)>& visit);
