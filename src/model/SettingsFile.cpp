#include "model/SettingsFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

constexpr QFileDevice::Permissions kOwnerReadWrite =
    QFileDevice::ReadOwner | QFileDevice::WriteOwner;
constexpr QFileDevice::Permissions kOwnerOnly = kOwnerReadWrite | QFileDevice::ExeOwner;
constexpr QFileDevice::Permissions kGroupAndOthers =
    QFileDevice::ReadGroup | QFileDevice::WriteGroup | QFileDevice::ExeGroup |
    QFileDevice::ReadOther | QFileDevice::WriteOther | QFileDevice::ExeOther;

// QSaveFile gives the temporary file the permissions of the file it replaces,
// or the default ones; narrow them before any byte is written. The settings
// directory is owner-only, so nobody else can reach the file meanwhile. (Not
// through the umask: it is process-wide, and other threads create files too.)
bool openOwnerOnly(QSaveFile& file)
{
    return file.open(QIODevice::WriteOnly) && file.setPermissions(kOwnerReadWrite);
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
    if (info.isDir()) {
        // Left open to others by an earlier version or by hand: the file in it
        // holds every API key. The owner's own bits stay as they are.
        const QFileDevice::Permissions permissions = info.permissions();
        if (permissions & kGroupAndOthers)
            QFile::setPermissions(path, permissions & kOwnerOnly);
        return;
    }
    QDir parent = info.absoluteDir();
    if (!parent.exists())
        parent.mkpath(u"."_s);
    parent.mkdir(info.fileName(), kOwnerOnly);
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
