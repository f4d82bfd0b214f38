#pragma once

#include <QWidget>

// Shown while products are being loaded.
class LoadingView : public QWidget
{
    Q_OBJECT

public:
    explicit LoadingView(QWidget* parent = nullptr);
};
