#pragma once

#include <QIcon>
#include <QPalette>
#include <QWidget>

// One symbol of the bundled set at a fixed pixel size, in a colour role of its
// palette (or a fixed colour), tinted when painted so it follows every palette.
class SymbolLabel : public QWidget
{
    Q_OBJECT

public:
    SymbolLabel(const QString& symbolName, int pixelSize, QPalette::ColorRole role,
                QWidget* parent = nullptr);
    SymbolLabel(const QString& symbolName, int pixelSize, const QColor& color,
                QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_symbolName;
    QPalette::ColorRole m_role;
    QColor m_tint;
    QIcon m_icon;
};
