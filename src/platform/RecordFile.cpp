#include "platform/RecordFile.h"

#include "platform/Paths.h"

#include <cstdio>
#include <memory>

namespace
{
constexpr std::size_t RecordsAtOnce = 1024;
}

void ReadRecords(const std::string& path, std::size_t recordLength,
                 const std::function<bool(std::string_view record)>& visit)
{
    if (recordLength == 0 || !FileExists(path)) {
        return;
    }
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(NativePath(path).c_str(), "rb"),
                                                               std::fclose);
    if (file == nullptr) {
        return;
    }
    std::string block(recordLength * RecordsAtOnce, '\0');
    std::size_t records = 0;
    do {
        records = std::fread(block.data(), recordLength, RecordsAtOnce, file.get());
        for (std::size_t i = 0; i < records; ++i) {
            if (!visit(std::string_view(block).substr(i * recordLength, recordLength))) {
                return;
            }
        }
    } while (records == RecordsAtOnce);
}
