#include "SaveLoopContent.h"

#include <QCoreApplication>
#include <cstdio>

// Test helper for crash safety: in the home directory it is given, it keeps
// changing the settings and saving them until it is killed. After each save
// it prints the sequence number just written. With "--init" it writes
// sequence 0 once and exits.
int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    AppSettings settings;
    if (app.arguments().contains(QStringLiteral("--init"))) {
        saveloop::apply(settings, 0);
        settings.savePendingChanges();
        return 0;
    }
    // Go on from what the previous, killed run left behind.
    settings.savePendingChanges();
    qint64 sequence = settings.bookyear().toLongLong();
    for (;;) {
        ++sequence;
        saveloop::apply(settings, sequence);
        settings.savePendingChanges();
        std::printf("%lld\n", static_cast<long long>(sequence));
        std::fflush(stdout);
    }
}
