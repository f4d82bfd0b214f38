#pragma once

#include <QWidget>

class QLabel;

// The small blue information panel of the settings pages.
class InfoBox : public QWidget
{
    Q_OBJECT

public:
    explicit InfoBox(const QString& text, QWidget* parent = nullptr);

    QString text() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* m_text;
};
