#pragma once

#include <QList>
#include <QObject>
#include <QUrl>

// Stands in for the browser as a QDesktopServices URL handler, so that no test
// opens one; records what the program asked to open.
class UrlRecorder : public QObject
{
    Q_OBJECT

public:
    QList<QUrl> opened;

public slots:
    void open(const QUrl& url) { opened.append(url); }
};
