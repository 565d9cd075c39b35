// ASCII drawings from any bytes.
#include "DxfChecks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ReadFuzzed({reinterpret_cast<const char*>(data), size});
    return 0;
}
