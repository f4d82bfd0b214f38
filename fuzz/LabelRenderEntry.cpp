#include "FuzzEntries.h"

int stampixfuzz::labelRender(const std::uint8_t*, std::size_t)
{
    return 0;
}
