#pragma once

#include "app/AppcastItem.h"

#include <QPointer>
#include <QProgressDialog>
#include <functional>

// The outcomes of a user-initiated update check as application-modal message
// boxes; the wait for the feed as a small window the user can go on working beside.
class MessageBoxUpdateDialogs
{
public:
    explicit MessageBoxUpdateDialogs(QWidget* parent = nullptr);
    MessageBoxUpdateDialogs(const MessageBoxUpdateDialogs&) = delete;
    MessageBoxUpdateDialogs& operator=(const MessageBoxUpdateDialogs&) = delete;
    ~MessageBoxUpdateDialogs();

    void showUpToDate(const QString& currentVersion);
    // Offers to open the item's download in the browser.
    void showUpdateAvailable(const AppcastItem& item, const QString& currentVersion);
    void showFailure(const QString& description);
    // The build carries no feed address.
    void showNotConfigured();
    // One window, brought forward when it is open already. `cancel` runs when
    // the user gives up waiting.
    void showChecking(std::function<void()> cancel);
    void closeChecking();

private:
    QPointer<QWidget> m_parent;
    QPointer<QProgressDialog> m_checking;
};
