#include "views/settings/SettingsHeaderView.h"

#include "views/common/Card.h"
#include "views/common/SymbolLabel.h"
#include "views/common/Theme.h"

#include <QGraphicsDropShadowEffect>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTileSize = 44;
constexpr int kGearSize = 24;

QWidget* gearTile()
{
    QColor blueFaded = Theme::blue();
    blueFaded.setAlphaF(0.8f);
    auto* tile = new Card(10);
    tile->setGradient(Theme::blue(), blueFaded);
    tile->setFixedSize(kTileSize, kTileSize);
    auto* shadow = new QGraphicsDropShadowEffect(tile);
    shadow->setColor(QColor(0, 0, 0, 26));
    shadow->setBlurRadius(8);
    shadow->setOffset(0, 2);
    tile->setGraphicsEffect(shadow);
    auto* centre = new QVBoxLayout(tile);
    centre->setContentsMargins(0, 0, 0, 0);
    centre->addWidget(new SymbolLabel(u"gear"_s, kGearSize, QColor(Qt::white)), 0, Qt::AlignCenter);
    return tile;
}

} // namespace

SettingsHeaderView::SettingsHeaderView(QWidget* parent) : QWidget(parent)
{
    auto* texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addStretch();
    texts->addWidget(Theme::label(u"Stampix Instellingen"_s, Theme::systemFont(20, QFont::DemiBold),
                                  QPalette::WindowText));
    texts->addWidget(Theme::label(u"Configureer je dossiers, printers en etiket templates"_s,
                                  Theme::systemFont(12), Theme::kSecondaryText));
    texts->addStretch();
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(24, 16, 24, 16);
    row->setSpacing(16);
    row->addWidget(gearTile());
    row->addLayout(texts);
    row->addStretch();
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void SettingsHeaderView::paintEvent(QPaintEvent*)
{
    // The band fades to 0.95 of this colour at its bottom edge, which no eye can tell.
    QPainter(this).fillRect(rect(), Theme::controlBackground(palette()));
}
