#pragma once

#include <QString>
#include <QTemporaryFile>
#include <cstdio>
#include <unistd.h>

// Sends standard output to a temporary file while this object lives, so a test
// can check the program's log lines. QtTest's own messages are captured too.
class StdoutCapture
{
public:
    StdoutCapture()
    {
        std::fflush(stdout);
        m_savedStdout = m_file.open() ? ::dup(STDOUT_FILENO) : -1;
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
