#include "ProductSortProxy.h"

#include "services/Product.h"

#include <QLocale>

namespace {

QString sortText(const Product& product, int column)
{
    switch (column) {
    case ProductTableModel::kSKUColumn:
        return product.sku();
    case ProductTableModel::kNameColumn:
        return product.displayName();
    case ProductTableModel::kBarcodeColumn:
        return product.barcode();
    default:
        return {};
    }
}

} // namespace

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

ProductSortProxy::ProductSortProxy(ProductTableModel& table, QObject* parent)
    : QSortFilterProxyModel(parent), m_table(table),
      m_collator(textCollator()), m_sortOrder{{ProductTableModel::kSKUColumn, Qt::AscendingOrder}}
{
    // Before the base class re-reads the rows, so no sort sees the old keys.
    connect(&m_table, &QAbstractItemModel::modelAboutToBeReset, this,
            &ProductSortProxy::forgetKeys);
    setSourceModel(&m_table);
    QSortFilterProxyModel::sort(ProductTableModel::kSKUColumn, Qt::AscendingOrder);
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
    // The rows are always in the current order; the same keys change nothing.
    if (sortable.isEmpty() || sortable == m_sortOrder)
        return;
    const int previousFirst = m_sortOrder.first().column;
    m_sortOrder = sortable;
    // The base class sorts ascending by the first column; lessThan applies each
    // key's own direction. With the same first column only the tie-breakers
    // changed, which the base class would not notice.
    if (m_sortOrder.first().column == previousFirst)
        invalidate();
    else
        QSortFilterProxyModel::sort(m_sortOrder.first().column, Qt::AscendingOrder);
}

void ProductSortProxy::promoteColumn(int column)
{
    const SortKey& first = m_sortOrder.first();
    const bool reverse = first.column == column && first.order == Qt::AscendingOrder;
    sort(column, reverse ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void ProductSortProxy::sort(int column, Qt::SortOrder order)
{
    if (!isSortable(column))
        return;
    QList<SortKey> keys = m_sortOrder;
    keys.removeIf([column](const SortKey& key) { return key.column == column; });
    keys.prepend({column, order});
    setSortOrder(keys);
}

const Product& ProductSortProxy::productAt(int proxyRow) const
{
    return m_table.productAt(mapToSource(index(proxyRow, 0)).row());
}

bool ProductSortProxy::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    const int leftRow = left.row();
    const int rightRow = right.row();
    for (const SortKey& key : m_sortOrder) {
        if (const int result = compare(key, leftRow, rightRow))
            return result < 0;
    }
    // Equal under every key: the view model's order, whatever order was shown before.
    return leftRow < rightRow;
}

int ProductSortProxy::compare(const SortKey& key, int leftRow, int rightRow) const
{
    if (key.order == Qt::DescendingOrder)
        std::swap(leftRow, rightRow);
    if (key.column == ProductTableModel::kPriceColumn) {
        const double left = m_table.productAt(leftRow).sortablePrice();
        const double right = m_table.productAt(rightRow).sortablePrice();
        return left < right ? -1 : (right < left ? 1 : 0);
    }
    const Keys& keys = collationKeys(key.column);
    return keys[size_t(leftRow)].compare(keys[size_t(rightRow)]);
}

const ProductSortProxy::Keys& ProductSortProxy::collationKeys(int column) const
{
    std::optional<Keys>& keys = m_keys[size_t(column)];
    if (!keys) {
        keys.emplace();
        const int rows = m_table.rowCount();
        keys->reserve(size_t(rows));
        for (int row = 0; row < rows; ++row)
            keys->push_back(m_collator.sortKey(sortText(m_table.productAt(row), column)));
    }
    return *keys;
}

void ProductSortProxy::forgetKeys()
{
    for (std::optional<Keys>& keys : m_keys)
        keys.reset();
}
