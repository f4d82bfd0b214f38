#pragma once

#include <QWidget>
#include <optional>

class AppSettings;
class ProductListViewModel;
class ProductSortProxy;
class QTableView;

// The product table: check box, article number, description, price and
// barcode of the filtered products, sortable by the four data columns, with
// one selected row bound to the view model's selectedProductID. While it
// exists the space bar ticks the selected product and moves one row down.
class ProductListView : public QWidget
{
    Q_OBJECT

public:
    ProductListView(ProductListViewModel& viewModel, AppSettings& settings,
                    QWidget* parent = nullptr);

    QTableView* tableView() const { return m_table; }

private:
    void configureTable();
    void applyColumnWidths();
    void keepMinimumWidth(int column, int oldWidth, int newWidth);
    void sortByHeader(int column);
    void toggleIfCheckCell(const QModelIndex& index);
    void writeSelection();
    void showSelection();
    std::optional<int> displayedRow(qint64 productID) const;
    void handleSpacebarPress();

    ProductListViewModel& m_viewModel;
    AppSettings& m_settings;
    ProductSortProxy* m_proxy;
    QTableView* m_table;
    bool m_showingSelection = false;
};
