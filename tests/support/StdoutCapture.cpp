#include "StdoutCapture.h"

#include <cstdio>
#include <unistd.h>

StdoutCapture::StdoutCapture()
{
    if (!m_file.open())
        return;
    std::fflush(stdout);
    m_savedStdout = ::dup(STDOUT_FILENO);
    if (m_savedStdout >= 0)
        ::dup2(m_file.handle(), STDOUT_FILENO);
}

StdoutCapture::~StdoutCapture()
{
    if (m_savedStdout < 0)
        return;
    std::fflush(stdout);
    ::dup2(m_savedStdout, STDOUT_FILENO);
    ::close(m_savedStdout);
}

QString StdoutCapture::text()
{
    std::fflush(stdout);
    QFile reader(m_file.fileName());
    return reader.open(QIODevice::ReadOnly) ? QString::fromUtf8(reader.readAll()) : QString();
}
