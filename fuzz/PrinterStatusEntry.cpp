#include "FuzzEntries.h"

int stampixfuzz::printerStatus(const std::uint8_t*, std::size_t)
{
    return 0;
}
