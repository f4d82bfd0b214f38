#pragma once

#include <QPalette>
#include <QWidget>

// A rounded panel behind its children: filled in a palette role or with a
// diagonal gradient, and outlined in a palette role. A fixed colour goes into
// the card's own palette; every other role follows the application's.
class Card : public QWidget
{
    Q_OBJECT

public:
    // NoRole leaves the fill or the outline out.
    explicit Card(qreal radius, QPalette::ColorRole fill = QPalette::NoRole,
                  QPalette::ColorRole outline = QPalette::NoRole, qreal outlineOpacity = 1.0,
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
    QPalette::ColorRole m_fill;
    QPalette::ColorRole m_outline;
    qreal m_outlineOpacity;
    QColor m_gradientStart;
    QColor m_gradientEnd;
    QWidget* m_focusField = nullptr;
};
