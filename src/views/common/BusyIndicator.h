#pragma once

#include <QTimer>
#include <QWidget>

// The spinning wheel: twelve spokes whose brightness runs round. It animates
// only while it is visible, in its foreground role (secondary text unless set).
class BusyIndicator : public QWidget
{
    Q_OBJECT

public:
    static constexpr int kSpokes = 12;

    explicit BusyIndicator(int diameter, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    int m_diameter;
    QTimer m_timer;
    int m_step = 0;
};
