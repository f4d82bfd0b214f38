#include "ProductSortProxy.h"

#include "ProductTableModel.h"
#include "services/Product.h"

#include <QCollator>
#include <QLocale>

namespace {

QCollator fileBrowserCollator()
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

int compareNumbers(double left, double right)
{
    return left < right ? -1 : (right < left ? 1 : 0);
}

} // namespace

ProductSortProxy::ProductSortProxy(ProductTableModel& table, QObject* parent)
    : QSortFilterProxyModel(parent),
      m_table(table), m_sortOrder{{ProductTableModel::kSKUColumn, Qt::AscendingOrder}}
{
    // Stale before the rows change: any sort after the reset recomputes the keys first.
    connect(&m_table, &QAbstractItemModel::modelAboutToBeReset, this,
            &ProductSortProxy::markKeysStale);
    connect(&m_table, &QAbstractItemModel::modelReset, this, &ProductSortProxy::markKeysStale);
    setSourceModel(&m_table);
    setDynamicSortFilter(true);
    sort(m_sortOrder.first().column, m_sortOrder.first().order);
}

bool ProductSortProxy::isSortable(int column)
{
    return column > ProductTableModel::kCheckColumn && column < ProductTableModel::kColumnCount;
}

void ProductSortProxy::setSortOrder(const QList<SortKey>& keys)
{
    QList<SortKey> sortable;
    for (const SortKey& key : keys) {
        if (isSortable(key.column))
            sortable.append(key);
    }
    if (sortable.isEmpty())
        return;
    m_sortOrder = sortable;
    const SortKey& first = m_sortOrder.first();
    if (sortColumn() == first.column && QSortFilterProxyModel::sortOrder() == first.order)
        invalidate(); // same first key, the tie-breakers may differ
    else
        sort(first.column, first.order);
}

void ProductSortProxy::promoteColumn(int column)
{
    if (!isSortable(column))
        return;
    QList<SortKey> keys = m_sortOrder;
    if (keys.first().column == column) {
        keys.first().order =
            keys.first().order == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    } else {
        keys.removeIf([column](const SortKey& key) { return key.column == column; });
        keys.prepend({column, Qt::AscendingOrder});
    }
    setSortOrder(keys);
}

const Product& ProductSortProxy::productAt(int proxyRow) const
{
    return m_table.productAt(mapToSource(index(proxyRow, 0)).row());
}

bool ProductSortProxy::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    ensureCollationKeys();
    // The base class swaps the arguments for a descending first key; keys that run
    // the other way than the first one are flipped back here.
    const Qt::SortOrder primary = QSortFilterProxyModel::sortOrder();
    for (const SortKey& key : m_sortOrder) {
        const int result = compare(key.column, left.row(), right.row());
        if (result != 0)
            return key.order == primary ? result < 0 : result > 0;
    }
    return false;
}

int ProductSortProxy::compare(int column, int leftRow, int rightRow) const
{
    switch (column) {
    case ProductTableModel::kSKUColumn:
        return m_skuKeys[leftRow].compare(m_skuKeys[rightRow]);
    case ProductTableModel::kNameColumn:
        return m_nameKeys[leftRow].compare(m_nameKeys[rightRow]);
    case ProductTableModel::kBarcodeColumn:
        return m_barcodeKeys[leftRow].compare(m_barcodeKeys[rightRow]);
    case ProductTableModel::kPriceColumn:
        return compareNumbers(m_table.productAt(leftRow).sortablePrice(),
                              m_table.productAt(rightRow).sortablePrice());
    default:
        return 0;
    }
}

void ProductSortProxy::markKeysStale()
{
    m_keysStale = true;
}

void ProductSortProxy::ensureCollationKeys() const
{
    if (!m_keysStale)
        return;
    const QCollator collator = fileBrowserCollator();
    const int rows = m_table.rowCount();
    m_skuKeys.clear();
    m_nameKeys.clear();
    m_barcodeKeys.clear();
    m_skuKeys.reserve(rows);
    m_nameKeys.reserve(rows);
    m_barcodeKeys.reserve(rows);
    for (int row = 0; row < rows; ++row) {
        const Product& product = m_table.productAt(row);
        m_skuKeys.push_back(collator.sortKey(product.sku()));
        m_nameKeys.push_back(collator.sortKey(product.displayName()));
        m_barcodeKeys.push_back(collator.sortKey(product.barcode()));
    }
    m_keysStale = false;
}
