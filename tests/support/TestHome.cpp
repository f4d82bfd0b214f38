#include "TestHome.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

// Tests take permissions away to provoke failures; give them back so the
// temporary directory can be removed.
void restoreOwnerAccess(const QString& path)
{
    constexpr QFileDevice::Permissions kOwnerAll =
        QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
    QFile::setPermissions(path, QFile::permissions(path) | kOwnerAll);
    QDirIterator it(path, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString entry = it.next();
        if (!it.fileInfo().isSymLink())
            QFile::setPermissions(entry, QFile::permissions(entry) | kOwnerAll);
    }
}

} // namespace

TestHome::TestHome() : m_previousHome(qgetenv("HOME")), m_hadHome(qEnvironmentVariableIsSet("HOME"))
{
    if (m_dir.isValid())
        qputenv("HOME", QFile::encodeName(m_dir.path()));
}

TestHome::~TestHome()
{
    if (m_hadHome)
        qputenv("HOME", m_previousHome);
    else
        qunsetenv("HOME");
    if (m_dir.isValid())
        restoreOwnerAccess(m_dir.path());
}

QString TestHome::settingsDirectory() const
{
    return m_dir.path() + u"/.stampix"_s;
}

QString TestHome::settingsFilePath() const
{
    return settingsDirectory() + u"/settings.json"_s;
}

bool TestHome::writeSettingsFile(const QByteArray& bytes) const
{
    if (!QDir().mkpath(settingsDirectory()))
        return false;
    QFile file(settingsFilePath());
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
           file.write(bytes) == bytes.size();
}

QByteArray TestHome::readSettingsFile() const
{
    QFile file(settingsFilePath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
