#pragma once

#include <QHash>
#include <QIcon>
#include <QStyledItemDelegate>

// Draws the sidebar's entries: group headers with chevron and symbol, record
// rows and "Over" on the accent colour when selected, the italic empty texts
// and the divider above "Over". The "+" buttons are widgets of the view.
class SettingsSidebarDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // Colours of a record row's symbol and name, as drawn.
    static QColor iconColor(const QModelIndex& index, bool selected, const QPalette& palette);
    static QColor textColor(bool selected, const QPalette& palette);

    // The divider row takes what the other entries leave of the height.
    void setDividerHeight(int height) { m_dividerHeight = height; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    // Each symbol is drawn from its SVG once per colour and size, not on every paint.
    const QIcon& symbol(const QString& name, const QColor& color, int size) const;

    int m_dividerHeight = 17;
    mutable QHash<QString, QIcon> m_symbols;
};
