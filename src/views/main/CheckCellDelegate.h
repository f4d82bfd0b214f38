#pragma once

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
};
