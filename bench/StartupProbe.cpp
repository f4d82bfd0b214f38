// The app's own start-up (the same steps as its main()), with the product
// service given on the command line and a report once the product table has
// painted its rows. Started by stampix_startup_bench, not by hand.

#include "FirstPaintReporter.h"
#include "app/StampixApp.h"
#include "views/common/AppInfo.h"
#include "views/common/SymbolIcons.h"

#include <QAbstractItemView>
#include <QApplication>
#include <cstdio>

using namespace Qt::StringLiterals;

int main(int argc, char* argv[])
{
    if (argc != 3) {
        std::fputs("usage: stampix_startup_probe <product service URL> <product count>\n", stderr);
        return 2;
    }
    const QString serviceURL = QString::fromLocal8Bit(argv[1]);
    const int productCount = QByteArray(argv[2]).toInt();

    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Stampix"_s);
    QApplication::setApplicationVersion(AppInfo::version());
    QApplication::setWindowIcon(SymbolIcons::appIcon());

    // The product table's viewport painting with every product in it.
    FirstPaintReporter reporter([productCount](QWidget* widget) {
        const auto* view = qobject_cast<QAbstractItemView*>(widget->parentWidget());
        return view && view->viewport() == widget && view->model() &&
               view->model()->rowCount() >= productCount;
    });

    StampixApp stampix(serviceURL);
    stampix.openMainWindow();
    return QApplication::exec();
}
