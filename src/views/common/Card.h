#pragma once

#include "views/common/Theme.h"

#include <QWidget>

// A rounded panel behind its children: filled with a colour or a diagonal
// gradient, and outlined if it has an outline colour.
class Card : public QWidget
{
    Q_OBJECT

public:
    Card(qreal radius, Theme::PaletteColor fill, Theme::PaletteColor outline = nullptr,
         QWidget* parent = nullptr);

    // Instead of the fill: from `topLeft` in that corner to `bottomRight` in the other.
    void setGradient(const QColor& topLeft, const QColor& bottomRight);
    // Outlines the card in the accent colour while `field` has the keyboard focus.
    void showFocusOf(QWidget* field);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    qreal m_radius;
    Theme::PaletteColor m_fill;
    Theme::PaletteColor m_outline;
    QColor m_gradientStart;
    QColor m_gradientEnd;
    QWidget* m_focusField = nullptr;
};
