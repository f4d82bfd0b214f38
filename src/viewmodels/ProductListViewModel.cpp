#include "viewmodels/ProductListViewModel.h"

#include "BuildConfig.h"

#include <QTimer>
#include <numeric>

using namespace Qt::StringLiterals;

ProductListViewModel::ProductListViewModel(QObject* parent)
    : ProductListViewModel(QString::fromUtf16(BuildConfig::kDefaultBaseURL), parent)
{}

ProductListViewModel::ProductListViewModel(const QString& baseURL, QObject* parent)
    : QObject(parent), m_apiService(baseURL)
{}

ProductListViewModel::~ProductListViewModel() = default;

void ProductListViewModel::setSettings(AppSettings* settings)
{
    m_settings = settings;
}

QList<Product> ProductListViewModel::filteredProducts() const
{
    QList<Product> result;
    result.reserve(m_filteredIndexes.size());
    for (qsizetype index : m_filteredIndexes)
        result.append(m_products[index]);
    return result;
}

void ProductListViewModel::setSearchText(const QString& text)
{
    emit filteredProductsAboutToChange();
    m_searchText = text;
    applyFilter();
    emit searchTextChanged();
    emit filteredProductsChanged();
}

void ProductListViewModel::setSelectedProductID(std::optional<qint64> id)
{
    m_selectedProductID = id;
    emit selectedProductIDChanged();
}

void ProductListViewModel::setCheckedProductIDs(const QSet<qint64>& ids)
{
    m_checkedProductIDs = ids;
    emit checkedProductIDsChanged();
}

void ProductListViewModel::setPrintQuantity(qint64 quantity)
{
    m_printQuantity = quantity;
    emit printQuantityChanged();
}

std::optional<Product> ProductListViewModel::selectedProduct() const
{
    if (!m_selectedProductID)
        return std::nullopt;
    for (const Product& product : m_products) {
        if (product.ID == *m_selectedProductID)
            return product;
    }
    return std::nullopt;
}

QList<Product> ProductListViewModel::checkedProducts() const
{
    QList<Product> result;
    if (m_checkedProductIDs.isEmpty())
        return result;
    for (qsizetype index : m_filteredIndexes) {
        if (m_checkedProductIDs.contains(m_products[index].ID))
            result.append(m_products[index]);
    }
    return result;
}

QCoro::Task<> ProductListViewModel::fetchProducts()
{
    const std::optional<Dossier> dossier =
        m_settings ? m_settings->selectedDossier() : std::optional<Dossier>();
    if (!dossier || dossier->apiKey.isEmpty()) {
        setErrorMessage(u"Selecteer een dossier met API key in Instellingen"_s);
        co_return;
    }
    setIsLoading(true);
    setErrorMessage(std::nullopt);

    QPointer<ProductListViewModel> self(this);
    auto result =
        co_await m_apiService.fetchProducts(dossier->apiKey, m_settings->bookyear(), kPageLimit, 0);
    if (!self)
        co_return;
    if (result)
        setProducts(std::move(result.value()));
    else
        setErrorMessage(result.error().errorDescription());
    setIsLoading(false);
}

QCoro::Task<> ProductListViewModel::printLabel(Product product)
{
    if (!m_settings) {
        setErrorMessage(u"Instellingen niet geladen"_s);
        co_return;
    }
    const std::optional<LabelTemplate> labelTemplate = m_settings->selectedTemplate();
    if (!labelTemplate) {
        setErrorMessage(u"Geen etiket geselecteerd"_s);
        co_return;
    }
    const std::optional<Printer> printer = m_settings->printerFor(*labelTemplate);
    if (!printer) {
        setErrorMessage(
            u"Geen printer geselecteerd voor dit etiket. Selecteer een printer in Instellingen."_s);
        co_return;
    }
    if (printer->ipAddress.isEmpty()) {
        setErrorMessage(u"Printer '"_s + printer->name +
                        u"' heeft geen IP adres. Configureer dit in Instellingen."_s);
        co_return;
    }

    const std::optional<QString> zpl = m_zplService.generateZPL(product, labelTemplate->zplContent);
    if (!zpl) {
        setErrorMessage(ZPLService::labelTooLargeMessage());
        co_return;
    }
    QPointer<ProductListViewModel> self(this);
    const std::optional<PrinterError> error =
        co_await m_printerService.sendZPL(*zpl, printer->ipAddress, printer->port);
    if (!self)
        co_return;
    if (error) {
        setErrorMessage(error->errorDescription());
        co_return;
    }
    const QString message = u"Etiket geprint voor "_s + product.sku();
    setSuccessMessage(message);
    clearSuccessLater(message);
}

