#pragma once

#include <QWidget>

class AppSettings;
class SaveErrorLabel;

// The band at the bottom of the settings window: the auto-save note, why the
// settings were not saved (after a failed save only) and the version.
class SettingsFooterView : public QWidget
{
    Q_OBJECT

public:
    SettingsFooterView(const AppSettings& settings, const QString& version,
                       QWidget* parent = nullptr);

    SaveErrorLabel* saveErrorLabel() const { return m_saveErrorLabel; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    SaveErrorLabel* m_saveErrorLabel;
};
