#pragma once

#include "views/main/ProductTableModel.h"

#include <QCollator>
#include <QCollatorSortKey>
#include <QList>
#include <QSortFilterProxyModel>
#include <array>
#include <vector>

struct Product;

// Sorts the product rows by a list of keys, the first deciding and the others
// breaking ties; rows equal under all keys keep the view model's order. Text
// compares like a file browser does (case-insensitive, the user's language,
// digit runs by value), prices as numbers.
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

    static QCollator textCollator();
    // Starts as the article number, ascending.
    const QList<SortKey>& sortOrder() const { return m_sortOrder; }
    void setSortOrder(const QList<SortKey>& keys);
    // A header click: the column becomes the first key, ascending; the column
    // that already is first reverses. Other keys stay behind as tie-breakers.
    void promoteColumn(int column);

    const Product& productAt(int proxyRow) const;

protected:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    using Keys = std::vector<QCollatorSortKey>;

    int compare(int column, int leftRow, int rightRow) const;
    const Keys& collationKeys(int column) const;

    ProductTableModel& m_table;
    QCollator m_collator;
    QList<SortKey> m_sortOrder;
    // By source row, made when a sort first needs the column: collating on every
    // comparison made a sort by article number three to four times slower.
    mutable std::array<Keys, ProductTableModel::kColumnCount> m_keys;
};
