#include "views/main/ProductListView.h"

#include "model/AppSettings.h"
#include "viewmodels/ProductListViewModel.h"
#include "views/common/Theme.h"
#include "views/main/CheckCellDelegate.h"
#include "views/main/ProductSortProxy.h"
#include "views/main/ProductTableModel.h"
#include "views/main/SpacebarHandler.h"

#include <QHeaderView>
#include <QTableView>
#include <QVBoxLayout>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int kRowHeight = 24;
// Per column; the check box column is not resizable at all.
constexpr std::array<int, ProductTableModel::kColumnCount> kMinimumWidths{0, 80, 150, 80, 80};

} // namespace

ProductListView::ProductListView(ProductListViewModel& viewModel, AppSettings& settings,
                                 QWidget* parent)
    : QWidget(parent), m_viewModel(viewModel), m_settings(settings),
      m_proxy(new ProductSortProxy(*new ProductTableModel(viewModel, this), this)),
      m_table(new QTableView(this))
{
    new SpacebarHandler([this] { handleSpacebarPress(); }, this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_table);
    configureTable();
    applyColumnWidths();
    sortByHeader(ProductTableModel::kCheckColumn); // shows the first key, changing nothing

    QHeaderView* header = m_table->horizontalHeader();
    connect(header, &QHeaderView::sectionResized, this, &ProductListView::keepMinimumWidth);
    connect(header, &QHeaderView::sectionClicked, this, &ProductListView::sortByHeader);
    connect(m_table, &QTableView::clicked, this, &ProductListView::toggleIfCheckCell);
    // The second press of a double-click gives no clicked(), but is a click all the same.
    connect(m_table, &QTableView::doubleClicked, this, &ProductListView::toggleIfCheckCell);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ProductListView::writeSelection);
    connect(&m_viewModel, &ProductListViewModel::selectedProductIDChanged, this,
            &ProductListView::showSelection);
    // A reset drops the view's selection; the model still knows which product it was.
    connect(m_proxy, &QAbstractItemModel::modelReset, this, &ProductListView::showSelection);
    showSelection();
}

void ProductListView::configureTable()
{
    m_table->setAccessibleName(u"Producten"_s);
    m_table->setFrameShape(QFrame::NoFrame);
    m_table->setFont(Theme::body());
    m_table->setShowGrid(false);
    m_table->setAlternatingRowColors(true);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setWordWrap(false);
    m_table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->setCornerButtonEnabled(false);
    // Tab leaves the table for the status bar instead of walking its cells.
    m_table->setTabKeyNavigation(false);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(kRowHeight);
    // After the row settings, so the rows are laid out once.
    m_table->setModel(m_proxy);
    m_table->setItemDelegateForColumn(ProductTableModel::kCheckColumn, new CheckCellDelegate(this));

    QHeaderView* header = m_table->horizontalHeader();
    header->setHighlightSections(false);
    header->setSortIndicatorShown(true);
    // The last column takes what the others leave, as desktop tables do; its stored
    // width is where it starts and how narrow it gets.
    header->setStretchLastSection(true);
    header->setMinimumSectionSize(1); // the per-column minimums are kept by keepMinimumWidth
    header->setSectionResizeMode(QHeaderView::Interactive);
    header->setSectionResizeMode(ProductTableModel::kCheckColumn, QHeaderView::Fixed);
}

void ProductListView::applyColumnWidths()
{
    // Read once: a width the user drags is not written back and is gone with the table.
    const std::array<double, ProductTableModel::kColumnCount> widths{
        m_settings.columnWidthCheckbox(), m_settings.columnWidthSKU(), m_settings.columnWidthName(),
        m_settings.columnWidthPrice(), m_settings.columnWidthBarcode()};
    QHeaderView* header = m_table->horizontalHeader();
    for (int column = 0; column < ProductTableModel::kColumnCount; ++column)
        header->resizeSection(column, qMax(kMinimumWidths[column], qRound(widths[column])));
}

void ProductListView::keepMinimumWidth(int column, int, int newWidth)
{
    if (column >= 0 && column < ProductTableModel::kColumnCount &&
        newWidth < kMinimumWidths[column])
        m_table->horizontalHeader()->resizeSection(column, kMinimumWidths[column]);
}

void ProductListView::sortByHeader(int column)
{
    m_proxy->promoteColumn(column);
    // The header flips its own indicator on every click, the check box column included.
    const ProductSortProxy::SortKey& first = m_proxy->sortOrder().first();
    m_table->horizontalHeader()->setSortIndicator(first.column, first.order);
}

void ProductListView::toggleIfCheckCell(const QModelIndex& index)
{
    if (index.isValid() && index.column() == ProductTableModel::kCheckColumn)
        m_viewModel.toggleChecked(m_proxy->productAt(index.row()));
}

void ProductListView::writeSelection()
{
    const QModelIndexList rows = m_table->selectionModel()->selectedRows();
    if (!m_showingSelection)
        m_viewModel.setSelectedProductID(
            rows.isEmpty() ? std::nullopt
                           : std::optional<qint64>(m_proxy->productAt(rows.first().row()).ID));
}

void ProductListView::showSelection()
{
    const std::optional<qint64> productID = m_viewModel.selectedProductID();
    const std::optional<int> row = productID ? displayedRow(*productID) : std::nullopt;
    QItemSelectionModel* selection = m_table->selectionModel();
    const bool shown = row ? selection->isRowSelected(*row, {}) : !selection->hasSelection();
    if (shown)
        return;

    m_showingSelection = true;
    if (row) {
        const QModelIndex index = m_proxy->index(*row, ProductTableModel::kSKUColumn);
        selection->setCurrentIndex(index,
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        m_table->scrollTo(index);
    } else {
        // The product is not among the displayed rows; the model keeps it selected.
        selection->clearSelection();
    }
    m_showingSelection = false;
}

std::optional<int> ProductListView::displayedRow(qint64 productID) const
{
    const QModelIndexList found = m_proxy->match(
        m_proxy->index(0, 0), ProductTableModel::kProductIDRole, productID, 1, Qt::MatchExactly);
    return found.isEmpty() ? std::nullopt : std::optional(found.first().row());
}

void ProductListView::handleSpacebarPress()
{
    const std::optional<qint64> productID = m_viewModel.selectedProductID();
    if (!productID)
        return;
    std::optional<int> row = displayedRow(*productID);
    if (!row)
        return;
    m_viewModel.toggleChecked(m_proxy->productAt(*row));

    // Looked up again: the toggle may have changed what is displayed.
    row = displayedRow(*productID);
    if (row && *row + 1 < m_proxy->rowCount())
        m_viewModel.setSelectedProductID(m_proxy->productAt(*row + 1).ID);
}
