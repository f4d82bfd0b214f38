#pragma once

#include "views/common/Theme.h"

#include <QWidget>

// A container drawn as a filled rounded rectangle, optionally outlined.
class RoundedBox : public QWidget
{
    Q_OBJECT

public:
    RoundedBox(qreal radius, Theme::PaletteColor fill, Theme::PaletteColor outline = nullptr,
               QWidget* parent = nullptr);

    // Outlines the box in the accent colour while `field` has the keyboard focus.
    void showFocusOf(QWidget* field);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    qreal m_radius;
    Theme::PaletteColor m_fill;
    Theme::PaletteColor m_outline;
    QWidget* m_focusField = nullptr;
};
