#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>
#include <optional>

// The settings of a demo run, in a home directory of its own: one dossier
// opened by the simulator's key, one printer at the simulator's printer port,
// and the default label template bound to that printer and selected.
class DemoHome
{
public:
    static constexpr QStringView kDossierName = u"Demo Winkel";
    static constexpr QStringView kPrinterName = u"Virtuele printer";
    static constexpr QStringView kPrinterAddress = u"127.0.0.1";

    // The settings document, as the program itself writes it.
    static QByteArray settingsDocument(const QString& apiKey, quint16 printerPort);

    // Writes <home>/.stampix/settings.json, replacing an earlier demo's. Refuses
    // the user's own home directory. Returns the error, if any.
    static std::optional<QString> write(const QString& home, const QString& apiKey,
                                        quint16 printerPort);

    static QString settingsFilePath(const QString& home);

private:
    static bool isUsersOwnHome(const QString& home);
};
