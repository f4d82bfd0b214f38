#pragma once

#include <QSize>
#include <QWidget>

class AppSettings;
class SettingsView;

// The top-level "Settings" window around SettingsView. It opens at the
// content size the store remembers, centred on the screen, and writes its
// content size back to the store when the user resizes it, and only then.
// Deletes itself when closed; keeping a single instance is up to whoever
// opens it.
class SettingsWindow : public QWidget
{
    Q_OBJECT

public:
    static constexpr QSize kMinimumSize{780, 400};
    static constexpr QSize kMaximumSize{1200, 900};

    explicit SettingsWindow(AppSettings& settings, QWidget* parent = nullptr);

    SettingsView* view() const { return m_view; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    AppSettings& m_settings;
    SettingsView* m_view;
};
