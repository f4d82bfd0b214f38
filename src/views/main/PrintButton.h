#pragma once

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
    void changeEvent(QEvent* event) override;

private:
    void showSymbol();

    BusyIndicator* m_wheel;
    bool m_busy = false;
};
