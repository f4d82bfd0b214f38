#include "views/main/LoadingView.h"

#include "views/common/BusyIndicator.h"
#include "views/common/Theme.h"
#include "views/common/ThemedLabel.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// The regular spinning wheel is 32 pixels; this one is drawn half as large again.
constexpr int kWheelDiameter = 48;

} // namespace

LoadingView::LoadingView(QWidget* parent) : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(16);
    layout->addStretch();
    layout->addWidget(new BusyIndicator(kWheelDiameter, &Theme::secondaryText, this), 0,
                      Qt::AlignHCenter);
    layout->addWidget(
        new ThemedLabel(u"Producten laden..."_s, Theme::body(), &Theme::secondaryText, this), 0,
        Qt::AlignHCenter);
    layout->addStretch();
}
