#include "views/settings/InfoBox.h"

#include "views/common/SymbolLabel.h"
#include "views/common/Theme.h"

#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

constexpr int kIconSize = 14;

QColor blueAt(qreal alpha)
{
    QColor color = Theme::blue();
    color.setAlphaF(float(alpha));
    return color;
}

} // namespace

InfoBox::InfoBox(const QString& text, QWidget* parent)
    : Card(8, QPalette::NoRole, QPalette::Link, 0.2, parent),
      m_text(Theme::label(text, Theme::caption(), Theme::kSecondaryText))
{
    QPalette outline = palette();
    outline.setColor(QPalette::Link, Theme::blue());
    setPalette(outline);
    setGradient(blueAt(0.12), blueAt(0.08));
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::NoTextInteraction);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(10, 10, 10, 10);
    row->setSpacing(8);
    row->addWidget(new SymbolLabel(u"info.circle.fill"_s, kIconSize, Theme::blue()), 0,
                   Qt::AlignVCenter);
    row->addWidget(m_text, 1, Qt::AlignVCenter);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QString InfoBox::text() const
{
    return m_text->text();
}
