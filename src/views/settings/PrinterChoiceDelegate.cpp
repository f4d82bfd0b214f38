#include "views/settings/PrinterChoiceDelegate.h"

#include "views/common/Theme.h"

#include <QApplication>
#include <QPainter>

using namespace Qt::StringLiterals;

void PrinterChoiceDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const QString name = index.data(kNameRole).toString();
    const QString address = index.data(kAddressRole).toString();
    if (address.isEmpty()) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    // Background and focus from the style, text drawn in two colours.
    item.text.clear();
    const QWidget* widget = option.widget;
    QStyle* style = widget ? widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &item, painter, widget);

    const QRect textRect =
        style->subElementRect(QStyle::SE_ItemViewItemText, &item, widget).adjusted(2, 0, -2, 0);
    const bool selected = option.state & QStyle::State_Selected;
    const QColor primary =
        option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
    const QColor secondary = selected ? primary : option.palette.color(Theme::kSecondaryText);

    painter->save();
    painter->setFont(item.font);
    painter->setPen(primary);
    const QString nameText = (name.isEmpty() ? QString() : name + u" "_s);
    painter->drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter, nameText);
    const int offset = item.fontMetrics.horizontalAdvance(nameText);
    painter->setPen(secondary);
    painter->drawText(textRect.adjusted(offset, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                      u"("_s + address + u")"_s);
    painter->restore();
}
