#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

// A temporary directory that is $HOME while this object lives, so a settings
// store created meanwhile never touches the user's own settings.
class BenchHome
{
public:
    BenchHome();
    ~BenchHome();
    BenchHome(const BenchHome&) = delete;
    BenchHome& operator=(const BenchHome&) = delete;

    QString path() const { return m_dir.path(); }

private:
    QTemporaryDir m_dir;
    QByteArray m_previousHome;
};
