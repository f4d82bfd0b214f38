#pragma once

#include "views/common/PlaceholderView.h"

// Shown when the search finds no product.
class NoResultsView : public PlaceholderView
{
    Q_OBJECT

public:
    explicit NoResultsView(const QString& searchText, QWidget* parent = nullptr);

    void setSearchText(const QString& searchText);
};
