#pragma once

#include "app/UpdateDialogs.h"

#include <QMessageBox>
#include <QPointer>
#include <QWidget>

// Update check results as application-modal message boxes.
class MessageBoxUpdateDialogs : public UpdateDialogs
{
public:
    explicit MessageBoxUpdateDialogs(QWidget* parent = nullptr);

    void showUpToDate(const QString& currentVersion) override;
    void showUpdateAvailable(const AppcastItem& item, const QString& currentVersion) override;
    void showFailure(const QString& description) override;
    void showNotConfigured() override;

private:
    void showPlain(QMessageBox::Icon icon, const QString& text, const QString& informativeText);

    QPointer<QWidget> m_parent;
};
