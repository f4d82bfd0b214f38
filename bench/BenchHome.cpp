#include "BenchHome.h"

#include <stdexcept>

BenchHome::BenchHome() : m_previousHome(qgetenv("HOME"))
{
    if (!m_dir.isValid())
        throw std::runtime_error("no temporary directory for the benchmark's home");
    qputenv("HOME", m_dir.path().toUtf8());
}

BenchHome::~BenchHome()
{
    qputenv("HOME", m_previousHome);
}
