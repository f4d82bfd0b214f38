#pragma once

#include "model/SettingsFileDialogs.h"

#include <QPointer>
#include <QWidget>

// The settings import and export dialogs on screen: Qt's own file dialogs with
// the request's message above the file list, and application-modal message boxes.
class NativeSettingsFileDialogs : public SettingsFileDialogs
{
public:
    explicit NativeSettingsFileDialogs(QWidget* parent = nullptr);

    std::optional<QString> askSaveLocation(const FileRequest& request) override;
    std::optional<QString> askOpenFile(const FileRequest& request) override;
    void showMessage(const Message& message) override;

private:
    QPointer<QWidget> m_parent;
};
