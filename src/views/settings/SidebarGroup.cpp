#include "SidebarGroup.h"

#include "SettingsText.h"
#include "SettingsView.h"
#include "SidebarGroupHeader.h"
#include "SidebarRow.h"
#include "model/AppSettings.h"
#include "views/main/Theme.h"

#include <QLabel>
#include <QVBoxLayout>
#include <QVariantAnimation>
#include <algorithm>

using namespace Qt::StringLiterals;

SidebarGroup::SidebarGroup(SettingsView& view, SettingsTabKey::Kind kind, QWidget* parent)
    : QWidget(parent), m_view(view), m_kind(kind), m_config(configFor(kind)),
      m_header(new SidebarGroupHeader(m_config.symbol, m_config.title, m_config.addToolTip)),
      m_body(new QWidget), m_rowsLayout(new QVBoxLayout),
      m_emptyLabel(SettingsText::secondary(m_config.emptyText, Theme::systemFont(11))),
      m_animation(new QVariantAnimation(this))
{
    QFont italic = m_emptyLabel->font();
    italic.setItalic(true);
    m_emptyLabel->setFont(italic);
    m_emptyLabel->setContentsMargins(44, 4, 0, 4);

    m_rowsLayout->setContentsMargins(0, 0, 0, 0);
    m_rowsLayout->setSpacing(2);
    auto* bodyLayout = new QVBoxLayout(m_body);
    bodyLayout->setContentsMargins(0, 0, 0, 0);
    bodyLayout->setSpacing(0);
    bodyLayout->addWidget(m_emptyLabel);
    bodyLayout->addLayout(m_rowsLayout);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addWidget(m_header);
    column->addWidget(m_body);

    m_animation->setDuration(kAnimationMs);
    m_animation->setEasingCurve(QEasingCurve::InOutQuad);
    connect(m_animation, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& value) { m_body->setMaximumHeight(value.toInt()); });
    connect(m_animation, &QVariantAnimation::finished, this, &SidebarGroup::finishAnimation);

    connect(m_header, &SidebarGroupHeader::toggleRequested, this,
            [this] { m_view.toggleGroup(m_kind); });
    connect(m_header, &SidebarGroupHeader::addRequested, this,
            [this] { m_view.addRecord(m_kind); });
    connect(&m_view, &SettingsView::expandedChanged, this,
            [this](SettingsTabKey::Kind group, bool animated) {
                if (group == m_kind)
                    applyExpanded(animated);
            });
    connect(&m_view, &SettingsView::selectedTabChanged, this, &SidebarGroup::refreshSelection);

    AppSettings& settings = m_view.settings();
    if (kind == SettingsTabKey::Kind::dossier)
        connect(&settings, &AppSettings::dossiersChanged, this, &SidebarGroup::refreshRows);
    if (kind == SettingsTabKey::Kind::printer)
        connect(&settings, &AppSettings::printersChanged, this, &SidebarGroup::refreshRows);
    if (kind == SettingsTabKey::Kind::labelTemplate) {
        connect(&settings, &AppSettings::templatesChanged, this, &SidebarGroup::refreshRows);
        // A template's icon shows whether its printer still exists.
        connect(&settings, &AppSettings::printersChanged, this, &SidebarGroup::refreshRows);
    }

    refreshRows();
    applyExpanded(false);
}

SidebarGroup::Config SidebarGroup::configFor(SettingsTabKey::Kind kind)
{
    switch (kind) {
    case SettingsTabKey::Kind::printer:
        return {u"printer"_s,       u"Printers"_s, u"Nieuwe printer"_s,
                u"Geen printers"_s, u"printer"_s,  u"printer.fill"_s};
    case SettingsTabKey::Kind::labelTemplate:
        return {u"doc.text"_s,       u"Etiketten"_s, u"Nieuw etiket"_s,
                u"Geen etiketten"_s, u"doc.text"_s,  u"doc.text.fill"_s};
    case SettingsTabKey::Kind::dossier:
    case SettingsTabKey::Kind::none:
    case SettingsTabKey::Kind::about:
        break;
    }
    return {u"folder"_s,        u"Dossiers"_s, u"Nieuw dossier"_s,
            u"Geen dossiers"_s, u"folder"_s,   u"folder.fill"_s};
}

