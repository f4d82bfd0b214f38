#pragma once

#include "app/UpdateDialogs.h"

#include <QMessageBox>
#include <QPointer>
#include <QProgressDialog>
#include <QWidget>

// Update check results as application-modal message boxes; the wait for the
// feed as a small window the user can go on working beside.
class MessageBoxUpdateDialogs : public UpdateDialogs
{
public:
    explicit MessageBoxUpdateDialogs(QWidget* parent = nullptr);
    ~MessageBoxUpdateDialogs() override;

    void showUpToDate(const QString& currentVersion) override;
    void showUpdateAvailable(const AppcastItem& item, const QString& currentVersion) override;
    void showFailure(const QString& description) override;
    void showNotConfigured() override;
    void showChecking(std::function<void()> cancel) override;
    void closeChecking() override;

private:
    void showPlain(QMessageBox::Icon icon, const QString& text, const QString& informativeText);

    QPointer<QWidget> m_parent;
    QPointer<QProgressDialog> m_checking;
};
