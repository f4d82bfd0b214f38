#include "SimulatedProductService.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrlQuery>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using Failure = SimulatedProductService::Failure;
using Response = LoopbackHttpServer::Response;

// In the order of the enum.
const QStringList kFailureNames{u"none"_s, u"http-500"_s, u"hang"_s, u"invalid-json"_s,
                                u"error-text"_s};

Response errorResponse(int status, const QString& message)
{
    return Response::json(
        QJsonDocument(QJsonObject{{u"error"_s, message}}).toJson(QJsonDocument::Compact), status);
}

// A decimal integer of at least zero; nothing for a missing or malformed value.
std::optional<qint64> queryNumber(const QUrlQuery& query, const QString& key)
{
    if (!query.hasQueryItem(key))
        return std::nullopt;
    bool ok = false;
    const qint64 value = query.queryItemValue(key).toLongLong(&ok);
    if (!ok || value < 0)
        return std::nullopt;
    return value;
}

} // namespace

std::optional<SimulatedProductService::Failure>
SimulatedProductService::failureFromName(QStringView name)
{
    const qsizetype index = kFailureNames.indexOf(name);
    return index < 0 ? std::nullopt : std::optional(Failure(index));
}

QStringList SimulatedProductService::failureNames()
{
    return kFailureNames;
}

QString SimulatedProductService::failureName(Failure failure)
{
    return kFailureNames.value(qsizetype(failure));
}

SimulatedProductService::SimulatedProductService(ProductCatalogue catalogue, QString apiKey,
                                                 QObject* parent)
    : QObject(parent), m_catalogue(catalogue), m_apiKey(std::move(apiKey))
{
    m_server.setHandler([this](const Request& request) { return answerAndLog(request); });
}

bool SimulatedProductService::listen(quint16 port)
{
    return m_server.listen(port);
}

SimulatedProductService::Response SimulatedProductService::answerAndLog(const Request& request)
{
    Answer answered = answer(request);
    QString summary =
        QString::fromLatin1(request.method) + u' ' + QString::fromLatin1(request.path);
    if (!request.query.isEmpty())
        summary += u'?' + QString::fromLatin1(request.query);
    summary += u"  bookyear \"%1\"  -> %2"_s.arg(QString::fromUtf8(request.header("Bookyear")),
                                                 answered.outcome);
    emit requestAnswered(summary);
    answered.response.delay = m_delay;
    return answered.response;
}

SimulatedProductService::Answer SimulatedProductService::answer(const Request& request) const
{
    if (request.path != "/product")
        return {errorResponse(404, u"Not found"_s), u"404"_s};
    if (request.method != "GET")
        return {errorResponse(405, u"Method not allowed"_s), u"405"_s};
    if (std::optional<Answer> failure = failureAnswer())
        return *failure;
    if (m_apiKey.isEmpty() || request.header("ApiKey") != m_apiKey.toUtf8())
        return {errorResponse(401, u"Invalid API key"_s), u"401 (unknown API key)"_s};
    return productPage(request);
}

SimulatedProductService::Answer SimulatedProductService::productPage(const Request& request) const
{
    const QUrlQuery query(QString::fromUtf8(request.query));
    const std::optional<qint64> limit = queryNumber(query, u"limit"_s);
    const std::optional<qint64> offset = queryNumber(query, u"offset"_s);
    if (!limit || !offset)
        return {errorResponse(400, u"limit and offset must be whole numbers of at least 0"_s),
                u"400 (bad limit or offset)"_s};

    QJsonArray data;
    const QList<Product> products = m_catalogue.page(*offset, *limit);
    for (const Product& product : products)
        data.append(product.toJson());
    const QJsonObject envelope{
        {u"data"_s, data},
        {u"records"_s, qint64(m_catalogue.size())},
        {u"error"_s, u""_s},
    };
    return {Response::json(QJsonDocument(envelope).toJson(QJsonDocument::Compact)),
            u"200, %1 of %2 products"_s.arg(products.size()).arg(m_catalogue.size())};
}

std::optional<SimulatedProductService::Answer> SimulatedProductService::failureAnswer() const
{
    switch (m_failure) {
    case Failure::none:
        break;
    case Failure::serverError:
        return Answer{errorResponse(500, u"Internal server error"_s), u"500 (simulated)"_s};
    case Failure::hang: {
        Response silent;
        silent.mode = Response::Mode::neverAnswer;
        return Answer{silent, u"no answer (simulated hang)"_s};
    }
    case Failure::invalidJson: {
        Response html;
        html.headers.append({QByteArray("Content-Type"), QByteArray("text/html")});
        html.body = "<html><body>Onderhoud</body></html>";
        return Answer{html, u"200 with a body that is no JSON (simulated)"_s};
    }
    case Failure::errorText:
        return Answer{Response::json(QJsonDocument(QJsonObject{{u"error"_s, kErrorText.toString()}})
                                         .toJson(QJsonDocument::Compact)),
                      u"200 with an error text (simulated)"_s};
    }
    return std::nullopt;
}
