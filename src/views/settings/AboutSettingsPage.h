#pragma once

#include "views/settings/SettingsEditorPage.h"

class QLabel;

// The "Over" page of the settings window.
class AboutSettingsPage : public SettingsEditorPage
{
    Q_OBJECT

public:
    explicit AboutSettingsPage(QWidget* parent = nullptr);

    QLabel* linkLabel() const { return m_link; }

private:
    QLabel* m_link = nullptr;
};
