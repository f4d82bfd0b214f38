#include "services/PrinterStatus.h"

#include <QByteArrayList>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr char kStx = '\x02';
constexpr QByteArrayView kEnd = "\x03\r\n";
constexpr int kStrings = 3;
// Fields per string: aaa,b,c,dddd,eee,f,g,h,iii,j,k,l / mmm,n,o,...,www / xxxx,y
constexpr qsizetype kFieldCounts[kStrings] = {12, 11, 2};

// A field of digits only (no sign, no blank); nine at most, so it fits an int.
std::optional<int> number(const QByteArray& field)
{
    const bool digits =
        std::all_of(field.begin(), field.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (field.isEmpty() || field.size() > 9 || !digits)
        return std::nullopt;
    return field.toInt();
}

// A flag field is "0" or "1".
std::optional<bool> flag(const QByteArray& field)
{
    if (field != "0" && field != "1")
        return std::nullopt;
    return field == "1";
}

// The fields of each string, or nothing when the framing or a count is wrong.
std::optional<QList<QByteArrayList>> splitAnswer(QByteArrayView answer)
{
    QList<QByteArrayList> strings;
    qsizetype at = 0;
    for (qsizetype expected : kFieldCounts) {
        const qsizetype end = answer.indexOf(kEnd, at);
        if (end < 0 || answer.at(at) != kStx)
            return std::nullopt;
        const QByteArray body = answer.sliced(at + 1, end - at - 1).toByteArray();
        if (body.contains(kStx) || body.contains('\x03'))
            return std::nullopt;
        strings.append(body.split(','));
        if (strings.last().size() != expected)
            return std::nullopt;
        at = end + kEnd.size();
    }
    if (at != answer.size())
        return std::nullopt;
    return strings;
}

} // namespace

std::optional<PrinterStatus> PrinterStatus::fromAnswer(QByteArrayView answer)
{
    if (answer.size() > kMaxAnswerBytes || answer.isEmpty())
        return std::nullopt;
    const std::optional<QList<QByteArrayList>> strings = splitAnswer(answer);
    if (!strings)
        return std::nullopt;
    const QByteArrayList& first = strings->at(0);
    const QByteArrayList& second = strings->at(1);
    const std::optional<bool> flags[] = {flag(first[1]),  flag(first[2]),  flag(first[5]),
                                         flag(first[9]),  flag(first[10]), flag(first[11]),
                                         flag(second[2]), flag(second[3]), flag(second[4])};
    const std::optional<int> numbers[] = {number(first[3]), number(first[4]), number(second[5]),
                                          number(second[8])};
    const auto isSet = [](const auto& value) {
        return value.has_value();
    };
    if (!std::all_of(std::begin(flags), std::end(flags), isSet) ||
        !std::all_of(std::begin(numbers), std::end(numbers), isSet))
        return std::nullopt;
    PrinterStatus status;
    status.paperOut = *flags[0];
    status.paused = *flags[1];
    status.bufferFull = *flags[2];
    status.configurationLost = *flags[3];
    status.underTemperature = *flags[4];
    status.overTemperature = *flags[5];
    status.headUp = *flags[6];
    status.ribbonOut = *flags[7];
    status.thermalTransfer = *flags[8];
    status.labelLengthDots = *numbers[0];
    status.formatsInBuffer = *numbers[1];
    status.printMode = *numbers[2];
    status.labelsRemaining = *numbers[3];
    return status;
}

PrinterStatus PrinterStatus::failed(QString text)
{
    PrinterStatus status;
    status.m_failure = std::move(text);
    return status;
}

bool PrinterStatus::isWholeAnswer(QByteArrayView received)
{
    return received.count(kEnd) >= kStrings;
}

std::optional<PrinterStatus> PrinterStatus::fromReceived(QByteArrayView received)
{
    // Where the third string ends, looked for in the bytes an answer may have.
    const QByteArrayView window = received.first(std::min(received.size(), kMaxAnswerBytes));
    qsizetype end = 0;
    for (int found = 0; found < kStrings && end >= 0; ++found) {
        end = window.indexOf(kEnd, end);
        if (end >= 0)
            end += kEnd.size();
    }
    if (end >= 0)
        return fromAnswer(window.first(end)).value_or(unknownAnswer());
    if (received.size() > kMaxAnswerBytes)
        return unknownAnswer();
    return std::nullopt;
}

PrinterStatus PrinterStatus::unknownAnswer()
{
    return failed(u"Onbekend antwoord van de printer"_s);
}

QStringList PrinterStatus::problems() const
{
    if (!m_failure.isEmpty())
        return {};
    const std::pair<bool, QString> all[] = {
        {paperOut, u"Papier op"_s},
        {paused, u"Gepauzeerd"_s},
        {headUp, u"Kop open"_s},
        {ribbonOut, u"Lint op"_s},
        {bufferFull, u"Ontvangstbuffer vol"_s},
        {overTemperature, u"Te warm"_s},
        {underTemperature, u"Te koud"_s},
        {configurationLost, u"Configuratie verloren"_s},
    };
    QStringList texts;
    for (const auto& [isSet, text] : all) {
        if (isSet)
            texts.append(text);
    }
    return texts;
}

QString PrinterStatus::summary() const
{
    if (!m_failure.isEmpty())
        return m_failure;
    const QStringList found = problems();
    if (!found.isEmpty())
        return found.join(u", "_s);
    if (formatsInBuffer > 0)
        return u"Gereed, formaten in de buffer: %1"_s.arg(formatsInBuffer);
    return u"Gereed"_s;
}
