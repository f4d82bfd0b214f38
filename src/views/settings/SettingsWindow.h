#pragma once

#include <QSize>
#include <QWidget>
#include <chrono>
#include <optional>

class AppSettings;
class SettingsView;

// The top-level "Settings" window around SettingsView. It opens at the frame
// size the store remembers, centred on the screen, and writes its frame size
// back to the store after every resize. Deletes itself when closed; keeping a
// single instance is up to whoever opens it.
class SettingsWindow : public QWidget
{
    Q_OBJECT

public:
    static constexpr QSize kMinimumSize{780, 400};
    static constexpr QSize kMaximumSize{1200, 900};
    // The window system needs a moment after showing before it reports the
    // frame around the window.
    static constexpr std::chrono::milliseconds kSetupDelay{100};

    explicit SettingsWindow(AppSettings& settings, QWidget* parent = nullptr);

    SettingsView* view() const { return m_view; }

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void restoreFrame();
    void centerOnScreen();

    AppSettings& m_settings;
    SettingsView* m_view;
    // The frame size remembered at opening; none when the store had no usable size.
    std::optional<QSize> m_storedFrame;
    bool m_setupScheduled = false;
};
