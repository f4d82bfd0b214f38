#include "ScreenshotFolder.h"
#include "views/common/AppInfo.h"
#include "views/common/SymbolIcons.h"
#include "views/common/Theme.h"

#include <QApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QStyleFactory>
#include <QTranslator>
#include <cstdio>

using namespace Qt::StringLiterals;

void renderMainWindowShots(ScreenshotFolder& folder);
void renderSettingsShots(ScreenshotFolder& folder);
void renderFileDialogShots(ScreenshotFolder& folder);
void renderUpdateCheckShot(ScreenshotFolder& folder);

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
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    Theme theme(application);
    // Every picture in the dark palette too, to compare both looks.
    if (qEnvironmentVariableIsSet("STAMPIX_SCREENSHOTS_DARK"))
        QApplication::setPalette(ScreenshotFolder::darkPalette());
    // Qt's own texts in Dutch for all pictures, as the program shows them.
    QTranslator qtTexts;
    if (qtTexts.load(u"qtbase_nl"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&qtTexts);

    const QStringList arguments = QApplication::arguments();
    const QString output =
        arguments.size() > 1 ? arguments.at(1) : QString::fromUtf8(STAMPIX_SCREENSHOT_DIR);
    if (!QDir().mkpath(output)) {
        std::fprintf(stderr, "cannot create %s\n", qPrintable(output));
        return 1;
    }
    ScreenshotFolder folder(output);
    renderMainWindowShots(folder);
    renderSettingsShots(folder);
    renderFileDialogShots(folder);
    renderUpdateCheckShot(folder);
    return folder.failures() == 0 ? 0 : 1;
}
