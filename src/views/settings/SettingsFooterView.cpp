#include "views/settings/SettingsFooterView.h"

#include "views/common/SaveErrorLabel.h"
#include "views/common/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

using namespace Qt::StringLiterals;

SettingsFooterView::SettingsFooterView(const AppSettings& settings, const QString& version,
                                       QWidget* parent)
    : QWidget(parent), m_saveErrorLabel(new SaveErrorLabel(settings, Theme::systemFont(11), this))
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(24, 12, 24, 12);
    row->addWidget(Theme::label(u"Wijzigingen worden automatisch opgeslagen"_s,
                                Theme::systemFont(11), Theme::kSecondaryText));
    // Beside the note it contradicts; hidden while saves succeed.
    row->addWidget(m_saveErrorLabel);
    row->addStretch();
    row->addWidget(Theme::label(version, Theme::systemFont(11), Theme::kSecondaryText));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void SettingsFooterView::paintEvent(QPaintEvent*)
{
    QColor background = Theme::controlBackground(palette());
    background.setAlphaF(0.5f);
    QPainter(this).fillRect(rect(), background);
}
