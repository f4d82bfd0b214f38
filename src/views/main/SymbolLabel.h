#pragma once

#include "Theme.h"

#include <QWidget>

// One symbol of the bundled set at a fixed pixel size in a named colour.
class SymbolLabel : public QWidget
{
    Q_OBJECT

public:
    SymbolLabel(const QString& symbolName, int pixelSize, Theme::PaletteColor color,
                QWidget* parent = nullptr);

    const QString& symbolName() const { return m_symbolName; }
    void setSymbolName(const QString& symbolName);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_symbolName;
    Theme::PaletteColor m_color;
};
