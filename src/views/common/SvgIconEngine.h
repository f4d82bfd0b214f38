#pragma once

#include <QIconEngine>
#include <QString>

// Draws an SVG from the resources at any size, keeping its proportions, with
// Qt SVG directly: no icon engine plugin is looked up or loaded for it.
class SvgIconEngine : public QIconEngine
{
public:
    explicit SvgIconEngine(QString resourcePath);

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine* clone() const override;
    QString key() const override;
    bool isNull() override;

protected:
    const QString& resourcePath() const { return m_resourcePath; }
    // The picture fitted into size, on transparency; null when it cannot be read.
    QPixmap render(const QSize& size) const;

private:
    QString m_resourcePath;
};
