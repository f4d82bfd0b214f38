#pragma once

#include <QHash>
#include <QIcon>
#include <QStyledItemDelegate>

// Draws the check box column: a filled, ticked square in the accent colour for
// a checked product, an empty square in the secondary colour otherwise.
class CheckCellDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    static constexpr int kSymbolSize = 16;

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    // The view toggles on a click through the view model; the style's own
    // check box handling would toggle a second time.
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

private:
    const QIcon& symbol(bool checked, const QColor& color) const;

    // Built on first use per symbol and colour, not for every painted cell.
    mutable QHash<quint64, QIcon> m_symbols;
};
