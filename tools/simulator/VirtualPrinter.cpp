#include "VirtualPrinter.h"

#include "UnansweredPort.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTcpServer>
#include <algorithm>
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
      m_jobDirectory(std::move(jobDirectory))
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
    if (m_failure == Failure::refuse) {
        // Refusing needs no socket at all; only a port that nothing else listens on.
        QTcpServer probe;
        if (!probe.listen(QHostAddress::LocalHost, port)) {
            *error = u"port %1 is in use, so it would not refuse"_s.arg(port);
            return false;
        }
        m_port = probe.serverPort();
        return true;
    }
    if (m_failure == Failure::hang) {
        m_unanswered = std::make_unique<UnansweredPort>();
        if (!m_unanswered->open(port, error))
            return false;
        m_port = m_unanswered->port();
        return true;
    }
    using Behaviour = LabelSink::Behaviour;
    m_sink.setBehaviour(m_failure == Failure::slow    ? Behaviour::readSlowly
                        : m_failure == Failure::drop  ? Behaviour::closeAtOnce
                        : m_failure == Failure::reset ? Behaviour::resetMidTransfer
                                                      : Behaviour::normal);
    if (!m_sink.listen(port)) {
        *error = u"cannot listen on 127.0.0.1:%1"_s.arg(port);
        return false;
    }
    m_port = m_sink.port();
    return true;
}

void VirtualPrinter::onJob(const QByteArray& job)
{
    if (job.isEmpty()) {
        emit emptyConnection();
        return;
    }
    QString error;
    const std::optional<QString> path = writeJob(job, &error);
    if (!path) {
        emit jobNotWritten(error);
        return;
    }
    const QString picture = writePicture(*path, job);
    emit jobWritten(*path, job);
    if (!picture.isEmpty())
        emit pictureNotWritten(picture);
}

// Keeps the job as its own file, "job-000001.zpl" and up, holding the bytes
// exactly as they arrived. Numbering continues after the jobs already in the
// folder, and an existing file is never replaced.
std::optional<QString> VirtualPrinter::writeJob(const QByteArray& job, QString* error)
{
    const QDir folder(m_jobDirectory);
    if (!QDir().mkpath(m_jobDirectory)) {
        *error = u"cannot create %1"_s.arg(m_jobDirectory);
        return std::nullopt;
    }
    if (m_nextJobNumber == 0) {
        static const QRegularExpression pattern(u"^job-(\\d+)\\.zpl$"_s);
        for (const QString& name : folder.entryList({u"job-*.zpl"_s}, QDir::Files))
            m_nextJobNumber = std::max(m_nextJobNumber, pattern.match(name).captured(1).toInt());
        ++m_nextJobNumber;
    }
    // Enough to get past files another process creates at the same moment.
    for (int attempt = 0; attempt < 100; ++attempt) {
        QFile file(folder.filePath(u"job-%1.zpl"_s.arg(m_nextJobNumber++, 6, 10, QChar(u'0'))));
        if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly) && file.exists())
            continue;
        if (!file.isOpen() || file.write(job) != job.size() || !file.flush()) {
            *error = u"%1: %2"_s.arg(file.fileName(), file.errorString());
            return std::nullopt;
        }
        return file.fileName();
    }
    *error = u"no free job number in %1"_s.arg(m_jobDirectory);
    return std::nullopt;
}

// Draws the job as the printer would print it beside it: "job-000001.png" next
// to "job-000001.zpl". Only the first label is kept, so only the first is
// drawn. Returns why it could not, if so.
QString VirtualPrinter::writePicture(const QString& jobPath, const QByteArray& job)
{
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return u"drawing needs a QGuiApplication"_s;
    if (!m_renderer)
        m_renderer.emplace(); // at the first job: it loads fonts
    // The printer transport sends the text as UTF-8; the renderer takes it back as such.
    const LabelRenderResult rendering = m_renderer->render(QString::fromUtf8(job), 1);
    if (rendering.labels.isEmpty())
        return u"no label (^XA...^XZ) in the job"_s;
    const QFileInfo info(jobPath);
    QSaveFile file(info.dir().filePath(info.completeBaseName() + u".png"_s));
    if (!file.open(QIODevice::WriteOnly) ||
        !rendering.labels.constFirst().image.save(&file, "PNG") || !file.commit())
        return u"%1: %2"_s.arg(file.fileName(), file.errorString());
    return {};
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
