// Renders the application's SVG icon to one PNG size at build time, so the
// installed icon theme has the sizes desktops look for first.
#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    QTextStream err(stderr);
    bool sizeOk = false;
    const int size = arguments.size() == 4 ? arguments[2].toInt(&sizeOk) : 0;
    if (!sizeOk || size <= 0) {
        err << "usage: stampix-render-icon <icon.svg> <size> <out.png>\n";
        return 2;
    }

    QSvgRenderer renderer(arguments[1]);
    if (!renderer.isValid()) {
        err << "cannot read " << arguments[1] << "\n";
        return 1;
    }
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    painter.end();
    if (!image.save(arguments[3], "PNG")) {
        err << "cannot write " << arguments[3] << "\n";
        return 1;
    }
    return 0;
}
