#pragma once

#include "LabelSink.h"
#include "LoopbackHttpServer.h"
#include "TestHome.h"
#include "services/Product.h"

#include <chrono>
#include <memory>

class AppSettings;
class ProductListViewModel;

// A temporary home, a product service and a label printer on 127.0.0.1, and
// a store that points at them: what the product window needs in a test.
class ProductWindowFixture
{
public:
    ProductWindowFixture();
    ~ProductWindowFixture();

    bool isReady() const;

    LoopbackHttpServer& server() { return m_server; }
    LabelSink& sink() { return m_sink; }
    // Requests for the product list so far.
    int productRequestCount() const;

    // The service answers with these products from now on.
    void serveProducts(const QList<Product>& products,
                       std::chrono::milliseconds delay = std::chrono::milliseconds(0));
    // The service answers with this status and no products from now on.
    void serveStatus(int status);

    // One dossier with an API key, one printer on the sink and one template
    // bound to it, all selected: in a new store or an existing one.
    std::unique_ptr<AppSettings> makeConfiguredSettings() const;
    void configure(AppSettings& settings) const;
    // A view model that loads from the fixture's service.
    std::unique_ptr<ProductListViewModel> makeViewModel() const;

    // The label bytes the sink should receive for a product.
    static QByteArray expectedLabel(const Product& product);

    static Product product(qint64 id, const QString& sku, const QString& name,
                           std::optional<double> price = 1.0, const QString& barcode = {});

private:
    TestHome m_home;
    LoopbackHttpServer m_server;
    LabelSink m_sink;
    LoopbackHttpServer::Response m_response;
};
