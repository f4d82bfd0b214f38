#include "views/settings/AboutSettingsPage.h"

#include "views/common/AppInfo.h"
#include "views/common/Divider.h"
#include "views/common/SymbolLabel.h"
#include "views/common/Theme.h"
#include "views/settings/SettingsView.h"

#include <QDate>
#include <QDesktopServices>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kIconSize = 32;

QVBoxLayout* tightColumn(int spacing)
{
    auto* column = new QVBoxLayout;
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(spacing);
    return column;
}

} // namespace

AboutSettingsPage::AboutSettingsPage(QWidget* parent)
    : SettingsEditorPage(nullptr, SettingsTabKey::Kind::none, parent)
{
    QVBoxLayout* section = addSection(u"Over Stampix"_s);

    auto* icon = new SymbolLabel(u"printer.fill"_s, kIconSize, QPalette::Highlight);
    QVBoxLayout* nameColumn = tightColumn(2);
    nameColumn->addWidget(
        Theme::label(u"Stampix"_s, Theme::systemFont(15, QFont::DemiBold), QPalette::WindowText));
    nameColumn->addWidget(Theme::label(u"Versie "_s + SettingsView::appVersion(),
                                       Theme::systemFont(11), Theme::kSecondaryText));
    auto* nameRow = new QHBoxLayout;
    nameRow->addWidget(icon, 0, Qt::AlignVCenter);
    nameRow->addLayout(nameColumn);
    nameRow->addStretch();
    section->addLayout(nameRow);

    QVBoxLayout* about = tightColumn(4);
    about->addWidget(Theme::label(u"Etiket print tool voor Kalmora Online"_s, Theme::subheadline(),
                                  QPalette::WindowText));
    auto* description = Theme::label(
        u"Print ZPL etiketten naar Zebra netwerkprinters direct vanuit je Kalmora Online product "
        u"database. Meerdere aanpasbare templates mogelijk, elk met hun eigen printer "
        u"configuratie."_s,
        Theme::caption(), Theme::kSecondaryText);
    description->setWordWrap(true);
    about->addWidget(description);
    section->addLayout(about);

    section->addWidget(SettingsView::makeDivider(Qt::Horizontal));

    QVBoxLayout* owner = tightColumn(4);
    owner->addWidget(
        Theme::label(u"© %1 Stampix. Alle rechten voorbehouden."_s.arg(QDate::currentDate().year()),
                     Theme::caption(), Theme::kSecondaryText));
    auto* link = new QLabel(
        u"<a href=\"%1\">%2</a>"_s.arg(AppInfo::makerURL().toString(), AppInfo::makerDomain()));
    link->setFont(Theme::caption());
    link->setAccessibleName(AppInfo::makerDomain());
    link->setTextFormat(Qt::RichText);
    link->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    connect(link, &QLabel::linkActivated, this,
            [](const QString& link) { QDesktopServices::openUrl(QUrl(link)); });
    owner->addWidget(link);
    section->addLayout(owner);
}
