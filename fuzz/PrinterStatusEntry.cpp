#include "FuzzCheck.h"
#include "FuzzEntries.h"
#include "services/PrinterStatus.h"

#include <algorithm>

using namespace Qt::StringLiterals;

// The input is the byte stream a printer sends after "~HS". It is fed the way
// the query reads it, whole, in two reads (split where the first byte points)
// and byte by byte; all three must end the same way.
namespace {

// A first read of `firstRead` bytes, then reads of `piece` bytes, stopping at
// the first outcome as the query does.
std::optional<PrinterStatus> feed(const QByteArray& stream, qsizetype firstRead, qsizetype piece)
{
    QByteArray received;
    for (qsizetype at = 0; at < stream.size();) {
        const qsizetype size = at == 0 ? firstRead : piece;
        received.append(stream.mid(at, size));
        at += size;
        if (std::optional<PrinterStatus> status = PrinterStatus::fromReceived(received))
            return status;
    }
    return std::nullopt;
}

} // namespace

int stampixfuzz::printerStatus(const std::uint8_t* data, std::size_t size)
{
    const QByteArray stream = toBytes(data, size);
    const qsizetype bound = PrinterStatus::kMaxAnswerBytes;
    const std::optional<PrinterStatus> whole = PrinterStatus::fromReceived(stream);
    const QString outcome = whole ? whole->summary() : u"need more"_s;

    const qsizetype split = stream.isEmpty() ? 0 : qsizetype(data[0]) * stream.size() / 256 + 1;
    check(feed(stream, split, stream.size()) == whole, "two reads end as one does",
          u"split at %1: %2"_s.arg(split).arg(outcome));
    check(feed(stream, 1, 1) == whole, "byte by byte ends as one read does", outcome);

    const bool wholeInBound =
        PrinterStatus::isWholeAnswer(stream.first(std::min(stream.size(), bound)));
    if (!whole) {
        check(stream.size() <= bound && !wholeInBound,
              "the query waits only while a whole answer may still come within the bound");
        return 0;
    }
    if (!whole->failure().isEmpty()) {
        check(wholeInBound || stream.size() > bound,
              "a failure comes from a whole answer or from too many bytes", outcome);
        return 0;
    }
    check(wholeInBound, "a status comes from three strings within the bound", outcome);
    return 0;
}
