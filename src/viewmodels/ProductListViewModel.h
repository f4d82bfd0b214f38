#pragma once

#include "model/AppSettings.h"
#include "services/KalmoraAPIService.h"
#include "services/PrinterService.h"
#include "services/Product.h"
#include "services/ZPLService.h"

#include <QCoroTask>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QString>
#include <optional>

// State and actions of the product window: loading, searching, selection,
// checked products, print quantity, printing and the user messages.
class ProductListViewModel : public QObject
{
    Q_OBJECT

public:
    static constexpr qint64 kPageLimit = 1000;
    static constexpr int kSuccessMessageMs = 3000;

    // The client gets `baseURL`; the default is the built-in service address.
    explicit ProductListViewModel(QObject* parent = nullptr);
    ProductListViewModel(const QString& baseURL, QObject* parent = nullptr);
    ~ProductListViewModel() override;

    // Not owned; set by the main window when it appears.
    AppSettings* settings() const { return m_settings; }
    void setSettings(AppSettings* settings);

    const QList<Product>& products() const { return m_products; }
    // Views read the filtered rows through these without copying products.
    qsizetype filteredCount() const { return m_filteredIndexes.size(); }
    const Product& filteredAt(qsizetype row) const { return m_products[m_filteredIndexes[row]]; }
    QList<Product> filteredProducts() const;

    const QString& searchText() const { return m_searchText; }
    void setSearchText(const QString& text);
    bool isLoading() const { return m_isLoading; }
    const std::optional<QString>& errorMessage() const { return m_errorMessage; }
    const std::optional<QString>& successMessage() const { return m_successMessage; }
    std::optional<qint64> selectedProductID() const { return m_selectedProductID; }
    void setSelectedProductID(std::optional<qint64> id);
    const QSet<qint64>& checkedProductIDs() const { return m_checkedProductIDs; }
    void setCheckedProductIDs(const QSet<qint64>& ids);
    qint64 printQuantity() const { return m_printQuantity; }
    void setPrintQuantity(qint64 quantity);
    // How long a success message stays; tests shorten it.
    void setSuccessMessageDuration(int milliseconds) { m_successMessageMs = milliseconds; }

    std::optional<Product> selectedProduct() const;
    QList<Product> checkedProducts() const;

    QCoro::Task<> fetchProducts();
    QCoro::Task<> printLabel(Product product);
    QCoro::Task<> printCheckedLabels();

    void toggleChecked(const Product& product);
    bool isChecked(const Product& product) const;
    void clearChecked();
    void clearError();
    void clearSuccess();

signals:
    // Sent while the old filtered list still stands, before a load or a search replaces it.
    void filteredProductsAboutToChange();
    // Sent once products, the filtered list and the search texts all agree.
    void productsChanged();
    void filteredProductsChanged();
    void searchTextChanged();
    void isLoadingChanged();
    void errorMessageChanged();
    void successMessageChanged();
    void selectedProductIDChanged();
    void checkedProductIDsChanged();
    void printQuantityChanged();

private:
    // Normalised and lower-cased at the first search after a load, so a
    // keystroke only scans and the load does not wait for them.
    struct SearchTexts
    {
        QString sku;
        QString displayName;
        QString barcode;
        std::optional<QString> description;

        bool contains(QStringView query) const;
    };

    void setIsLoading(bool loading);
    void setErrorMessage(const std::optional<QString>& message);
    void setSuccessMessage(const std::optional<QString>& message);
    void setProducts(QList<Product> products);
    void applyFilter();
    void makeSearchTexts();
    static QString searchable(const QString& text);
    void clearSuccessLater(const QString& message);

    QPointer<AppSettings> m_settings;
    KalmoraAPIService m_apiService;
    ZPLService m_zplService;
    PrinterService m_printerService;

    QList<Product> m_products;
    QList<SearchTexts> m_searchTexts;
    // Positions into m_products of the products matching m_searchText, in order.
    QList<qsizetype> m_filteredIndexes;
    QString m_searchText;
    bool m_isLoading = false;
    std::optional<QString> m_errorMessage;
    std::optional<QString> m_successMessage;
    std::optional<qint64> m_selectedProductID;
    QSet<qint64> m_checkedProductIDs;
    qint64 m_printQuantity = 1;
    int m_successMessageMs = kSuccessMessageMs;
};
