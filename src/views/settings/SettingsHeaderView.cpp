#include "views/settings/SettingsHeaderView.h"

#include "views/common/SymbolIcons.h"
#include "views/common/Theme.h"
#include "views/common/ThemedLabel.h"

#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPaddingH = 24;
constexpr int kPaddingV = 16;
constexpr int kTileSize = 44;
constexpr int kTileRadius = 10;
constexpr int kSpacing = 16;
constexpr int kGearSize = 24;

} // namespace

SettingsHeaderView::SettingsHeaderView(QWidget* parent) : QWidget(parent)
{
    auto* texts = new QVBoxLayout(this);
    texts->setContentsMargins(kPaddingH + kTileSize + kSpacing, kPaddingV, kPaddingH, kPaddingV);
    texts->setSpacing(2);
    texts->addStretch();
    texts->addWidget(new ThemedLabel(u"Stampix Instellingen"_s,
                                     Theme::systemFont(20, QFont::DemiBold), &Theme::primaryText));
    texts->addWidget(new ThemedLabel(u"Configureer je dossiers, printers en etiket templates"_s,
                                     Theme::systemFont(12), &Theme::secondaryText));
    texts->addStretch();
    setMinimumHeight(kTileSize + 2 * kPaddingV);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QRect SettingsHeaderView::tileRect() const
{
    return {kPaddingH, (height() - kTileSize) / 2, kTileSize, kTileSize};
}

void SettingsHeaderView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor control = Theme::controlBackground(palette());
    QColor controlFaded = control;
    controlFaded.setAlphaF(0.95f);
    QLinearGradient band(0, 0, 0, height());
    band.setColorAt(0, control);
    band.setColorAt(1, controlFaded);
    painter.fillRect(rect(), band);
    paintTile(painter);
}

void SettingsHeaderView::paintTile(QPainter& painter) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF tile = tileRect();

    // Soft shadow: black at 0.1, 2 px down, spread over a few px.
    painter.setPen(Qt::NoPen);
    for (int ring = 4; ring >= 1; --ring) {
        QPainterPath shadow;
        shadow.addRoundedRect(tile.translated(0, 2).adjusted(-ring, -ring, ring, ring),
                              kTileRadius + ring, kTileRadius + ring);
        painter.setBrush(QColor(0, 0, 0, 26 / (ring + 1)));
        painter.drawPath(shadow);
    }

    const QColor blue = Theme::blue();
    QColor blueFaded = blue;
    blueFaded.setAlphaF(0.8f);
    QLinearGradient fill(tile.topLeft(), tile.bottomRight());
    fill.setColorAt(0, blue);
    fill.setColorAt(1, blueFaded);
    QPainterPath path;
    path.addRoundedRect(tile, kTileRadius, kTileRadius);
    painter.fillPath(path, fill);

    const QRect gear(tile.center().toPoint() - QPoint(kGearSize / 2, kGearSize / 2),
                     QSize(kGearSize, kGearSize));
    SymbolIcons::tinted(u"gear", Qt::white).paint(&painter, gear);
}
