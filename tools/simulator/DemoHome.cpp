#include "DemoHome.h"

#include "model/SettingsData.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#ifdef Q_OS_UNIX
#include <pwd.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

QByteArray DemoHome::settingsDocument(const QString& apiKey, quint16 printerPort)
{
    Dossier dossier;
    dossier.name = kDossierName.toString();
    dossier.apiKey = apiKey;

    Printer printer;
    printer.name = kPrinterName.toString();
    printer.ipAddress = kPrinterAddress.toString();
    printer.port = printerPort;

    LabelTemplate label = LabelTemplate::defaultTemplate();
    label.printerID = printer.id;

    SettingsData data;
    data.bookyear = SettingsData::currentYear();
    data.dossiers = {dossier};
    data.selectedDossierID = dossier.id;
    data.printers = {printer};
    data.templates = {label};
    data.selectedTemplateID = label.id;
    return data.write();
}

QString DemoHome::settingsFilePath(const QString& home)
{
    return QDir(home).filePath(u".stampix/settings.json"_s);
}

std::optional<QString> DemoHome::write(const QString& home, const QString& apiKey,
                                       quint16 printerPort)
{
    if (home.isEmpty() || isUsersOwnHome(home))
        return u"the demo needs a home directory of its own, not %1"_s.arg(home);
    const QString directory = QDir(home).filePath(u".stampix"_s);
    if (!QDir().mkpath(directory))
        return u"cannot create %1"_s.arg(directory);
    QFile::setPermissions(directory,
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);

    QSaveFile file(settingsFilePath(home));
    if (!file.open(QIODevice::WriteOnly))
        return u"%1: %2"_s.arg(file.fileName(), file.errorString());
    file.write(settingsDocument(apiKey, printerPort));
    if (!file.commit())
        return u"%1: %2"_s.arg(file.fileName(), file.errorString());
    return std::nullopt;
}

// Both the home the environment names and the one the account has, so that a
// changed HOME cannot lead the demo into the real settings.
bool DemoHome::isUsersOwnHome(const QString& home)
{
    const QString target = QFileInfo(home).absoluteFilePath();
    QStringList ownHomes{QDir::homePath()};
#ifdef Q_OS_UNIX
    if (const passwd* account = ::getpwuid(::getuid()); account && account->pw_dir)
        ownHomes.append(QString::fromLocal8Bit(account->pw_dir));
#endif
    for (const QString& own : std::as_const(ownHomes)) {
        const QFileInfo ownInfo(own);
        if (QDir::cleanPath(ownInfo.absoluteFilePath()) == QDir::cleanPath(target))
            return true;
        if (ownInfo.exists() && QFileInfo(target).exists() &&
            ownInfo.canonicalFilePath() == QFileInfo(target).canonicalFilePath())
            return true;
    }
    return false;
}
