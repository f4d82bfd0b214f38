#pragma once

#include "views/common/Theme.h"

#include <QTimer>
#include <QWidget>

// The spinning wheel: twelve spokes whose brightness runs round. It animates
// only while it is visible.
class BusyIndicator : public QWidget
{
    Q_OBJECT

public:
    static constexpr int kSpokes = 12;

    BusyIndicator(int diameter, Theme::PaletteColor color, QWidget* parent = nullptr);

    void setColor(Theme::PaletteColor color);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void advance();

    int m_diameter;
    Theme::PaletteColor m_color;
    QTimer m_timer;
    int m_step = 0;
};
