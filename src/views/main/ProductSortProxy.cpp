#include "ProductSortProxy.h"

#include "services/Product.h"

#include <QCollator>
#include <QLocale>
#include <algorithm>
#include <climits>
#include <numeric>
#include <span>

namespace {} // namespace

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

int compareNumbers(double left, double right)
{
    return left < right ? -1 : (right < left ? 1 : 0);
}

} // namespace

// One sort key bound to its per-row values, compared by source row.
struct ProductSortProxy::ResolvedKey
{
    const std::vector<QCollatorSortKey>* texts = nullptr;
    const std::vector<double>* numbers = nullptr;
    bool descending = false;

    int compare(int left, int right) const
    {
        if (descending)
            std::swap(left, right);
        if (texts)
            return (*texts)[size_t(left)].compare((*texts)[size_t(right)]);
        return compareNumbers((*numbers)[size_t(left)], (*numbers)[size_t(right)]);
    }
};

namespace {

// The first key is compared inline, without the dispatch of the general keys:
// with short collation keys that dispatch would cost as much as the comparison.
template <typename FirstCompare, typename Keys>
void stableSortRows(std::vector<int>& rows, FirstCompare compareFirst, const Keys& tieBreakers)
{
    std::stable_sort(rows.begin(), rows.end(), [&](int left, int right) {
        if (const int result = compareFirst(left, right))
            return result < 0;
        for (const auto& key : tieBreakers) {
            if (const int result = key.compare(left, right))
                return result < 0;
        }
        return false;
    });
}

template <typename Compare, typename Keys>
void stableSortRows(std::vector<int>& rows, bool descending, Compare compare,
                    const Keys& tieBreakers)
{
    if (descending)
        stableSortRows(
            rows, [compare](int left, int right) { return compare(right, left); }, tieBreakers);
    else
        stableSortRows(rows, compare, tieBreakers);
}

} // namespace

void ProductSortProxy::sortRows(std::vector<int>& rows, const std::vector<ResolvedKey>& keys)
{
    const ResolvedKey& first = keys.front();
    const auto tieBreakers = std::span<const ResolvedKey>(keys).subspan(1);
    if (first.texts) {
        const std::vector<QCollatorSortKey>& texts = *first.texts;
        stableSortRows(
            rows, first.descending,
            [&texts](int left, int right) {
                return texts[size_t(left)].compare(texts[size_t(right)]);
            },
            tieBreakers);
    } else {
        const std::vector<double>& numbers = *first.numbers;
        stableSortRows(
            rows, first.descending,
            [&numbers](int left, int right) {
                return compareNumbers(numbers[size_t(left)], numbers[size_t(right)]);
            },
            tieBreakers);
    }
}

ProductSortProxy::ProductSortProxy(ProductTableModel& table, QObject* parent)
    : QAbstractProxyModel(parent),
      m_table(table), m_sortOrder{{ProductTableModel::kSKUColumn, Qt::AscendingOrder}}
{
    QAbstractProxyModel::setSourceModel(&m_table);
    connect(&m_table, &QAbstractItemModel::modelAboutToBeReset, this,
            &ProductSortProxy::beginSourceReset);
    connect(&m_table, &QAbstractItemModel::modelReset, this, &ProductSortProxy::endSourceReset);
    connect(&m_table, &QAbstractItemModel::dataChanged, this,
            &ProductSortProxy::forwardDataChanged);
    sortMapping();
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
    Q_ASSERT(proxyRow >= 0 && proxyRow < rowCount());
    return m_table.productAt(m_proxyToSource[size_t(proxyRow)]);
}

QModelIndex ProductSortProxy::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return createIndex(row, column);
}

QModelIndex ProductSortProxy::parent(const QModelIndex&) const
{
    return {};
}

int ProductSortProxy::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_proxyToSource.size());
}

int ProductSortProxy::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_table.columnCount();
}

QModelIndex ProductSortProxy::mapToSource(const QModelIndex& proxyIndex) const
{
    if (!proxyIndex.isValid())
        return {};
    Q_ASSERT(proxyIndex.model() == this);
    return m_table.index(m_proxyToSource[size_t(proxyIndex.row())], proxyIndex.column());
}

QModelIndex ProductSortProxy::mapFromSource(const QModelIndex& sourceIndex) const
{
    if (!sourceIndex.isValid() || sourceIndex.model() != &m_table)
        return {};
    return index(m_sourceToProxy[size_t(sourceIndex.row())], sourceIndex.column());
}

QVariant ProductSortProxy::headerData(int section, Qt::Orientation orientation, int role) const
{
    // Columns are the table's own; the base class would look them up through row 0.
    if (orientation == Qt::Vertical && section >= 0 && section < rowCount())
        section = m_proxyToSource[size_t(section)];
    return m_table.headerData(section, orientation, role);
}

