#pragma once

#include <QString>
#include <QTemporaryFile>
#include <cstdio>
#include <unistd.h>

// Sends the process's standard output to a temporary file while this object
// lives, so a test can check the log lines the program prints. Keep the scope
// short: QtTest's own messages are captured as well.
class StdoutCapture
{
public:
    StdoutCapture()
    {
        if (!m_file.open())
            return;
        std::fflush(stdout);
        m_savedStdout = ::dup(STDOUT_FILENO);
        if (m_savedStdout >= 0)
            ::dup2(m_file.handle(), STDOUT_FILENO);
    }
    ~StdoutCapture()
    {
        std::fflush(stdout);
        if (m_savedStdout >= 0 && ::dup2(m_savedStdout, STDOUT_FILENO) >= 0)
            ::close(m_savedStdout);
    }
    StdoutCapture(const StdoutCapture&) = delete;
    StdoutCapture& operator=(const StdoutCapture&) = delete;

    // Everything written to standard output so far, as UTF-8 text.
    QString text()
    {
        std::fflush(stdout);
        QFile reader(m_file.fileName());
        return reader.open(QIODevice::ReadOnly) ? QString::fromUtf8(reader.readAll()) : QString();
    }

private:
    QTemporaryFile m_file;
    int m_savedStdout = -1;
};
