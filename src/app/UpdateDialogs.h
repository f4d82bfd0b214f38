#pragma once

#include "app/AppcastItem.h"

#include <QString>

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
};
