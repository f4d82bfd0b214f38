#include "app/StampixApp.h"
#include "views/common/AppInfo.h"
#include "views/common/SymbolIcons.h"
#include "views/common/Theme.h"

#include <QApplication>

using namespace Qt::StringLiterals;

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Stampix"_s);
    QApplication::setApplicationVersion(AppInfo::version());
    QApplication::setWindowIcon(SymbolIcons::appIcon());
    Theme theme(application);

    StampixApp stampix;
    stampix.openMainWindow();
    return QApplication::exec();
}
