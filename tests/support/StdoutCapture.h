#pragma once

#include <QString>
#include <QTemporaryFile>

// Sends the process's standard output to a temporary file while this object
// lives, so a test can check the log lines the program prints. Keep the scope
// short: QtTest's own messages are captured as well.
class StdoutCapture
{
public:
    StdoutCapture();
    ~StdoutCapture();
    StdoutCapture(const StdoutCapture&) = delete;
    StdoutCapture& operator=(const StdoutCapture&) = delete;

    // Everything written to standard output so far, as UTF-8 text.
    QString text();

private:
    QTemporaryFile m_file;
    int m_savedStdout = -1;
};
