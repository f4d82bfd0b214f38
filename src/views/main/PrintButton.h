#pragma once

#include <QAbstractButton>

class BusyIndicator;

// The accent-filled "Start afdrukken" button: a printer symbol and the text,
// or a small spinning wheel in place of the symbol while a print run is busy.
class PrintButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit PrintButton(QWidget* parent = nullptr);

    bool isBusy() const { return m_busy; }
    void setBusy(bool busy);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QRect symbolRect() const;
    QColor fillColor() const;
    QColor labelColor() const;

    BusyIndicator* m_busyIndicator;
    bool m_busy = false;
};
