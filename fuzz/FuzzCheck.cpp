#include "FuzzCheck.h"

#include <cstdio>
#include <cstdlib>

namespace stampixfuzz {

void fail(const char* property, const QString& detail)
{
    std::fprintf(stderr, "Property broken: %s\n", property);
    if (!detail.isEmpty())
        std::fprintf(stderr, "  %s\n", detail.toUtf8().constData());
    std::fflush(stderr);
    std::abort();
}

} // namespace stampixfuzz
