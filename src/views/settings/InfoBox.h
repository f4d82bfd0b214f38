#pragma once

#include "views/common/Card.h"

class QLabel;

// The small blue information panel of the settings pages.
class InfoBox : public Card
{
    Q_OBJECT

public:
    explicit InfoBox(const QString& text, QWidget* parent = nullptr);

    QString text() const;

private:
    QLabel* m_text;
};
