#pragma once

#include "views/settings/SettingsEditorPage.h"

// The "Over" page of the settings window.
class AboutSettingsPage : public SettingsEditorPage
{
    Q_OBJECT

public:
    explicit AboutSettingsPage(QWidget* parent = nullptr);
};
