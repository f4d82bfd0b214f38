#include "LoadedModel.h"

#include "BenchCatalogue.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

LoadedModel::LoadedModel(qsizetype productCount)
{
    const QByteArray body = BenchCatalogue::envelope(productCount);
    m_server.setHandler([body](const LoopbackHttpServer::Request&) {
        return LoopbackHttpServer::Response::json(body);
    });
    if (!m_server.listen())
        throw std::runtime_error("the product service could not listen on loopback");

    m_settings = std::make_unique<AppSettings>();
    Dossier dossier;
    dossier.name = u"Bench"_s;
    dossier.apiKey = u"bench-key"_s;
    m_settings->setDossiers({dossier});
    m_settings->setSelectedDossierID(dossier.id);

    m_model = std::make_unique<ProductListViewModel>(m_server.baseUrl());
    m_model->setSettings(m_settings.get());
    QCoro::waitFor(m_model->fetchProducts());
    if (m_model->products().size() != productCount)
        throw std::runtime_error("the model did not load the whole catalogue");
}
