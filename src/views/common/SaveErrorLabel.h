#pragma once

#include <QLabel>

class AppSettings;

// Why the settings were not saved, shown while the store's last save failed. A
// reason too long for the room ends in an ellipsis; the tooltip keeps it whole.
class SaveErrorLabel : public QLabel
{
    Q_OBJECT

public:
    // Give it its parent at once: it shows itself when a save has failed.
    SaveErrorLabel(const AppSettings& settings, const QFont& font, QWidget* parent);

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
