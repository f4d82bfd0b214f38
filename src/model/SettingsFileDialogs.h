#pragma once

#include <QString>
#include <optional>

// The modal dialogs the settings import and export need. The application
// passes the platform's own dialogs; tests pass a scripted stand-in, so the
// commands can be exercised without a person at the screen.
class SettingsFileDialogs
{
public:
    enum class MessageStyle
    {
        Informational,
        Critical
    };

    struct FileRequest
    {
        QString title;
        QString message;
        // Only used when asking for a save location.
        QString proposedFileName;
        // A file dialog name filter, for example "JSON (*.json)".
        QString nameFilter;
    };

    struct Message
    {
        MessageStyle style = MessageStyle::Informational;
        QString text;
        QString informativeText;
        QString buttonText;
    };

    SettingsFileDialogs() = default;
    SettingsFileDialogs(const SettingsFileDialogs&) = delete;
    SettingsFileDialogs& operator=(const SettingsFileDialogs&) = delete;
    virtual ~SettingsFileDialogs() = default;

    // The chosen path, or nothing when the user cancelled.
    virtual std::optional<QString> askSaveLocation(const FileRequest& request) = 0;
    // One existing file, or nothing when the user cancelled.
    virtual std::optional<QString> askOpenFile(const FileRequest& request) = 0;
    // Returns when the user has dismissed the message.
    virtual void showMessage(const Message& message) = 0;
};
