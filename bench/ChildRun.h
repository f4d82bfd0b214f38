#pragma once

#include <QString>
#include <QStringList>
#include <chrono>

// Starts a program, waits for it to report "shown" on its standard output and
// for it to end. Times the start to the report; the peak memory is the
// child's own, from the kernel's accounting when it is reaped.
class ChildRun
{
public:
    struct Result
    {
        std::chrono::duration<double> untilShown{};
        long peakResidentKiB = 0;
    };

    // Throws when the program cannot start, does not report within `limit`
    // or ends unsuccessfully.
    static Result run(const QString& program, const QStringList& arguments, const QString& home,
                      std::chrono::milliseconds limit);
};
