#pragma once

#include <QIcon>
#include <QPushButton>

class BusyIndicator;

// The accent-filled "Start afdrukken" button: a printer symbol and the text,
// or a small spinning wheel in place of the symbol while a print run is busy.
class PrintButton : public QPushButton
{
    Q_OBJECT

public:
    explicit PrintButton(QWidget* parent = nullptr);

    bool isBusy() const { return m_busy; }
    void setBusy(bool busy);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void applyPalette();
    void showSymbol();

    BusyIndicator* m_busyIndicator;
    QIcon m_symbol;
    QIcon m_disabledSymbol;
    QIcon m_blank;
    bool m_busy = false;
};
