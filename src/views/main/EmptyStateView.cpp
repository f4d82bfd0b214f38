#include "views/main/EmptyStateView.h"

#include "views/common/SymbolLabel.h"
#include "views/common/Theme.h"
#include "views/common/ThemedLabel.h"

#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

EmptyStateView::EmptyStateView(std::function<void()> onRefresh, QWidget* parent) : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(16);
    layout->addStretch();
    layout->addWidget(new SymbolLabel(u"cube.box"_s, 48, &Theme::secondaryText, this), 0,
                      Qt::AlignHCenter);
    layout->addWidget(
        new ThemedLabel(u"Geen producten gevonden"_s, Theme::headline(), &Theme::primaryText, this),
        0, Qt::AlignHCenter);
    auto* refresh = new QPushButton(u"Vernieuwen"_s, this);
    refresh->setObjectName(u"refreshButton"_s);
    refresh->setFont(Theme::body());
    connect(refresh, &QPushButton::clicked, this, [onRefresh = std::move(onRefresh)] {
        if (onRefresh)
            onRefresh();
    });
    layout->addWidget(refresh, 0, Qt::AlignHCenter);
    layout->addStretch();
}