QList<SidebarGroup::Item> SidebarGroup::items() const
{
    const AppSettings& settings = m_view.settings();
    QList<Item> result;
    switch (m_kind) {
    case SettingsTabKey::Kind::dossier:
        for (const Dossier& dossier : settings.dossiers())
            result.append({dossier.id, dossier.name, !dossier.apiKey.isEmpty()});
        break;
    case SettingsTabKey::Kind::printer:
        for (const Printer& printer : settings.printers())
            result.append({printer.id, printer.name, !printer.ipAddress.isEmpty()});
        break;
    case SettingsTabKey::Kind::labelTemplate:
        for (const LabelTemplate& labelTemplate : settings.templates())
            result.append({labelTemplate.id, labelTemplate.name,
                           settings.printerFor(labelTemplate).has_value()});
        break;
    case SettingsTabKey::Kind::none:
    case SettingsTabKey::Kind::about:
        break;
    }
    return result;
}

void SidebarGroup::refreshRows()
{
    const QList<Item> current = items();
    const bool sameRecords =
        std::equal(current.begin(), current.end(), m_rowIDs.begin(), m_rowIDs.end(),
                   [](const Item& item, const QUuid& id) { return item.id == id; });
    if (!sameRecords)
        rebuildRows(current);
    for (qsizetype i = 0; i < current.size(); ++i)
        updateRow(m_rows.at(i), current.at(i));
    m_emptyLabel->setVisible(current.isEmpty());
    refreshSelection();
}

void SidebarGroup::rebuildRows(const QList<Item>& items)
{
    // Deferred: a rebuild may run inside a signal that one of these rows is handling.
    for (SidebarRow* row : std::as_const(m_rows)) {
        row->hide();
        m_rowsLayout->removeWidget(row);
        row->deleteLater();
    }
    m_rows.clear();
    m_rowIDs.clear();
    for (const Item& item : items) {
        auto* row = new SidebarRow(SidebarRow::Style::record);
        const QUuid id = item.id;
        connect(row, &SidebarRow::clicked, this, [this, id] { m_view.select(m_kind, id); });
        m_rowsLayout->addWidget(row);
        m_rows.append(row);
        m_rowIDs.append(id);
    }
}

void SidebarGroup::updateRow(SidebarRow* row, const Item& item) const
{
    row->setText(item.name);
    row->setHighlighted(item.filled);
    row->setSymbol(item.filled ? m_config.rowSymbolFilled : m_config.rowSymbol);
}

void SidebarGroup::refreshSelection()
{
    for (qsizetype i = 0; i < m_rows.size(); ++i)
        m_rows.at(i)->setSelected(m_view.selectedTab() ==
                                  SettingsTabKey::make(m_kind, m_rowIDs.at(i)));
}

bool SidebarGroup::isBodyShown() const
{
    return m_view.isExpanded(m_kind) && !m_body->isHidden();
}

void SidebarGroup::applyExpanded(bool animated)
{
    const bool expanded = m_view.isExpanded(m_kind);
    m_header->setExpanded(expanded);
    m_animation->stop();
    m_animatingOpen = expanded;
    if (!animated) {
        finishAnimation();
        return;
    }
    const int from = m_body->isHidden() ? 0 : m_body->height();
    const int to = expanded ? m_body->sizeHint().height() : 0;
    m_body->setMaximumHeight(from);
    m_body->show();
    m_animation->setStartValue(from);
    m_animation->setEndValue(to);
    m_animation->start();
}

void SidebarGroup::finishAnimation()
{
    m_body->setMaximumHeight(QWIDGETSIZE_MAX);
    m_body->setVisible(m_animatingOpen);
}
