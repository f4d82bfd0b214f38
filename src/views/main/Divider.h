#pragma once

#include <QWidget>

// A one pixel line in the separator colour; `length` fixes a vertical line's height.
class Divider : public QWidget
{
    Q_OBJECT

public:
    explicit Divider(Qt::Orientation orientation, int length = 0, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
