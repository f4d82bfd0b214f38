#include "views/main/ProductSortProxy.h"

#include "services/Product.h"

#include <QLocale>
#include <algorithm>
#include <numeric>

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
    : QAbstractProxyModel(parent), m_table(table),
      m_collator(textCollator()), m_sortOrder{{ProductTableModel::kSKUColumn, Qt::AscendingOrder}}
{
    // The table only ever resets its rows or changes their data.
    connect(&m_table, &QAbstractItemModel::modelAboutToBeReset, this,
            &ProductSortProxy::beginReset);
    connect(&m_table, &QAbstractItemModel::modelReset, this, &ProductSortProxy::endReset);
    connect(&m_table, &QAbstractItemModel::dataChanged, this,
            &ProductSortProxy::forwardDataChanged);
    QAbstractProxyModel::setSourceModel(&m_table);
    sortRows();
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
    m_sortOrder = sortable;
    resort();
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
    return m_table.productAt(m_sourceRows[size_t(proxyRow)]);
}

QModelIndex ProductSortProxy::index(int row, int column, const QModelIndex& parent) const
{
    return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
}

QModelIndex ProductSortProxy::parent(const QModelIndex&) const
{
    return {};
}

int ProductSortProxy::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_sourceRows.size());
}

int ProductSortProxy::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ProductTableModel::kColumnCount;
}

QModelIndex ProductSortProxy::mapToSource(const QModelIndex& proxyIndex) const
{
    if (!proxyIndex.isValid())
        return {};
    return m_table.index(m_sourceRows[size_t(proxyIndex.row())], proxyIndex.column());
}

QModelIndex ProductSortProxy::mapFromSource(const QModelIndex& sourceIndex) const
{
    if (!sourceIndex.isValid())
        return {};
    return createIndex(m_proxyRows[size_t(sourceIndex.row())], sourceIndex.column());
}

void ProductSortProxy::sortRows()
{
    // Each key's collation keys are looked up once per sort, not per comparison.
    struct Criterion
    {
        const Keys* keys; // none: the price
        bool descending;
    };
    std::vector<Criterion> criteria;
    for (const SortKey& key : std::as_const(m_sortOrder)) {
        const bool byPrice = key.column == ProductTableModel::kPriceColumn;
        criteria.push_back(
            {byPrice ? nullptr : &collationKeys(key.column), key.order == Qt::DescendingOrder});
    }
    const auto less = [&](int left, int right) {
        for (const Criterion& criterion : criteria) {
            const int a = criterion.descending ? right : left;
            const int b = criterion.descending ? left : right;
            const int result =
                criterion.keys ? (*criterion.keys)[size_t(a)].compare((*criterion.keys)[size_t(b)])
                               : comparePrices(a, b);
            if (result != 0)
                return result < 0;
        }
        return false;
    };
    m_sourceRows.resize(size_t(m_table.rowCount()));
    std::iota(m_sourceRows.begin(), m_sourceRows.end(), 0);
    // Equal rows keep the view model's order, whatever order was shown before.
    std::stable_sort(m_sourceRows.begin(), m_sourceRows.end(), less);
    m_proxyRows.resize(m_sourceRows.size());
    for (size_t row = 0; row < m_sourceRows.size(); ++row)
        m_proxyRows[size_t(m_sourceRows[row])] = int(row);
}

void ProductSortProxy::resort()
{
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    QModelIndexList sources;
    sources.reserve(before.size());
    for (const QModelIndex& index : before)
        sources.append(mapToSource(index));
    sortRows();
    QModelIndexList after;
    after.reserve(sources.size());
    for (const QModelIndex& source : sources)
        after.append(mapFromSource(source));
    changePersistentIndexList(before, after);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void ProductSortProxy::beginReset()
{
    beginResetModel();
    forgetKeys();
}

void ProductSortProxy::endReset()
{
    sortRows();
    endResetModel();
}

void ProductSortProxy::forwardDataChanged(const QModelIndex& topLeft,
                                          const QModelIndex& bottomRight, const QList<int>& roles)
{
    // Sorted rows scatter a source range; the shown rows between its first and
    // last mapped row cover it.
    int first = rowCount();
    int last = -1;
    for (int row = topLeft.row(); row <= bottomRight.row(); ++row) {
        first = std::min(first, m_proxyRows[size_t(row)]);
        last = std::max(last, m_proxyRows[size_t(row)]);
    }
    if (last >= 0)
        emit dataChanged(index(first, topLeft.column()), index(last, bottomRight.column()), roles);
}

int ProductSortProxy::comparePrices(int leftRow, int rightRow) const
{
    const double left = m_table.productAt(leftRow).sortablePrice();
    const double right = m_table.productAt(rightRow).sortablePrice();
    return left < right ? -1 : (right < left ? 1 : 0);
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