void ProductSortProxy::beginSourceReset()
{
    beginResetModel();
}

void ProductSortProxy::endSourceReset()
{
    for (std::vector<QCollatorSortKey>& keys : m_collationKeys)
        keys.clear();
    m_collationKeysReady.fill(false);
    m_prices.clear();
    m_pricesReady = false;
    sortMapping();
    endResetModel();
}

void ProductSortProxy::forwardDataChanged(const QModelIndex& topLeft,
                                          const QModelIndex& bottomRight, const QList<int>& roles)
{
    if (!topLeft.isValid() || !bottomRight.isValid())
        return;
    // A run of source rows lies scattered over the proxy; one range covers them all.
    int first = INT_MAX;
    int last = -1;
    for (int row = topLeft.row(); row <= bottomRight.row(); ++row) {
        const int proxyRow = m_sourceToProxy[size_t(row)];
        first = std::min(first, proxyRow);
        last = std::max(last, proxyRow);
    }
    emit dataChanged(index(first, topLeft.column()), index(last, bottomRight.column()), roles);
}

void ProductSortProxy::resort()
{
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<int> sourceRows;
    sourceRows.reserve(size_t(before.size()));
    for (const QModelIndex& index : before)
        sourceRows.push_back(m_proxyToSource[size_t(index.row())]);

    sortMapping();

    // Selection and current row stay on their products.
    QModelIndexList after;
    after.reserve(before.size());
    for (qsizetype i = 0; i < before.size(); ++i)
        after.append(index(m_sourceToProxy[size_t(sourceRows[size_t(i)])], before[i].column()));
    changePersistentIndexList(before, after);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void ProductSortProxy::sortMapping()
{
    const std::vector<ResolvedKey> keys = resolveKeys();
    const size_t rows = size_t(m_table.rowCount());
    // Stable from the view model's order, so rows equal under all keys keep it.
    m_proxyToSource.resize(rows);
    std::iota(m_proxyToSource.begin(), m_proxyToSource.end(), 0);
    sortRows(m_proxyToSource, keys);
    m_sourceToProxy.resize(rows);
    for (size_t proxyRow = 0; proxyRow < rows; ++proxyRow)
        m_sourceToProxy[size_t(m_proxyToSource[proxyRow])] = int(proxyRow);
}

std::vector<ProductSortProxy::ResolvedKey> ProductSortProxy::resolveKeys()
{
    std::vector<ResolvedKey> keys;
    keys.reserve(size_t(m_sortOrder.size()));
    for (const SortKey& key : m_sortOrder) {
        ResolvedKey resolved;
        resolved.descending = key.order == Qt::DescendingOrder;
        if (key.column == ProductTableModel::kPriceColumn)
            resolved.numbers = &prices();
        else
            resolved.texts = &collationKeys(key.column);
        keys.push_back(resolved);
    }
    return keys;
}

const std::vector<QCollatorSortKey>& ProductSortProxy::collationKeys(int column)
{
    std::vector<QCollatorSortKey>& keys = m_collationKeys[size_t(column)];
    if (m_collationKeysReady[size_t(column)])
        return keys;
    std::vector<std::optional<QCollatorSortKey>>& known = catalogueKeys(column);
    const QCollator collator = textCollator();
    const int rows = m_table.rowCount();
    keys.clear();
    keys.reserve(size_t(rows));
    for (int row = 0; row < rows; ++row) {
        std::optional<QCollatorSortKey>& key = known[size_t(m_table.catalogueIndex(row))];
        if (!key)
            key = collator.sortKey(sortText(m_table.productAt(row), column));
        keys.push_back(*key);
    }
    m_collationKeysReady[size_t(column)] = true;
    return keys;
}

std::vector<std::optional<QCollatorSortKey>>& ProductSortProxy::catalogueKeys(int column)
{
    if (m_catalogueGeneration != m_table.catalogueGeneration()) {
        m_catalogueGeneration = m_table.catalogueGeneration();
        for (auto& keys : m_catalogueKeys)
            keys.clear();
    }
    std::vector<std::optional<QCollatorSortKey>>& known = m_catalogueKeys[size_t(column)];
    known.resize(size_t(m_table.catalogueSize()));
    return known;
}

const std::vector<double>& ProductSortProxy::prices()
{
    if (m_pricesReady)
        return m_prices;
    const int rows = m_table.rowCount();
    m_prices.clear();
    m_prices.reserve(size_t(rows));
    for (int row = 0; row < rows; ++row)
        m_prices.push_back(m_table.productAt(row).sortablePrice());
    m_pricesReady = true;
    return m_prices;
}
