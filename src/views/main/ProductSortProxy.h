#pragma once

#include "ProductTableModel.h"

#include <QAbstractProxyModel>
#include <QCollator>
#include <QCollatorSortKey>
#include <QList>
#include <array>
#include <optional>
#include <vector>

struct Product;

// Sorts the product rows by a list of keys, the first deciding and the others
// breaking ties; rows equal under all keys keep the view model's order. Text
// compares like a file browser does (case-insensitive, the user's language,
// digit runs by value) through collation keys computed at most once per
// product and column for each loaded catalogue. The table only ever resets its rows or changes its
// check column, so the proxy keeps a plain row mapping and sorts it over the keys directly instead
// of going through QModelIndex comparisons.
class ProductSortProxy : public QAbstractProxyModel
{
    Q_OBJECT

public:
    struct SortKey
    {
        int column = 0;
        Qt::SortOrder order = Qt::AscendingOrder;
        friend bool operator==(const SortKey&, const SortKey&) = default;
    };

    explicit ProductSortProxy(ProductTableModel& table, QObject* parent = nullptr);

    static bool isSortable(int column);
    // Case-insensitive, the user's language (English when none is set), digit
    // runs by value: how the text columns compare.
    static QCollator textCollator();
    // Starts as the article number, ascending.
    const QList<SortKey>& sortOrder() const { return m_sortOrder; }
    void setSortOrder(const QList<SortKey>& keys);
    // A header click: the column becomes the first key, ascending; the column
    // that already is first reverses. Other keys stay behind as tie-breakers.
    void promoteColumn(int column);

    const Product& productAt(int proxyRow) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QModelIndex mapToSource(const QModelIndex& proxyIndex) const override;
    QModelIndex mapFromSource(const QModelIndex& sourceIndex) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    // The column becomes the first key in this order; the others stay behind it.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

private:
    struct ResolvedKey;

    void beginSourceReset();
    void endSourceReset();
    void forwardDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                            const QList<int>& roles);
    void resort();
    void sortMapping();
    static void sortRows(std::vector<int>& rows, const std::vector<ResolvedKey>& keys);
    std::vector<ResolvedKey> resolveKeys();
    const std::vector<QCollatorSortKey>& collationKeys(int column);
    std::vector<std::optional<QCollatorSortKey>>& catalogueKeys(int column);
    const std::vector<double>& prices();

    ProductTableModel& m_table;
    QList<SortKey> m_sortOrder;
    std::vector<int> m_proxyToSource;
    std::vector<int> m_sourceToProxy;
    // Filled on first use after a reset; indexed by source row.
    std::array<std::vector<QCollatorSortKey>, ProductTableModel::kColumnCount> m_collationKeys;
    std::array<bool, ProductTableModel::kColumnCount> m_collationKeysReady{};
    // The same keys by catalogue position, kept while the catalogue stays: a
    // keystroke in the search field then costs no collation work.
    std::array<std::vector<std::optional<QCollatorSortKey>>, ProductTableModel::kColumnCount>
        m_catalogueKeys;
    quint64 m_catalogueGeneration = 0;
    std::vector<double> m_prices;
    bool m_pricesReady = false;
};
