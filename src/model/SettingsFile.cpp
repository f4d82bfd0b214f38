#include "SettingsFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;

namespace {

constexpr QFileDevice::Permissions kOwnerReadWrite =
    QFileDevice::ReadOwner | QFileDevice::WriteOwner;

// The temporary file of a save is created under a restrictive umask, so it is
// owner-only from its first moment; the umask is process-wide, hence restored
// at once.
bool openOwnerOnly(QSaveFile& file)
{
#ifdef Q_OS_UNIX
    const mode_t previous = ::umask(S_IRWXG | S_IRWXO);
    const bool opened = file.open(QIODevice::WriteOnly);
    ::umask(previous);
#else
    const bool opened = file.open(QIODevice::WriteOnly);
#endif
    // QSaveFile gives the temporary file the permissions of the file it
    // replaces, which may be wider; narrow them before any byte is written.
    return opened && file.setPermissions(kOwnerReadWrite);
}

} // namespace

std::optional<QByteArray> SettingsFile::readAll(const QString& path, QString* error)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly)) {
        QByteArray bytes = file.readAll();
        if (file.error() == QFileDevice::NoError)
            return bytes;
    }
    if (error)
        *error = file.errorString();
    return std::nullopt;
}

std::optional<QString> SettingsFile::writeAtomically(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    if (!openOwnerOnly(file)) {
        QString error = file.errorString();
        file.cancelWriting();
        return error;
    }
    file.write(bytes);
    // A failed write is remembered by QSaveFile and makes commit() fail.
    if (!file.commit())
        return file.errorString();
    return std::nullopt;
}

void SettingsFile::createPrivateDirectory(const QString& path)
{
    const QFileInfo info(path);
    QDir parent = info.absoluteDir();
    if (!parent.exists())
        parent.mkpath(u"."_s);
    parent.mkdir(info.fileName(),
                 QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

std::optional<QString> SettingsFile::moveAside(const QString& path, QString* error)
{
    constexpr int kMaxAttempts = 100;
    const QString base =
        path + u".unreadable-"_s + QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"_s);
    QFile file(path);
    for (int attempt = 1; attempt <= kMaxAttempts; ++attempt) {
        const QString target = attempt == 1 ? base : base + u'-' + QString::number(attempt);
        // Another unreadable file kept within the same second: take the next name.
        if (QFileInfo::exists(target) || QFileInfo(target).isSymLink())
            continue;
        if (file.rename(target))
            return target;
        break;
    }
    if (error)
        *error = file.error() == QFileDevice::NoError ? u"no free name to move it to"_s
                                                      : file.errorString();
    return std::nullopt;
}
