#include "NoRecordSelectedView.h"

#include "SettingsText.h"
#include "views/main/SymbolIcons.h"
#include "views/main/Theme.h"

#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kIconSize = 48;

struct Texts
{
    QString symbol;
    QString prompt;
    QString emptyText;
    QString hint;
};

Texts textsFor(SettingsTabKey::Kind kind)
{
    switch (kind) {
    case SettingsTabKey::Kind::printer:
        return {u"printer"_s, u"Selecteer een printer"_s, u"Geen printers geconfigureerd"_s,
                u"Klik op + naast Printers om er een toe te voegen"_s};
    case SettingsTabKey::Kind::labelTemplate:
        return {u"doc.text"_s, u"Selecteer een etiket"_s, u"Geen etiketten geconfigureerd"_s,
                u"Klik op + naast Etiketten om er een toe te voegen"_s};
    case SettingsTabKey::Kind::dossier:
    case SettingsTabKey::Kind::none:
    case SettingsTabKey::Kind::about:
        break;
    }
    return {u"folder"_s, u"Selecteer een dossier"_s, u"Geen dossiers geconfigureerd"_s,
            u"Klik op + naast Dossiers om er een toe te voegen"_s};
}

} // namespace

NoRecordSelectedView::NoRecordSelectedView(SettingsTabKey::Kind kind, bool listEmpty,
                                           QWidget* parent)
    : QWidget(parent)
{
    const Texts texts = textsFor(kind);
    auto* icon = new QLabel;
    icon->setPixmap(SymbolIcons::tinted(texts.symbol, Theme::secondaryText(palette()))
                        .pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF()));
    icon->setAlignment(Qt::AlignCenter);
    m_message = SettingsText::secondary(listEmpty ? texts.emptyText : texts.prompt, Theme::body());
    m_message->setAlignment(Qt::AlignCenter);

    auto* column = new QVBoxLayout(this);
    column->setSpacing(16);
    column->addStretch();
    column->addWidget(icon, 0, Qt::AlignHCenter);
    column->addWidget(m_message, 0, Qt::AlignHCenter);
    if (listEmpty) {
        m_hint = SettingsText::secondary(texts.hint, Theme::caption());
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
