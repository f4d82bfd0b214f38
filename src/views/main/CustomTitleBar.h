#pragma once

#include <QWidget>

// The window's own title row, used where the system title bar is hidden: the
// name centred, with room for the window buttons kept free at both ends.
class CustomTitleBar : public QWidget
{
    Q_OBJECT

public:
    static constexpr int kHeight = 22;
    static constexpr int kReservedWidth = 70;

    explicit CustomTitleBar(QWidget* parent = nullptr);
};
