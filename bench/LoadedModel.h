#pragma once

#include "BenchHome.h"
#include "LoopbackHttpServer.h"
#include "model/AppSettings.h"
#include "viewmodels/ProductListViewModel.h"

#include <memory>

// A product list model loaded the way the app loads it: through its own client
// from a product service on loopback, with a settings store in a private home.
class LoadedModel
{
public:
    explicit LoadedModel(qsizetype productCount);

    ProductListViewModel& model() { return *m_model; }
    AppSettings& settings() { return *m_settings; }
    LoopbackHttpServer& server() { return m_server; }

private:
    BenchHome m_home;
    LoopbackHttpServer m_server;
    std::unique_ptr<AppSettings> m_settings;
    std::unique_ptr<ProductListViewModel> m_model;
};
