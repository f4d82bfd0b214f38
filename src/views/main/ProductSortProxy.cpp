#include "views/main/ProductSortProxy.h"

#include "services/Product.h"

#include <QLocale>

ProductSortProxy::ProductSortProxy(ProductTableModel& table, QObject* parent)
    : QSortFilterProxyModel(parent), m_table(table),
      m_collator(textCollator()), m_sortOrder{{ProductTableModel::kSKUColumn, Qt::AscendingOrder}}
{
    // The table only ever resets its rows or changes their check state.
    connect(&m_table, &QAbstractItemModel::modelAboutToBeReset, this, [this] { m_keys = {}; });
    setSourceModel(&m_table);
    // lessThan() walks the whole key list in each key's own direction; the
    // column and order given here only switch sorting on.
    sort(ProductTableModel::kSKUColumn, Qt::AscendingOrder);
}

QCollator ProductSortProxy::textCollator()
{
    QLocale locale;
    // The C locale collates by code point, which knows neither case folding nor
    // numbers; without a chosen language English is the neutral choice.
    if (locale.language() == QLocale::C)
        locale = QLocale(QLocale::English, QLocale::UnitedStates);
    QCollator collator(locale);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    return collator;
}

void ProductSortProxy::setSortOrder(const QList<SortKey>& keys)
{
    QList<SortKey> sortable = keys;
    sortable.removeIf([](const SortKey& key) {
        return key.column <= ProductTableModel::kCheckColumn ||
               key.column >= ProductTableModel::kColumnCount;
    });
    if (sortable.isEmpty() || sortable == m_sortOrder)
        return;
    m_sortOrder = sortable;
    invalidate();
}

void ProductSortProxy::promoteColumn(int column)
{
    const bool reverse = m_sortOrder.first() == SortKey{column, Qt::AscendingOrder};
    QList<SortKey> keys = m_sortOrder;
    keys.removeIf([column](const SortKey& key) { return key.column == column; });
    keys.prepend({column, reverse ? Qt::DescendingOrder : Qt::AscendingOrder});
    setSortOrder(keys);
}

const Product& ProductSortProxy::productAt(int proxyRow) const
{
    return m_table.productAt(mapToSource(index(proxyRow, 0)).row());
}

bool ProductSortProxy::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    for (const SortKey& key : m_sortOrder) {
        const bool ascending = key.order == Qt::AscendingOrder;
        const int result = compare(key.column, ascending ? left.row() : right.row(),
                                   ascending ? right.row() : left.row());
        if (result != 0)
            return result < 0;
    }
    // Equal rows keep the view model's order, whatever order was shown before.
    return left.row() < right.row();
}

int ProductSortProxy::compare(int column, int leftRow, int rightRow) const
{
    if (column == ProductTableModel::kPriceColumn) { // a missing price counts as 0
        const double left = m_table.productAt(leftRow).sortablePrice();
        const double right = m_table.productAt(rightRow).sortablePrice();
        return (right < left) - (left < right);
    }
    const Keys& keys = collationKeys(column);
    return keys[size_t(leftRow)].compare(keys[size_t(rightRow)]);
}

const ProductSortProxy::Keys& ProductSortProxy::collationKeys(int column) const
{
    Keys& keys = m_keys[size_t(column)];
    if (keys.empty()) {
        const int rows = m_table.rowCount();
        keys.reserve(size_t(rows));
        for (int row = 0; row < rows; ++row)
            keys.push_back(m_collator.sortKey(m_table.index(row, column).data().toString()));
    }
    return keys;
}
