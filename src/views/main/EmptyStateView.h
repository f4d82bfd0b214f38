#pragma once

#include "views/common/PlaceholderView.h"

#include <functional>

// Shown when the last load brought no products.
class EmptyStateView : public PlaceholderView
{
    Q_OBJECT

public:
    explicit EmptyStateView(std::function<void()> onRefresh, QWidget* parent = nullptr);
};
