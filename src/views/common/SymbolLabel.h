#pragma once

#include "views/common/Theme.h"

#include <QIcon>
#include <QWidget>

// One symbol of the bundled set at a fixed pixel size in a named colour.
class SymbolLabel : public QWidget
{
    Q_OBJECT

public:
    SymbolLabel(const QString& symbolName, int pixelSize, Theme::PaletteColor color,
                QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void tint();

    QString m_symbolName;
    Theme::PaletteColor m_color;
    QIcon m_icon;
};
