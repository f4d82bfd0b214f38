#pragma once

#include <QColor>
#include <QFont>
#include <QString>

class QLabel;
class QWidget;

// Small label helpers for the settings pages: a font and a text colour per label.
class SettingsText
{
public:
    static QLabel* label(const QString& text, const QFont& font, const QColor& color,
                         QWidget* parent = nullptr);
    // Secondary-coloured text in the given font.
    static QLabel* secondary(const QString& text, const QFont& font, QWidget* parent = nullptr);
    static void setTextColor(QWidget* widget, const QColor& color);
};
