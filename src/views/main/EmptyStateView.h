#pragma once

#include <QWidget>
#include <functional>

// Shown when the last load brought no products.
class EmptyStateView : public QWidget
{
    Q_OBJECT

public:
    explicit EmptyStateView(std::function<void()> onRefresh, QWidget* parent = nullptr);
};
