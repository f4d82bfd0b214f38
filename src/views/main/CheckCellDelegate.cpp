#include "views/main/CheckCellDelegate.h"

#include "views/common/SymbolIcons.h"
#include "views/common/Theme.h"

#include <QApplication>
#include <QPainter>

using namespace Qt::StringLiterals;

void CheckCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const
{
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const bool checked = cell.checkState == Qt::Checked;
    // Only the cell's background and selection come from the style; the symbol is ours.
    cell.features &= ~QStyleOptionViewItem::HasCheckIndicator;
    cell.text.clear();
    const QWidget* widget = option.widget;
    QStyle* style = widget ? widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, widget);

    const QColor color = option.state & QStyle::State_Selected
                             ? option.palette.color(QPalette::HighlightedText)
                         : checked ? option.palette.color(QPalette::Active, QPalette::Highlight)
                                   : option.palette.color(Theme::kSecondaryText);
    symbol(checked, color)
        .paint(painter, QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter,
                                            QSize(kSymbolSize, kSymbolSize), option.rect));
}

bool CheckCellDelegate::editorEvent(QEvent*, QAbstractItemModel*, const QStyleOptionViewItem&,
                                    const QModelIndex&)
{
    return false;
}

const QIcon& CheckCellDelegate::symbol(bool checked, const QColor& color) const
{
    const quint64 key = (quint64(color.rgba()) << 1) | quint64(checked);
    auto found = m_symbols.constFind(key);
    if (found == m_symbols.constEnd())
        found = m_symbols.insert(
            key, SymbolIcons::tinted(checked ? u"checkmark.square.fill" : u"square", color));
    return *found;
}
