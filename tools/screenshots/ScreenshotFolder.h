#pragma once

#include <QPalette>
#include <QString>
#include <functional>

class AppSettings;
class QPixmap;
class QWidget;

// The folder the pictures go to. Names each saved picture on standard output
// and counts the states that could not be reached or saved.
class ScreenshotFolder
{
public:
    explicit ScreenshotFolder(QString path) : m_path(std::move(path)) {}

    int failures() const { return m_failures; }

    // Pending layout passes and repaints, as the event loop would run them before a frame.
    static void settle(int ms = 150);
    bool waitFor(const char* what, const std::function<bool()>& condition, int timeoutMs = 5000);
    void fail(const QString& what);
    // Settles first.
    void save(QWidget* widget, const QString& name);
    void save(const QPixmap& picture, const QString& name);

    // The dark desktop palette the pictures use.
    static QPalette darkPalette();
    // With `blocked`, a directory stands where the settings file goes, so the
    // store's next save fails; without it, the store saves again. Saves once.
    static void blockSettingsFile(AppSettings& settings, bool blocked);

private:
    QString m_path;
    int m_failures = 0;
};
