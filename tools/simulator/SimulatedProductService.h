#pragma once

#include "LoopbackHttpServer.h"
#include "ProductCatalogue.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <chrono>
#include <optional>

// The invoicing service's product API on 127.0.0.1: GET /product with "limit"
// and "offset", the key in the "ApiKey" header, the {data, records, error}
// envelope. It can be made slow or broken to try the program's error paths.
class SimulatedProductService : public QObject
{
    Q_OBJECT

public:
    enum class Failure
    {
        none,
        serverError, // status 500
        hang,        // reads the request, never answers
        invalidJson, // status 200 with a body that is no JSON
        errorText,   // status 200 with the service's own "error" text
    };

    static std::optional<Failure> failureFromName(QStringView name);
    static QStringList failureNames();
    static QString failureName(Failure failure);

    static constexpr QStringView kErrorText = u"Boekjaar is niet geopend in deze administratie";

    SimulatedProductService(ProductCatalogue catalogue, QString apiKey, QObject* parent = nullptr);

    // Port 0 picks a free one.
    bool listen(quint16 port = 0);
    quint16 port() const { return m_server.port(); }
    QString baseUrl() const { return m_server.baseUrl(); }

    void setFailure(Failure failure) { m_failure = failure; }
    // Every answer waits this long first.
    void setDelay(std::chrono::milliseconds delay) { m_delay = delay; }

    const ProductCatalogue& catalogue() const { return m_catalogue; }

signals:
    // One line per request: what was asked and how it was answered.
    void requestAnswered(const QString& summary);

private:
    using Request = LoopbackHttpServer::Request;
    using Response = LoopbackHttpServer::Response;
    struct Answer
    {
        Response response;
        QString outcome; // for the log
    };

    Answer answer(const Request& request) const;
    Answer productPage(const Request& request) const;
    std::optional<Answer> failureAnswer() const;
    Response answerAndLog(const Request& request);

    ProductCatalogue m_catalogue;
    QString m_apiKey;
    Failure m_failure = Failure::none;
    std::chrono::milliseconds m_delay{0};
    LoopbackHttpServer m_server;
};
