#include "StdoutCapture.h"

#include <cstdio>
#include <unistd.h>

StdoutCapture::StdoutCapture()
{
    if (!m_file.open())
        return;
    std::fflush(stdout);
    m_savedDescriptor = ::dup(STDOUT_FILENO);
    ::dup2(m_file.handle(), STDOUT_FILENO);
}

StdoutCapture::~StdoutCapture()
{
    finish();
}

QByteArray StdoutCapture::finish()
{
    if (m_savedDescriptor < 0)
        return m_captured;
    std::fflush(stdout);
    ::dup2(m_savedDescriptor, STDOUT_FILENO);
    ::close(m_savedDescriptor);
    m_savedDescriptor = -1;
    m_file.seek(0);
    m_captured = m_file.readAll();
    return m_captured;
}
