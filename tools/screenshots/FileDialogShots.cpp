// Pictures of the settings export and import file dialogs, as the File menu
// opens them, and of the window that shows an update check waiting.

#include "TestHome.h"
#include "app/MessageBoxUpdateDialogs.h"
#include "views/main/QtMessageFileDialogs.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QProgressDialog>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

// Saves the modal dialog once it is on screen, then closes it.
void grabWhenShown(const QString& path, int pollsLeft = 200)
{
    QTimer::singleShot(20, qApp, [path, pollsLeft] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog) {
            if (pollsLeft > 0)
                grabWhenShown(path, pollsLeft - 1);
            return;
        }
        dialog->grab().save(path);
        dialog->reject();
    });
}

} // namespace

void renderFileDialogShots(const QString& outDir)
{
    TestHome home;
    QtMessageFileDialogs dialogs;
    const QString filter = u"JSON (*.json)"_s;
    grabWhenShown(QDir(outDir).filePath(u"export-dialog.png"_s));
    dialogs.askSaveLocation({u"Exporteer Instellingen"_s,
                             u"Kies een locatie om de instellingen op te slaan"_s,
                             u"stampix-settings.json"_s, filter});
    grabWhenShown(QDir(outDir).filePath(u"import-dialog.png"_s));
    dialogs.askOpenFile({u"Importeer Instellingen"_s,
                         u"Selecteer een settings.json bestand om te importeren"_s,
                         {},
                         filter});
}

void renderUpdateCheckShot(const QString& outDir)
{
    MessageBoxUpdateDialogs dialogs;
    dialogs.showChecking([] {});
    QProgressDialog* window = nullptr;
    for (QWidget* top : QApplication::topLevelWidgets())
        window = window ? window : qobject_cast<QProgressDialog*>(top);
    if (!window || !QTest::qWaitForWindowExposed(window))
        return;
    window->grab().save(QDir(outDir).filePath(u"update-checking.png"_s));
    dialogs.closeChecking();
}
