#include "ProductWindowFixture.h"

#include "model/AppSettings.h"
#include "viewmodels/ProductListViewModel.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

using namespace Qt::StringLiterals;

ProductWindowFixture::ProductWindowFixture()
{
    m_server.listen();
    m_sink.listen();
    serveProducts({});
    m_server.setHandler([this](const LoopbackHttpServer::Request&) { return m_response; });
}

ProductWindowFixture::~ProductWindowFixture() = default;

bool ProductWindowFixture::isReady() const
{
    return m_home.isValid() && m_server.port() != 0 && m_sink.port() != 0;
}

int ProductWindowFixture::productRequestCount() const
{
    const QList<LoopbackHttpServer::Request>& requests = m_server.requests();
    return int(std::count_if(requests.cbegin(), requests.cend(),
                             [](const auto& request) { return request.path == "/product"; }));
}

void ProductWindowFixture::serveProducts(const QList<Product>& products,
                                         std::chrono::milliseconds delay)
{
    QJsonArray data;
    for (const Product& product : products)
        data.append(product.toJson());
    m_response = LoopbackHttpServer::Response::json(
        QJsonDocument(QJsonObject{{u"data"_s, data}}).toJson(QJsonDocument::Compact));
    m_response.delay = delay;
}

void ProductWindowFixture::serveStatus(int status)
{
    m_response = LoopbackHttpServer::Response::json("{}", status);
}

std::unique_ptr<AppSettings> ProductWindowFixture::makeConfiguredSettings() const
{
    auto settings = std::make_unique<AppSettings>();
    configure(*settings);
    return settings;
}

void ProductWindowFixture::configure(AppSettings& settings) const
{
    const Dossier dossier{.name = u"Winkel"_s, .apiKey = u"key-1"_s};
    const Printer printer{.name = u"Balie"_s, .ipAddress = u"127.0.0.1"_s, .port = m_sink.port()};
    // Two placeholders, so every job at the sink names its product.
    const LabelTemplate label{
        QUuid::createUuid(), u"Schap"_s, u"^XA^FD{{ARTIKELNR}}|{{NAAM}}^FS^XZ"_s,
        printer.id,          {},         {}};
    settings.setDossiers({dossier});
    settings.setSelectedDossierID(dossier.id);
    settings.setPrinters({printer});
    settings.setTemplates({label});
    settings.setSelectedTemplateID(label.id);
}

std::unique_ptr<ProductListViewModel> ProductWindowFixture::makeViewModel() const
{
    return std::make_unique<ProductListViewModel>(m_server.baseUrl());
}

QByteArray ProductWindowFixture::expectedLabel(const Product& product)
{
    return "^XA^FD" + product.sku().toUtf8() + '|' + product.displayName().toUtf8() + "^FS^XZ";
}

Product ProductWindowFixture::product(qint64 id, const QString& sku, const QString& name,
                                      std::optional<double> price, const QString& barcode)
{
    Product product;
    product.ID = id;
    product.SellPrice1WithVat = price;
    // A null text stands for a field the service left out.
    if (!sku.isNull())
        product.Sku = sku;
    if (!name.isNull())
        product.Name = name;
    if (!barcode.isNull())
        product.BarCode = barcode;
    return product;
}
