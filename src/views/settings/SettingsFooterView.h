#pragma once

#include <QWidget>

// The band at the bottom of the settings window: the auto-save note and the version.
class SettingsFooterView : public QWidget
{
    Q_OBJECT

public:
    explicit SettingsFooterView(const QString& version, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
