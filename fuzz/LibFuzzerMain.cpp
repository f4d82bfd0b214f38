#include "FuzzEntries.h"

// STAMPIX_FUZZ_ENTRY names the entry this target drives (set by CMake).
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return STAMPIX_FUZZ_ENTRY(data, size);
}
