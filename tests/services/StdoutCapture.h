#pragma once

#include <QByteArray>
#include <QTemporaryFile>

// Sends the process's standard output to a temporary file while it lives, so
// a test can read what the code under test printed.
class StdoutCapture
{
public:
    StdoutCapture();
    ~StdoutCapture();
    StdoutCapture(const StdoutCapture&) = delete;
    StdoutCapture& operator=(const StdoutCapture&) = delete;

    // Stops capturing (once) and returns everything written meanwhile.
    QByteArray finish();

private:
    QTemporaryFile m_file;
    int m_savedDescriptor = -1;
    QByteArray m_captured;
};
