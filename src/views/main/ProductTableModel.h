#pragma once

#include <QAbstractTableModel>
#include <QFont>

class ProductListViewModel;
struct Product;

// The filtered products of the view model as table rows, read on demand: the
// model keeps no copy. Rows follow the view model's filtered order; sorting is
// the business of ProductSortProxy.
class ProductTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    static constexpr int kCheckColumn = 0;
    static constexpr int kSKUColumn = 1;
    static constexpr int kNameColumn = 2;
    static constexpr int kPriceColumn = 3;
    static constexpr int kBarcodeColumn = 4;
    static constexpr int kColumnCount = 5;

    static constexpr int kProductIDRole = Qt::UserRole + 1;

    explicit ProductTableModel(ProductListViewModel& viewModel, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    const Product& productAt(int row) const;

private:
    void refreshChecks();

    ProductListViewModel& m_viewModel;
    // Asked for by every painted cell; the font database is too slow for that.
    QFont m_bodyFont;
    QFont m_monospacedFont;
};
