#pragma once

#include "model/SettingsFileDialogs.h"

#include <QPointer>
#include <QWidget>

// The settings import and export dialogs on screen: the platform's own file
// dialogs where it has them, else Qt's with the request's message above, and
// application-modal message boxes.
class PlatformSettingsFileDialogs : public SettingsFileDialogs
{
public:
    explicit PlatformSettingsFileDialogs(QWidget* parent = nullptr);

    std::optional<QString> askSaveLocation(const FileRequest& request) override;
    std::optional<QString> askOpenFile(const FileRequest& request) override;
    void showMessage(const Message& message) override;

private:
    QPointer<QWidget> m_parent;
};