QCoro::Task<> ProductListViewModel::printCheckedLabels()
{
    const QList<Product> run = checkedProducts();
    QPointer<ProductListViewModel> self(this);
    for (const Product& product : run) {
        // The quantity may change while a run is under way; each product reads it afresh.
        const qint64 copies = m_printQuantity;
        for (qint64 copy = 0; copy < copies; ++copy) {
            co_await printLabel(product);
            if (!self)
                co_return;
        }
    }
}

void ProductListViewModel::toggleChecked(const Product& product)
{
    if (!m_checkedProductIDs.remove(product.ID))
        m_checkedProductIDs.insert(product.ID);
    emit checkedProductIDsChanged();
}

bool ProductListViewModel::isChecked(const Product& product) const
{
    return m_checkedProductIDs.contains(product.ID);
}

void ProductListViewModel::clearChecked()
{
    setCheckedProductIDs({});
}

void ProductListViewModel::clearError()
{
    setErrorMessage(std::nullopt);
}

void ProductListViewModel::clearSuccess()
{
    setSuccessMessage(std::nullopt);
}

void ProductListViewModel::setIsLoading(bool loading)
{
    m_isLoading = loading;
    emit isLoadingChanged();
}

void ProductListViewModel::setErrorMessage(const std::optional<QString>& message)
{
    m_errorMessage = message;
    emit errorMessageChanged();
}

void ProductListViewModel::setSuccessMessage(const std::optional<QString>& message)
{
    m_successMessage = message;
    emit successMessageChanged();
}

void ProductListViewModel::clearSuccessLater(const QString& message)
{
    // Only the message this label set is cleared; a newer one stays. Precise:
    // a coarse timer may fire up to 5% early.
    QTimer::singleShot(m_successMessageMs, Qt::PreciseTimer, this, [this, message] {
        if (m_successMessage == message)
            clearSuccess();
    });
}

void ProductListViewModel::setProducts(QList<Product> products)
{
    emit filteredProductsAboutToChange();
    m_products = std::move(products);
    m_searchTexts.clear();
    applyFilter();
    emit productsChanged();
    emit filteredProductsChanged();
}

void ProductListViewModel::makeSearchTexts()
{
    m_searchTexts.clear();
    m_searchTexts.reserve(m_products.size());
    for (const Product& product : std::as_const(m_products)) {
        m_searchTexts.append(
            {searchable(product.sku()), searchable(product.displayName()),
             searchable(product.barcode()),
             product.Description ? std::optional(searchable(*product.Description)) : std::nullopt});
    }
}

QString ProductListViewModel::searchable(const QString& text)
{
    // One form for composed and decomposed accents, so "é" finds "e" + U+0301 too.
    return text.normalized(QString::NormalizationForm_C).toLower();
}

bool ProductListViewModel::SearchTexts::contains(QStringView query) const
{
    return QStringView(sku).contains(query) || QStringView(displayName).contains(query) ||
           QStringView(barcode).contains(query) ||
           (description && QStringView(*description).contains(query));
}

void ProductListViewModel::applyFilter()
{
    m_filteredIndexes.clear();
    if (m_searchText.isEmpty()) {
        m_filteredIndexes.resize(m_products.size());
        std::iota(m_filteredIndexes.begin(), m_filteredIndexes.end(), qsizetype(0));
        return;
    }
    if (m_searchTexts.size() != m_products.size())
        makeSearchTexts();
    const QString query = searchable(m_searchText);
    for (qsizetype index = 0; index < m_products.size(); ++index) {
        if (m_searchTexts[index].contains(query))
            m_filteredIndexes.append(index);
    }
}
