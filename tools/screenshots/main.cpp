#include "MainWindowShots.h"
#include "views/common/AppInfo.h"
#include "views/common/SymbolIcons.h"
#include "views/common/Theme.h"

#include <QApplication>

using namespace Qt::StringLiterals;

void renderSettingsShots(const QString& outDir);
void renderFileDialogShots(const QString& outDir);
void renderUpdateCheckShot(const QString& outDir);

// Renders every state of the product window, the settings window and the
// About window and the settings file dialogs to PNG files, without a desktop:
//   stampix_screenshots [output directory]
int main(int argc, char* argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Stampix"_s);
    QApplication::setApplicationVersion(AppInfo::version());
    QApplication::setWindowIcon(SymbolIcons::appIcon());
    Theme theme(application);

    const QStringList arguments = QApplication::arguments();
    const QString output =
        arguments.size() > 1 ? arguments.at(1) : QString::fromUtf8(STAMPIX_SCREENSHOT_DIR);
    MainWindowShots shots(output);
    const int failures = shots.run();
    renderSettingsShots(output);
    renderFileDialogShots(output);
    renderUpdateCheckShot(output);
    return failures == 0 ? 0 : 1;
}
