#include "LabelSink.h"
#include "RunTask.h"
#include "services/PrinterService.h"

#include <QElapsedTimer>
#include <QNetworkProxy>
#include <QTcpServer>
#include <QThread>
#include <QtTest>
#include <algorithm>
#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using SendResult = std::optional<PrinterError>;

namespace {

const QString kLocalhost = u"127.0.0.1"_s;

QString describe(const SendResult& result)
{
    return result ? result->errorDescription() : u"success"_s;
}

// Distinct content and size per job, so a mix-up or a cut shows.
QString parallelLabel(int index)
{
    const QString filler = u"%1-"_s.arg(index).repeated(1 + (index * 997) % 4000);
    return u"^XA^FD#%1 %2^FS^XZ"_s.arg(index).arg(filler);
}

struct Completion
{
    int index = 0;
    SendResult result;
};

// A free function: its parameters live in the coroutine frame.
QCoro::Task<> sendAndRecord(const PrinterService* service, QString zpl, quint16 port, int index,
                            std::vector<Completion>* completions)
{
    SendResult result = co_await service->sendZPL(zpl, kLocalhost, port);
    completions->push_back({index, std::move(result)});
}

// How many bytes the kernel takes from a sender on loopback while the peer
// reads nothing, up to `limit`. Plain sockets: Qt would buffer in user space.
qint64 loopbackAbsorption(qint64 limit)
{
    QTcpServer listener; // never accepts: the kernel completes the handshake anyway
    if (!listener.listen(QHostAddress::LocalHost))
        return 0;
    const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(listener.serverPort());
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    qint64 total = 0;
    if (::connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0) {
        ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) | O_NONBLOCK);
        const QByteArray chunk(64 * 1024, 'x');
        QElapsedTimer clock;
        clock.start();
        // The send buffer grows as the peer's kernel acknowledges; give it a moment.
        while (total < limit && clock.elapsed() < 1000) {
            const ssize_t sent = ::send(fd, chunk.constData(), chunk.size(), MSG_NOSIGNAL);
            if (sent > 0)
                total += sent;
            else
                QThread::msleep(5);
        }
    }
    ::close(fd);
    return total;
}

} // namespace

class PrinterFaultTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void slowPrinterTakesAOneMebibyteLabel();
    void fiftyParallelJobsEachCompleteOnceAndArriveIntact();
};

void PrinterFaultTest::initTestCase()
{
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
}

// Success means the bytes reached the network stack (nothing is read back),
// and the time-out covers only that hand-over. This sink reads 25.6 kB/s and
// would need 41 s for the label, but Linux's loopback buffers take about
// 4 MiB from a sender whose peer reads nothing (the send buffer grows up to
// net.ipv4.tcp_wmem's maximum), so the whole label is handed over at once and
// the job succeeds within milliseconds, long before the 10 s time-out; the
// printer drains its buffer after the job has ended. Only a label larger than
// those buffers plus what the printer reads in 10 s ends as "Verbinding
// time-out" (the services tests show that with 8 MiB).
void PrinterFaultTest::slowPrinterTakesAOneMebibyteLabel()
{
    constexpr qint64 kLabelBytes = 1024 * 1024;
    const qint64 absorbed = loopbackAbsorption(kLabelBytes);
    if (absorbed < kLabelBytes)
        QSKIP(qPrintable(u"This kernel's loopback buffers take only %1 bytes"_s.arg(absorbed)));

    LabelSink sink;
    sink.setBehaviour(LabelSink::Behaviour::readSlowly);
    QVERIFY(sink.listen());
    const PrinterService service; // the real 10 s time-out
    const QString label = u"^XA^FD"_s + QString(kLabelBytes - 12, u'S') + u"^FS^XZ"_s;
    QCOMPARE(label.toUtf8().size(), kLabelBytes);

    QElapsedTimer clock;
    clock.start();
    const SendResult result = runTask(service.sendZPL(label, kLocalhost, sink.port()), 15s);
    const qint64 elapsed = clock.elapsed();
    qInfo("1 MiB to a slow printer: %s after %lld ms", qPrintable(describe(result)),
          static_cast<long long>(elapsed));
    QVERIFY2(!result, qPrintable(describe(result)));
    QVERIFY(elapsed < 2000);
    QCOMPARE(sink.connectionCount(), 1);
}

void PrinterFaultTest::fiftyParallelJobsEachCompleteOnceAndArriveIntact()
{
    constexpr int kJobs = 50;
    constexpr auto kTimeout = 3s;
    LabelSink sink;
    QVERIFY(sink.listen());
    const PrinterService service(kTimeout);

    QElapsedTimer clock;
    clock.start();
    std::vector<Completion> completions;
    std::vector<QCoro::Task<>> running;
    QList<QByteArray> expected;
    for (int i = 0; i < kJobs; ++i) {
        expected.append(parallelLabel(i).toUtf8());
        running.push_back(sendAndRecord(&service, parallelLabel(i), sink.port(), i, &completions));
    }
    QTRY_COMPARE_WITH_TIMEOUT(int(completions.size()), kJobs, 10000);
    for (const Completion& completion : completions)
        QVERIFY2(!completion.result, qPrintable(describe(completion.result)));
    QTRY_COMPARE_WITH_TIMEOUT(sink.jobs().size(), kJobs, 5000);

    // Every time-out has fired by now; none may complete a job a second time.
    QTest::qWait(std::max<qint64>(0, 3200 - clock.elapsed()));
    QCOMPARE(int(completions.size()), kJobs);
    std::vector<int> indexes;
    for (const Completion& completion : completions)
        indexes.push_back(completion.index);
    std::sort(indexes.begin(), indexes.end());
    QVERIFY(std::adjacent_find(indexes.begin(), indexes.end()) == indexes.end());

    QCOMPARE(sink.connectionCount(), kJobs);
    QList<QByteArray> received = sink.jobs();
    std::sort(received.begin(), received.end());
    std::sort(expected.begin(), expected.end());
    QVERIFY(received == expected); // byte-exact, none lost, none mixed
}

QTEST_GUILESS_MAIN(PrinterFaultTest)
#include "PrinterFaultTest.moc"
