#include "SettingsText.h"

#include "views/main/Theme.h"

#include <QLabel>

QLabel* SettingsText::label(const QString& text, const QFont& font, const QColor& color,
                            QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setFont(font);
    setTextColor(label, color);
    return label;
}

QLabel* SettingsText::secondary(const QString& text, const QFont& font, QWidget* parent)
{
    auto* created = label(text, font, QColor(), parent);
    setTextColor(created, Theme::secondaryText(created->palette()));
    return created;
}

void SettingsText::setTextColor(QWidget* widget, const QColor& color)
{
    QPalette pal = widget->palette();
    if (color.isValid()) {
        pal.setColor(QPalette::WindowText, color);
        pal.setColor(QPalette::Text, color);
        pal.setColor(QPalette::ButtonText, color);
    }
    widget->setPalette(pal);
}
