#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <optional>

// What a ZPL printer says about itself in its answer to "~HS", or why there
// was no usable answer. Settings views show summary() in one line: green when
// isReady(), red otherwise.
class PrinterStatus
{
public:
    // The answer may not be longer than this; a printer sends about 100 bytes.
    static constexpr qsizetype kMaxAnswerBytes = 1024;

    // From the three STX...ETX CR LF strings of a whole answer; nothing when
    // the answer is malformed, too long or cut short.
    static std::optional<PrinterStatus> fromAnswer(QByteArrayView answer);
    // A query that got no usable answer; `text` is shown as it is.
    static PrinterStatus failed(QString text);
    // Whether `received` holds all three strings (well-formed or not).
    static bool isWholeAnswer(QByteArrayView received);
    // How a query stands once `received` (all bytes so far) has arrived:
    // nothing while the answer is still coming; the status once its three
    // strings are in; unknownAnswer() when they make no answer or when more
    // than kMaxAnswerBytes came without them. Bytes after the third string
    // are never looked at, so the outcome does not depend on how the bytes
    // were split into reads.
    static std::optional<PrinterStatus> fromReceived(QByteArrayView received);
    // The failure of a garbled, oversized or cut-short answer.
    static PrinterStatus unknownAnswer();

    bool paperOut = false;
    bool paused = false;
    bool headUp = false;
    bool ribbonOut = false;
    bool bufferFull = false;
    bool overTemperature = false;
    bool underTemperature = false;
    bool configurationLost = false;
    bool thermalTransfer = false;
    int printMode = 0;
    int labelLengthDots = 0;
    int formatsInBuffer = 0;
    int labelsRemaining = 0;

    // Empty for an answer; the reason otherwise.
    const QString& failure() const { return m_failure; }
    // The Dutch problem texts of the flags that are set, most urgent first.
    QStringList problems() const;
    bool isReady() const { return m_failure.isEmpty() && problems().isEmpty(); }
    // "Gereed" (naming the formats waiting, if any), the problems joined by
    // ", ", or the failure.
    QString summary() const;

    bool operator==(const PrinterStatus&) const = default;

private:
    QString m_failure;
};
