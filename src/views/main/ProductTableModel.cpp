#include "views/main/ProductTableModel.h"

#include "viewmodels/ProductListViewModel.h"
#include "views/common/Theme.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

QVariant displayText(const Product& product, int column)
{
    switch (column) {
    case ProductTableModel::kSKUColumn:
        return product.sku();
    case ProductTableModel::kNameColumn:
        return product.displayName();
    case ProductTableModel::kPriceColumn: // two decimals and a full stop, whatever the language
        return product.SellPrice1WithVat
                   ? u"€ "_s + QString::asprintf("%.2f", *product.SellPrice1WithVat)
                   : u"€ -"_s;
    case ProductTableModel::kBarcodeColumn:
        return product.barcode();
    default:
        return {};
    }
}

} // namespace

ProductTableModel::ProductTableModel(ProductListViewModel& viewModel, QObject* parent)
    : QAbstractTableModel(parent), m_viewModel(viewModel), m_bodyFont(Theme::body()),
      m_monospacedFont(Theme::monospaced(13))
{
    connect(&m_viewModel, &ProductListViewModel::filteredProductsAboutToChange, this,
            &ProductTableModel::beginResetModel);
    connect(&m_viewModel, &ProductListViewModel::filteredProductsChanged, this,
            &ProductTableModel::endResetModel);
    connect(&m_viewModel, &ProductListViewModel::checkedProductIDsChanged, this,
            &ProductTableModel::refreshChecks);
}

int ProductTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_viewModel.filteredCount());
}

int ProductTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kColumnCount;
}

QVariant ProductTableModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const Product& product = productAt(index.row());
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return displayText(product, column);
    case Qt::AccessibleTextRole: // a screen reader names the check box after its product
        return column == kCheckColumn ? product.displayName() : QVariant();
    case Qt::CheckStateRole:
        return column != kCheckColumn           ? QVariant()
               : m_viewModel.isChecked(product) ? Qt::Checked
                                                : Qt::Unchecked;
    case Qt::FontRole:
        return column == kSKUColumn || column == kBarcodeColumn ? m_monospacedFont : m_bodyFont;
    case Qt::TextAlignmentRole:
        if (column == kCheckColumn)
            return int(Qt::AlignCenter);
        return int((column == kPriceColumn ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    case kProductIDRole:
        return product.ID;
    default:
        return {};
    }
}

QVariant ProductTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const std::array<QString, kColumnCount> kTitles{
        QString(), u"Artikel nr."_s, u"Omschrijving"_s, u"Verkoop incl."_s, u"Barcode"_s};
    if (orientation != Qt::Horizontal || section < 0 || section >= kColumnCount)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (role) {
    case Qt::DisplayRole:
        return kTitles[size_t(section)];
    case Qt::TextAlignmentRole:
        return int((section == kPriceColumn ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    case Qt::InitialSortOrderRole:
        return int(Qt::AscendingOrder);
    default:
        return {};
    }
}

Qt::ItemFlags ProductTableModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    // Checkable so that screen readers tell checked from unchecked; the toggling
    // itself goes through the view model (a click or the space bar), never setData.
    return index.column() == kCheckColumn ? flags | Qt::ItemIsUserCheckable : flags;
}

const Product& ProductTableModel::productAt(int row) const
{
    return m_viewModel.filteredAt(row);
}

void ProductTableModel::refreshChecks()
{
    const int rows = rowCount();
    if (rows > 0)
        emit dataChanged(index(0, kCheckColumn), index(rows - 1, kCheckColumn),
                         {Qt::CheckStateRole});
}
