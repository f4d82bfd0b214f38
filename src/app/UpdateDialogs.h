#pragma once

#include "app/AppcastItem.h"

#include <QString>
#include <functional>

// The outcomes of a user-initiated update check as the user sees them. The
// application shows message boxes; tests record the calls instead.
class UpdateDialogs
{
public:
    UpdateDialogs() = default;
    UpdateDialogs(const UpdateDialogs&) = delete;
    UpdateDialogs& operator=(const UpdateDialogs&) = delete;
    virtual ~UpdateDialogs() = default;

    virtual void showUpToDate(const QString& currentVersion) = 0;
    // Offers to open the item's download in the browser.
    virtual void showUpdateAvailable(const AppcastItem& item, const QString& currentVersion) = 0;
    virtual void showFailure(const QString& description) = 0;
    // The build carries no feed address.
    virtual void showNotConfigured() = 0;
    // While the user waits for the feed: one window, brought forward when it
    // is open already. `cancel` runs when the user gives up waiting.
    virtual void showChecking(std::function<void()> cancel) = 0;
    virtual void closeChecking() = 0;
};
