#pragma once

#include <QFrame>

// A one pixel line in the text colour at the separator's opacity, so it follows
// every palette; `length` fixes its extent along the line.
class Divider : public QFrame
{
    Q_OBJECT

public:
    explicit Divider(Qt::Orientation orientation, int length = 0, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
