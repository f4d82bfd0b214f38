#pragma once

#include "LabelSink.h"
#include "labelrender/LabelRenderer.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>

class UnansweredPort;

// A raw-TCP label printer on 127.0.0.1 that keeps every job as a file, with
// the label drawn beside it as a PNG, or that fails in one of the ways a real
// printer does.
class VirtualPrinter : public QObject
{
    Q_OBJECT

public:
    enum class Failure
    {
        none,
        refuse, // nothing listens: connections are refused
        hang,   // connection attempts are never answered
        slow,   // accepts, then reads a trickle
        drop,   // accepts, then closes without reading
        reset,  // reads the first bytes, then resets the connection
    };

    // What the printer says when asked "~HS"; jobs are taken in every state.
    enum class State
    {
        ready,
        paperOut,   // answers with the paper-out flag
        paused,     // answers with the paused flag
        headOpen,   // silent, as real printers are
        ribbonOut,  // silent
        bufferFull, // answers with the buffer-full flag
    };

    static std::optional<State> stateFromName(QStringView name);
    static QStringList stateNames();
    static QString stateName(State state);
    // The three strings of the answer, or nothing for a silent state.
    static QByteArray statusAnswer(State state);

    static std::optional<Failure> failureFromName(QStringView name);
    static QStringList failureNames();
    static QString failureName(Failure failure);

    // The program sends no label over 1 MiB; a connection that sends more than
    // this is closed and kept as no job.
    static constexpr qint64 kMaxJobBytes = 1024 * 1024 + 64 * 1024;

    VirtualPrinter(QString name, QString jobDirectory, Failure failure = Failure::none,
                   State state = State::ready, QObject* parent = nullptr);
    ~VirtualPrinter() override;

    // Port 0 picks a free one. False with the reason in `error`.
    bool start(quint16 port, QString* error);
    quint16 port() const { return m_port; }
    const QString& name() const { return m_name; }
    const QString& jobDirectory() const { return m_jobDirectory; }
    Failure failure() const { return m_failure; }
    State state() const { return m_state; }

    // The data of the first ^FD field, up to the next command, for the log.
    static QString firstFieldData(const QByteArray& job);

signals:
    void jobWritten(const QString& filePath, const QByteArray& job);
    void jobNotWritten(const QString& error);
    // The job was kept, but its picture could not be drawn or saved.
    void pictureNotWritten(const QString& error);
    // A connection that closed without sending anything is no job.
    void emptyConnection();
    void statusQueried();

private:
    void onJob(const QByteArray& job);
    std::optional<QString> writeJob(const QByteArray& job, QString* error);
    QString writePicture(const QString& jobPath, const QByteArray& job);

    QString m_name;
    Failure m_failure;
    State m_state;
    QString m_jobDirectory;
    int m_nextJobNumber = 0; // 0: the folder has not been looked at yet
    std::optional<LabelRenderer> m_renderer;
    LabelSink m_sink;
    std::unique_ptr<UnansweredPort> m_unanswered;
    quint16 m_port = 0;
};
