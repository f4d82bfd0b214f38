#pragma once

#include <QTimer>
#include <QWidget>

// A small indeterminate progress indicator: rotating spokes, spinning only
// while visible.
class SettingsSpinner : public QWidget
{
    Q_OBJECT

public:
    explicit SettingsSpinner(int diameter, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QTimer m_timer;
    int m_step = 0;
};
