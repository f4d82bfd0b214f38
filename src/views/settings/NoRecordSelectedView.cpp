#include "views/settings/NoRecordSelectedView.h"

#include "views/common/SymbolIcons.h"
#include "views/common/ThemedLabel.h"
#include "views/settings/SettingsRecordKind.h"

#include <QVBoxLayout>

namespace {

constexpr int kIconSize = 48;

} // namespace

NoRecordSelectedView::NoRecordSelectedView(const SettingsRecordKind& kind, bool listEmpty,
                                           QWidget* parent)
    : QWidget(parent), m_message(new ThemedLabel(listEmpty ? kind.emptyListText : kind.selectPrompt,
                                                 Theme::body(), &Theme::secondaryText))
{
    auto* icon = new QLabel;
    icon->setPixmap(SymbolIcons::tinted(kind.symbol, Theme::secondaryText(palette()))
                        .pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF()));
    icon->setAlignment(Qt::AlignCenter);
    m_message->setAlignment(Qt::AlignCenter);

    auto* column = new QVBoxLayout(this);
    column->setSpacing(16);
    column->addStretch();
    column->addWidget(icon, 0, Qt::AlignHCenter);
    column->addWidget(m_message, 0, Qt::AlignHCenter);
    if (listEmpty) {
        m_hint = new ThemedLabel(kind.emptyListHint, Theme::caption(), &Theme::secondaryText);
        m_hint->setAlignment(Qt::AlignCenter);
        column->addWidget(m_hint, 0, Qt::AlignHCenter);
    }
    column->addStretch();
}

QString NoRecordSelectedView::message() const
{
    return m_message->text();
}

QString NoRecordSelectedView::hint() const
{
    return m_hint ? m_hint->text() : QString();
}
