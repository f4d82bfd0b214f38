#pragma once

#include "model/SettingsFileDialogs.h"

#include <QPointer>
#include <QWidget>

// The settings import and export dialogs on screen: Qt's own file dialog with
// the request's message above it, and application-modal message boxes. Qt
// hands no message to the platforms' file dialogs, and the message is part of
// what these dialogs must show, so Qt's own is used everywhere.
class QtMessageFileDialogs : public SettingsFileDialogs
{
public:
    explicit QtMessageFileDialogs(QWidget* parent = nullptr);

    std::optional<QString> askSaveLocation(const FileRequest& request) override;
    std::optional<QString> askOpenFile(const FileRequest& request) override;
    void showMessage(const Message& message) override;

private:
    QPointer<QWidget> m_parent;
};
