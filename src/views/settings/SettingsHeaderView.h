#pragma once

#include <QWidget>

// The band at the top of the settings window: a gear tile, the title and a
// one-line explanation.
class SettingsHeaderView : public QWidget
{
    Q_OBJECT

public:
    explicit SettingsHeaderView(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
