#include "VirtualPrinter.h"

#include "UnansweredPort.h"

#include <QTcpServer>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMaxFieldDataShown = 60;

using Failure = VirtualPrinter::Failure;
using State = VirtualPrinter::State;

// In the order of the enums.
const QStringList kFailureNames{u"none"_s, u"refuse"_s, u"hang"_s,
                                u"slow"_s, u"drop"_s,   u"reset"_s};
const QStringList kStateNames{u"ready"_s,     u"paper-out"_s,  u"paused"_s,
                              u"head-open"_s, u"ribbon-out"_s, u"buffer-full"_s};

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
    const qsizetype index = kFailureNames.indexOf(name);
    return index < 0 ? std::nullopt : std::optional(Failure(index));
}

QStringList VirtualPrinter::failureNames()
{
    return kFailureNames;
}

QString VirtualPrinter::failureName(Failure failure)
{
    return kFailureNames.value(qsizetype(failure));
}

std::optional<VirtualPrinter::State> VirtualPrinter::stateFromName(QStringView name)
{
    const qsizetype index = kStateNames.indexOf(name);
    return index < 0 ? std::nullopt : std::optional(State(index));
}

QStringList VirtualPrinter::stateNames()
{
    return kStateNames;
}

QString VirtualPrinter::stateName(State state)
{
    return kStateNames.value(qsizetype(state));
}

QByteArray VirtualPrinter::statusAnswer(State state)
{
    if (state == State::headOpen || state == State::ribbonOut)
        return {};
    const auto bit = [state](State set) {
        return state == set ? '1' : '0';
    };
    // A 4-inch printer with 6-inch labels (1218 dots), tear-off, no format waiting.
    return QByteArray("\x02"
                      "030,") +
           bit(State::paperOut) + ',' + bit(State::paused) + ",1218,000," + bit(State::bufferFull) +
           ",0,0,000,0,0,0\x03\r\n" +
           "\x02"
           "000,0,0,0,1,2,6,0,00000000,1,000\x03\r\n" +
           "\x02"
           "1234,0\x03\r\n";
}

VirtualPrinter::VirtualPrinter(QString name, QString jobDirectory, Failure failure, State state,
                               QObject* parent)
    : QObject(parent), m_name(std::move(name)), m_failure(failure), m_state(state),
      m_writer(std::move(jobDirectory))
{
    connect(&m_sink, &LabelSink::jobReceived, this, &VirtualPrinter::onJob);
    connect(&m_sink, &LabelSink::statusQueried, this, &VirtualPrinter::statusQueried);
    m_sink.setStatusAnswer(statusAnswer(state));
    m_sink.setMaxJobBytes(kMaxJobBytes);
    connect(&m_sink, &LabelSink::jobTooLarge, this, [this] {
        emit jobNotWritten(u"more than %1 bytes, connection closed"_s.arg(kMaxJobBytes));
    });
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
    const std::optional<QString> path = m_writer.write(job, &error);
    if (!path) {
        emit jobNotWritten(error);
        return;
    }
    const std::optional<QString> picture = m_pictures.write(*path, job, &error);
    emit jobWritten(*path, job);
    if (!picture)
        emit pictureNotWritten(error);
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
