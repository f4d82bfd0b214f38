#pragma once

#include "views/common/Theme.h"

#include <QLabel>

// A text in one of the named text colours; it follows palette changes.
class ThemedLabel : public QLabel
{
    Q_OBJECT

public:
    ThemedLabel(const QString& text, const QFont& font, Theme::PaletteColor color,
                QWidget* parent = nullptr);

    void setColor(Theme::PaletteColor color);

protected:
    void changeEvent(QEvent* event) override;

private:
    void applyColor();

    Theme::PaletteColor m_color;
};
