// Pictures of the settings export and import file dialogs, as the File menu
// opens them, and of the window that shows an update check waiting.

#include "ScreenshotFolder.h"
#include "TestHome.h"
#include "app/MessageBoxUpdateDialogs.h"
#include "views/main/QtMessageFileDialogs.h"

#include <QApplication>
#include <QDialog>
#include <QProgressDialog>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

// Saves the modal dialog once it is on screen, then closes it.
void grabWhenShown(ScreenshotFolder& folder, const QString& name, int pollsLeft = 200)
{
    QTimer::singleShot(20, qApp, [&folder, name, pollsLeft] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog) {
            if (pollsLeft > 0)
                grabWhenShown(folder, name, pollsLeft - 1);
            return;
        }
        folder.save(dialog->grab(), name);
        dialog->reject();
    });
}

} // namespace

void renderFileDialogShots(ScreenshotFolder& folder)
{
    TestHome home;
    QtMessageFileDialogs dialogs;
    const QString filter = u"JSON (*.json)"_s;
    grabWhenShown(folder, u"export-dialog"_s);
    dialogs.askSaveLocation({u"Exporteer Instellingen"_s,
                             u"Kies een locatie om de instellingen op te slaan"_s,
                             u"stampix-settings.json"_s, filter});
    grabWhenShown(folder, u"import-dialog"_s);
    dialogs.askOpenFile({u"Importeer Instellingen"_s,
                         u"Selecteer een settings.json bestand om te importeren"_s,
                         {},
                         filter});
}

void renderUpdateCheckShot(ScreenshotFolder& folder)
{
    MessageBoxUpdateDialogs dialogs;
    dialogs.showChecking([] {});
    QWidget* window = nullptr;
    for (QWidget* top : QApplication::topLevelWidgets())
        window = qobject_cast<QProgressDialog*>(top) ? top : window;
    if (window && QTest::qWaitForWindowExposed(window))
        folder.save(window->grab(), u"update-checking"_s);
    dialogs.closeChecking();
}
