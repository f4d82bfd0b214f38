#pragma once

#include <QObject>
#include <functional>

class QWidget;

// Tells a parent process that the window it waits for is on screen: after the
// first paint of a widget that `isAwaited` accepts, it writes "shown" to
// standard output and ends the event loop. The paint has finished by then,
// because the report waits for the next pass of the event loop.
class FirstPaintReporter : public QObject
{
    Q_OBJECT

public:
    explicit FirstPaintReporter(std::function<bool(QWidget*)> isAwaited, QObject* parent = nullptr);

    static constexpr char kMarker[] = "shown\n";

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void report();

    std::function<bool(QWidget*)> m_isAwaited;
    bool m_reported = false;
};
