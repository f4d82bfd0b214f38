#include "FuzzEntries.h"

int stampixfuzz::appcast(const std::uint8_t*, std::size_t)
{
    return 0;
}
