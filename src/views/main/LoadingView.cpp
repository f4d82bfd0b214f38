#include "views/main/LoadingView.h"

#include "views/common/BusyIndicator.h"

using namespace Qt::StringLiterals;

namespace {
// The regular spinning wheel is 32 pixels; this one is drawn half as large again.
constexpr int kWheelDiameter = 48;
} // namespace

LoadingView::LoadingView(QWidget* parent)
    : PlaceholderView(new BusyIndicator(kWheelDiameter), {}, u"Producten laden..."_s, parent)
{}
