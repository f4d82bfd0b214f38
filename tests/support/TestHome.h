#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

// A temporary directory that is $HOME while this object lives; the previous
// value is restored afterwards. A settings store created meanwhile keeps its
// settings in settingsDirectory().
class TestHome
{
public:
    TestHome();
    ~TestHome();
    TestHome(const TestHome&) = delete;
    TestHome& operator=(const TestHome&) = delete;

    bool isValid() const { return m_dir.isValid(); }
    QString path() const { return m_dir.path(); }
    QString settingsDirectory() const;
    QString settingsFilePath() const;

    // Writes the settings file as a previous run would have left it.
    bool writeSettingsFile(const QByteArray& bytes) const;
    // The settings file's bytes; empty when it cannot be read.
    QByteArray readSettingsFile() const;

private:
    QTemporaryDir m_dir;
    QByteArray m_previousHome;
    bool m_hadHome = false;
};
