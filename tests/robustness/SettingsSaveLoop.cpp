#include "SaveLoopContent.h"

#include <QCoreApplication>
#include <cstdio>

// Test helper for crash safety: in the home directory it is given, it keeps
// changing the settings and saving them until it is killed, printing each
// sequence number once it is saved. It goes on from the number on disk.
int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    AppSettings settings;
    settings.savePendingChanges();
    for (qint64 sequence = settings.bookyear().toLongLong() + 1;; ++sequence) {
        saveloop::apply(settings, sequence);
        settings.savePendingChanges();
        std::printf("%lld\n", static_cast<long long>(sequence));
        std::fflush(stdout);
    }
}
