#pragma once

#include "views/common/PlaceholderView.h"

// Shown while products are being loaded.
class LoadingView : public PlaceholderView
{
    Q_OBJECT

public:
    explicit LoadingView(QWidget* parent = nullptr);
};
