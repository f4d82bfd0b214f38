#pragma once

class AppSettings;
class SettingsFileDialogs;

// The "Export Settings..." and "Import Settings..." commands: ask for a file,
// let the store write or read it, and report the outcome. Keeps no state and
// does not hold on to the store.
class SettingsFileHelper
{
public:
    SettingsFileHelper() = delete;

    static void exportSettings(const AppSettings& settings, SettingsFileDialogs& dialogs);
    static void importSettings(AppSettings& settings, SettingsFileDialogs& dialogs);
};
