#pragma once

#include <QObject>
#include <functional>

// Takes every press of the space bar in the whole application, whatever the
// modifiers and whichever widget has the focus, and runs `onSpacebar` instead.
// The filter is installed for as long as this object lives: Qt drops a
// deleted filter.
class SpacebarHandler : public QObject
{
    Q_OBJECT

public:
    explicit SpacebarHandler(std::function<void()> onSpacebar, QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void()> m_onSpacebar;
};
