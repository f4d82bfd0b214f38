#pragma once

#include "views/settings/SidebarItem.h"

#include <QColor>
#include <QIcon>

// One sidebar entry, drawn by hand so that a selected row shows its icon and
// title in white on the accent colour. Record rows are indented under their
// group; category rows ("Over") line up with the group headers. For assistive
// technology it is a list item named after its title.
class SidebarRow : public SidebarItem
{
    Q_OBJECT

public:
    enum class Style
    {
        record,
        category
    };

    explicit SidebarRow(Style style, QWidget* parent = nullptr);

    void setSymbol(const QString& symbolName);
    void setText(const QString& text);
    // Record rows: the filled icon in green marks a record that is set up.
    void setHighlighted(bool highlighted);
    void setSelected(bool selected);

    const QString& symbol() const { return m_symbol; }
    const QString& text() const { return m_text; }
    bool isHighlighted() const { return m_highlighted; }
    bool isSelected() const { return m_selected; }
    QColor iconColor() const;
    QColor textColor() const;

    QSize sizeHint() const override;

    QString accessibleText() const override { return m_text; }
    QAccessible::Role accessibleRole() const override { return QAccessible::ListItem; }
    QAccessible::State accessibleState() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Metrics
    {
        int paddingLeft;
        int paddingRight;
        int height;
        int leadingSpacer;
        int iconSize;
        int iconBox;
        int spacing;
        int fontSize;
        int radius;
    };
    const Metrics& metrics() const;
    QFont textFont() const;
    void refreshIcon();

    Style m_style;
    QString m_symbol;
    QString m_text;
    bool m_highlighted = false;
    bool m_selected = false;
    QIcon m_icon;
};
