#pragma once

#include <QStyledItemDelegate>

// Draws a printer entry of the template's printer choice as its name in the
// primary colour followed by "(address)" in the secondary colour.
class PrinterChoiceDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    // Item data roles: the printer's id text, its name and its address.
    static constexpr int kIDRole = Qt::UserRole;
    static constexpr int kNameRole = Qt::UserRole + 1;
    static constexpr int kAddressRole = Qt::UserRole + 2;

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};
