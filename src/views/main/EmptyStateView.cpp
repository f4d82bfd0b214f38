#include "views/main/EmptyStateView.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

EmptyStateView::EmptyStateView(std::function<void()> onRefresh, QWidget* parent)
    : PlaceholderView(symbol(u"cube.box"_s), u"Geen producten gevonden"_s, {}, parent)
{
    QPushButton* refresh = addButton(u"Vernieuwen"_s);
    refresh->setObjectName(u"refreshButton"_s);
    connect(refresh, &QPushButton::clicked, this, std::move(onRefresh));
}
