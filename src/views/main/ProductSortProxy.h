#pragma once

#include "ProductTableModel.h"

#include <QCollator>
#include <QCollatorSortKey>
#include <QList>
#include <QSortFilterProxyModel>
#include <array>
#include <optional>
#include <vector>

struct Product;

// Sorts the product rows by a list of keys, the first deciding and the others
// breaking ties; rows equal under all keys keep the view model's order. Text
// compares like a file browser does (case-insensitive, the user's language,
// digit runs by value) through collation keys worked out once per column
// whenever the rows change.
class ProductSortProxy : public QSortFilterProxyModel
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

    // The column becomes the first key in this order; the others stay behind it.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

protected:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    using Keys = std::vector<QCollatorSortKey>;

    int compare(const SortKey& key, int leftRow, int rightRow) const;
    const Keys& collationKeys(int column) const;
    void forgetKeys();

    ProductTableModel& m_table;
    QCollator m_collator;
    QList<SortKey> m_sortOrder;
    // By source row, filled when a sort first needs the column.
    mutable std::array<std::optional<Keys>, ProductTableModel::kColumnCount> m_keys;
};
