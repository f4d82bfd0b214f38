#include "SettingsFooterView.h"

#include "SettingsText.h"
#include "views/main/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

using namespace Qt::StringLiterals;

SettingsFooterView::SettingsFooterView(const QString& version, QWidget* parent) : QWidget(parent)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(24, 12, 24, 12);
    row->addWidget(SettingsText::secondary(u"Wijzigingen worden automatisch opgeslagen"_s,
                                           Theme::systemFont(11)));
    row->addStretch();
    row->addWidget(SettingsText::secondary(version, Theme::systemFont(11)));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void SettingsFooterView::paintEvent(QPaintEvent*)
{
    QColor background = Theme::controlBackground(palette());
    background.setAlphaF(0.5f);
    QPainter(this).fillRect(rect(), background);
}
