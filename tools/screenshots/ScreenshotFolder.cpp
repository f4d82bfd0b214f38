#include "ScreenshotFolder.h"

#include "model/AppSettings.h"

#include <QDir>
#include <QFile>
#include <QPixmap>
#include <QTest>
#include <QWidget>
#include <cstdio>

using namespace Qt::StringLiterals;

void ScreenshotFolder::settle(int ms)
{
    QTest::qWait(ms);
}

bool ScreenshotFolder::waitFor(const char* what, const std::function<bool()>& condition,
                               int timeoutMs)
{
    if (QTest::qWaitFor(condition, timeoutMs))
        return true;
    fail(u"state not reached: "_s + QString::fromUtf8(what));
    return false;
}

void ScreenshotFolder::fail(const QString& what)
{
    std::fprintf(stderr, "%s\n", qPrintable(what));
    ++m_failures;
}

void ScreenshotFolder::save(QWidget* widget, const QString& name)
{
    settle();
    save(widget ? widget->grab() : QPixmap(), name);
}

void ScreenshotFolder::save(const QPixmap& picture, const QString& name)
{
    const QString path = QDir(m_path).filePath(name + u".png"_s);
    if (picture.isNull() || !picture.save(path))
        fail(u"cannot save "_s + path);
    else
        std::printf("%s\n", qPrintable(path));
}

QPalette ScreenshotFolder::darkPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(40, 40, 42));
    palette.setColor(QPalette::WindowText, QColor(236, 236, 236));
    palette.setColor(QPalette::Base, QColor(30, 30, 32));
    palette.setColor(QPalette::AlternateBase, QColor(44, 44, 47));
    palette.setColor(QPalette::Text, QColor(236, 236, 236));
    palette.setColor(QPalette::Button, QColor(58, 58, 60));
    palette.setColor(QPalette::ButtonText, QColor(236, 236, 236));
    palette.setColor(QPalette::Highlight, QColor(10, 132, 255));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, QColor(140, 140, 140));
    return palette;
}

void ScreenshotFolder::blockSettingsFile(AppSettings& settings, bool blocked)
{
    const QString file = settings.settingsFilePath();
    if (blocked) {
        QFile::remove(file);
        QDir().mkdir(file);
    } else {
        QDir().rmdir(file);
    }
    settings.setBookyear(settings.bookyear());
    settings.savePendingChanges();
}
