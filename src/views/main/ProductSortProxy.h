#pragma once

#include <QCollatorSortKey>
#include <QList>
#include <QSortFilterProxyModel>
#include <vector>

class ProductTableModel;
struct Product;

// Sorts the product rows by a list of keys, the first deciding and the others
// breaking ties; rows equal under all keys keep the view model's order. Text
// compares like a file browser does (case-insensitive, the user's language,
// digit runs by value) through collation keys computed once per row set.
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
    int compare(int column, int leftRow, int rightRow) const;
    void markKeysStale();
    void ensureCollationKeys() const;

    ProductTableModel& m_table;
    QList<SortKey> m_sortOrder;
    mutable bool m_keysStale = true;
    mutable std::vector<QCollatorSortKey> m_skuKeys;
    mutable std::vector<QCollatorSortKey> m_nameKeys;
    mutable std::vector<QCollatorSortKey> m_barcodeKeys;
};
