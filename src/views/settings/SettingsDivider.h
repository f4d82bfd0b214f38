#pragma once

#include <QWidget>

// A one-pixel line in gray at opacity 0.3, across or along its parent.
class SettingsDivider : public QWidget
{
    Q_OBJECT

public:
    explicit SettingsDivider(Qt::Orientation orientation, QWidget* parent = nullptr);

    static QColor lineColor();

protected:
    void paintEvent(QPaintEvent* event) override;
};
