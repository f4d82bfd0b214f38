#pragma once

#include <QColor>
#include <QIcon>
#include <QWidget>

// One clickable sidebar entry, drawn by hand so that a selected row shows its
// icon and title in white on the accent colour. Record rows are indented under
// their group; category rows ("Over") line up with the group headers.
class SidebarRow : public QWidget
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

signals:
    void clicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

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
    bool m_pressed = false;
    QIcon m_icon;
};
