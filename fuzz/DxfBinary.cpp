// Binary drawings: any bytes behind the head that makes them binary.
#include "DxfChecks.h"

#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string bytes("Foreign Binary DXF\r\n\x1a\0", 22);
    bytes.append(reinterpret_cast<const char*>(data), size);
    ReadFuzzed(bytes);
    return 0;
}
