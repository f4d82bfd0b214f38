#include "model/SettingsFileHelper.h"

#include "model/AppSettings.h"
#include "model/SettingsFileDialogs.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

const QString kNameFilter = u"JSON (*.json)"_s;
const QString kButtonText = u"OK"_s;

// A dialog that returns an empty path has not chosen anything either.
bool isChosen(const std::optional<QString>& path)
{
    return path.has_value() && !path->isEmpty();
}

// The outcome of an export or import: the failure's reason follows its text.
void report(SettingsFileDialogs& dialogs, const std::optional<QString>& error,
            const QString& failure, const QString& failureText, const QString& success,
            const QString& successText)
{
    using Style = SettingsFileDialogs::MessageStyle;
    dialogs.showMessage(error ? SettingsFileDialogs::Message{Style::Critical, failure,
                                                             failureText + *error, kButtonText}
                              : SettingsFileDialogs::Message{Style::Informational, success,
                                                             successText, kButtonText});
}

} // namespace

void SettingsFileHelper::exportSettings(const AppSettings& settings, SettingsFileDialogs& dialogs)
{
    const std::optional<QString> path = dialogs.askSaveLocation({
        .title = u"Exporteer Instellingen"_s,
        .message = u"Kies een locatie om de instellingen op te slaan"_s,
        .proposedFileName = u"stampix-settings.json"_s,
        .nameFilter = kNameFilter,
    });
    if (!isChosen(path))
        return;

    report(dialogs, settings.exportSettings(*path), u"Export Mislukt"_s,
           u"Kon de instellingen niet exporteren: "_s, u"Instellingen Geëxporteerd"_s,
           u"De instellingen zijn opgeslagen naar:\n"_s + QDir::toNativeSeparators(*path));
}

void SettingsFileHelper::importSettings(AppSettings& settings, SettingsFileDialogs& dialogs)
{
    const std::optional<QString> path = dialogs.askOpenFile({
        .title = u"Importeer Instellingen"_s,
        .message = u"Selecteer een settings.json bestand om te importeren"_s,
        .proposedFileName = {},
        .nameFilter = kNameFilter,
    });
    if (!isChosen(path))
        return;

    report(dialogs, settings.importSettings(*path), u"Import Mislukt"_s,
           u"Kon de instellingen niet importeren: "_s, u"Instellingen Geïmporteerd"_s,
           u"De instellingen zijn succesvol geïmporteerd."_s);
}
