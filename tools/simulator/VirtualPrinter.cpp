#include "VirtualPrinter.h"

#include "UnansweredPort.h"

#include <QTcpServer>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMaxFieldDataShown = 60;

using Failure = VirtualPrinter::Failure;

constexpr std::array<std::pair<Failure, QStringView>, 6> kFailureNames{{
    {Failure::none, u"none"},
    {Failure::refuse, u"refuse"},
    {Failure::hang, u"hang"},
    {Failure::slow, u"slow"},
    {Failure::drop, u"drop"},
    {Failure::reset, u"reset"},
}};

LabelSink::Behaviour sinkBehaviour(Failure failure)
{
    switch (failure) {
    case Failure::slow:
        return LabelSink::Behaviour::readSlowly;
    case Failure::drop:
        return LabelSink::Behaviour::closeAtOnce;
    case Failure::reset:
        return LabelSink::Behaviour::resetMidTransfer;
    case Failure::none:
    case Failure::refuse:
    case Failure::hang:
        break;
    }
    return LabelSink::Behaviour::normal;
}

} // namespace

std::optional<VirtualPrinter::Failure> VirtualPrinter::failureFromName(QStringView name)
{
    for (const auto& [failure, failureName] : kFailureNames) {
        if (failureName == name)
            return failure;
    }
    return std::nullopt;
}

QStringList VirtualPrinter::failureNames()
{
    QStringList names;
    for (const auto& entry : kFailureNames)
        names.append(entry.second.toString());
    return names;
}

QString VirtualPrinter::failureName(Failure failure)
{
    for (const auto& [candidate, name] : kFailureNames) {
        if (candidate == failure)
            return name.toString();
    }
    return {};
}

VirtualPrinter::VirtualPrinter(QString name, QString jobDirectory, Failure failure, QObject* parent)
    : QObject(parent), m_name(std::move(name)), m_failure(failure),
      m_writer(std::move(jobDirectory))
{
    connect(&m_sink, &LabelSink::jobReceived, this, &VirtualPrinter::onJob);
}

VirtualPrinter::~VirtualPrinter() = default;

bool VirtualPrinter::start(quint16 port, QString* error)
{
    switch (m_failure) {
    case Failure::refuse:
        return reservePort(port, error);
    case Failure::hang:
        m_unanswered = std::make_unique<UnansweredPort>();
        if (!m_unanswered->open(port, error))
            return false;
        m_port = m_unanswered->port();
        return true;
    case Failure::none:
    case Failure::slow:
    case Failure::drop:
    case Failure::reset:
        break;
    }
    return startSink(port, error);
}

bool VirtualPrinter::startSink(quint16 port, QString* error)
{
    m_sink.setBehaviour(sinkBehaviour(m_failure));
    if (!m_sink.listen(port)) {
        *error = u"cannot listen on 127.0.0.1:%1"_s.arg(port);
        return false;
    }
    m_port = m_sink.port();
    return true;
}

// Refusing needs no socket at all; only a port that nothing else listens on.
bool VirtualPrinter::reservePort(quint16 port, QString* error)
{
    QTcpServer probe;
    if (!probe.listen(QHostAddress::LocalHost, port)) {
        *error = u"port %1 is in use, so it would not refuse"_s.arg(port);
        return false;
    }
    m_port = probe.serverPort();
    return true;
}

void VirtualPrinter::onJob(const QByteArray& job)
{
    if (job.isEmpty()) {
        emit emptyConnection();
        return;
    }
    QString error;
    if (const std::optional<QString> path = m_writer.write(job, &error))
        emit jobWritten(*path, job);
    else
        emit jobNotWritten(error);
}

QString VirtualPrinter::firstFieldData(const QByteArray& job)
{
    const qsizetype start = job.indexOf("^FD");
    if (start < 0)
        return {};
    const qsizetype dataStart = start + 3;
    qsizetype end = job.indexOf('^', dataStart);
    if (end < 0)
        end = job.size();
    QString data = QString::fromUtf8(job.mid(dataStart, end - dataStart)).trimmed();
    if (data.size() > kMaxFieldDataShown)
        data = data.left(kMaxFieldDataShown - 1) + u'…';
    return data;
}
