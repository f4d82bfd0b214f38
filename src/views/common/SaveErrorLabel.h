#pragma once

#include <QLabel>

class AppSettings;

// One line saying why the settings were not saved: shown while the store's
// last save failed, hidden again once a save succeeds. A reason too long for
// the room is cut off with an ellipsis; the tooltip and the accessible name
// keep it whole.
class SaveErrorLabel : public QLabel
{
    Q_OBJECT

public:
    // Give it its parent at once: it shows itself when a save has failed.
    SaveErrorLabel(const AppSettings& settings, const QFont& font, QWidget* parent);

    // "Instellingen niet opgeslagen: " and the reason; empty while saves succeed.
    const QString& line() const { return m_line; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void showSaveError();
    void elide();

    const AppSettings& m_settings;
    QString m_line;
};
