#pragma once

#include <QColor>
#include <QIcon>
#include <QIconEngine>
#include <QString>
#include <optional>

// Draws a monochrome SVG from the resources in one colour. Without a fixed
// colour it follows the application palette, so the symbol reads on light and
// dark themes alike and turns into the highlighted text colour when selected.
class TintedIconEngine : public QIconEngine
{
public:
    TintedIconEngine(QString resourcePath, std::optional<QColor> color);

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine* clone() const override;
    QString key() const override;
    bool isNull() override;

private:
    QColor colorFor(QIcon::Mode mode) const;

    QString m_resourcePath;
    std::optional<QColor> m_color;
    QIcon m_source;
};
