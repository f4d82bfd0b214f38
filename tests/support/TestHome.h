#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

// A temporary directory that is $HOME while this object lives, so a settings
// store keeps its settings in settingsDirectory().
class TestHome
{
public:
    TestHome() : m_previousHome(qgetenv("HOME")), m_hadHome(qEnvironmentVariableIsSet("HOME"))
    {
        if (m_dir.isValid())
            qputenv("HOME", QFile::encodeName(m_dir.path()));
    }
    ~TestHome() { m_hadHome ? qputenv("HOME", m_previousHome) : qunsetenv("HOME"); }
    TestHome(const TestHome&) = delete;
    TestHome& operator=(const TestHome&) = delete;

    bool isValid() const { return m_dir.isValid(); }
    QString path() const { return m_dir.path(); }
    QString settingsDirectory() const { return m_dir.filePath(QStringLiteral(".stampix")); }
    QString settingsFilePath() const
    {
        return settingsDirectory() + QStringLiteral("/settings.json");
    }

    // A file's bytes; empty when it cannot be read.
    static QByteArray readFile(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static bool writeFile(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    }
    bool writeSettingsFile(const QByteArray& bytes) const
    {
        return QDir().mkpath(settingsDirectory()) && writeFile(settingsFilePath(), bytes);
    }
    QByteArray readSettingsFile() const { return readFile(settingsFilePath()); }

    // A directory in a file's place makes every save there fail, also for the
    // superuser, whom permissions do not stop.
    static bool blockFile(const QString& path)
    {
        QFile::remove(path);
        return QDir().mkdir(path);
    }
    static bool unblockFile(const QString& path) { return QDir().rmdir(path); }

private:
    QTemporaryDir m_dir;
    QByteArray m_previousHome;
    bool m_hadHome = false;
};
