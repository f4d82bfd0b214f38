#include "views/settings/SidebarGroup.h"

#include "model/AppSettings.h"
#include "views/common/ThemedLabel.h"
#include "views/settings/SettingsView.h"
#include "views/settings/SidebarGroupHeader.h"
#include "views/settings/SidebarRow.h"

#include <QVBoxLayout>
#include <QVariantAnimation>
#include <algorithm>

using namespace Qt::StringLiterals;

SidebarGroup::SidebarGroup(SettingsView& view, const SettingsRecordKind& kind, QWidget* parent)
    : QWidget(parent), m_view(view), m_kind(kind),
      m_header(new SidebarGroupHeader(kind.symbol, kind.groupTitle, kind.addName)),
      m_body(new QWidget), m_rowsLayout(new QVBoxLayout),
      m_emptyLabel(
          new ThemedLabel(kind.emptyGroupText, Theme::systemFont(11), &Theme::secondaryText)),
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

    connect(m_header, &SidebarGroupHeader::activated, this,
            [this] { m_view.toggleGroup(m_kind.kind); });
    connect(m_header, &SidebarGroupHeader::addRequested, this,
            [this] { m_view.addRecord(m_kind.kind); });
    connect(&m_view, &SettingsView::expandedChanged, this,
            [this](SettingsTabKey::Kind group, bool animated) {
                if (group == m_kind.kind)
                    applyExpanded(animated);
            });
    connect(&m_view, &SettingsView::selectedTabChanged, this, &SidebarGroup::refreshSelection);

    // A template's symbol also shows whether its printer still exists, so
    // every list change is looked at; updating the rows in place is cheap.
    AppSettings& settings = m_view.settings();
    connect(&settings, &AppSettings::dossiersChanged, this, &SidebarGroup::refreshRows);
    connect(&settings, &AppSettings::printersChanged, this, &SidebarGroup::refreshRows);
    connect(&settings, &AppSettings::templatesChanged, this, &SidebarGroup::refreshRows);

    refreshRows();
    applyExpanded(false);
}

void SidebarGroup::refreshRows()
{
    const QList<SettingsRecordKind::Entry> entries = m_kind.entries(m_view.settings());
    const bool sameRecords = std::equal(
        entries.begin(), entries.end(), m_rowIDs.begin(), m_rowIDs.end(),
        [](const SettingsRecordKind::Entry& entry, const QUuid& id) { return entry.id == id; });
    if (!sameRecords)
        rebuildRows(entries);
    for (qsizetype i = 0; i < entries.size(); ++i) {
        SidebarRow* row = m_rows.at(i);
        const SettingsRecordKind::Entry& entry = entries.at(i);
        row->setText(entry.name);
        row->setHighlighted(entry.isSetUp);
        row->setSymbol(entry.isSetUp ? m_kind.filledSymbol : m_kind.symbol);
    }
    m_emptyLabel->setVisible(entries.isEmpty());
    refreshSelection();
}

void SidebarGroup::rebuildRows(const QList<SettingsRecordKind::Entry>& entries)
{
    // Deferred: a rebuild may run inside a signal that one of these rows is handling.
    for (SidebarRow* row : std::as_const(m_rows)) {
        row->hide();
        m_rowsLayout->removeWidget(row);
        row->deleteLater();
    }
    m_rows.clear();
    m_rowIDs.clear();
    for (const SettingsRecordKind::Entry& entry : entries) {
        auto* row = new SidebarRow(SidebarRow::Style::record);
        const QUuid id = entry.id;
        connect(row, &SidebarRow::activated, this, [this, id] { m_view.select(m_kind.kind, id); });
        m_rowsLayout->addWidget(row);
        m_rows.append(row);
        m_rowIDs.append(id);
    }
}

void SidebarGroup::refreshSelection()
{
    for (qsizetype i = 0; i < m_rows.size(); ++i)
        m_rows.at(i)->setSelected(m_view.selectedTab() ==
                                  SettingsTabKey::make(m_kind.kind, m_rowIDs.at(i)));
}

bool SidebarGroup::isBodyShown() const
{
    return m_view.isExpanded(m_kind.kind) && !m_body->isHidden();
}

void SidebarGroup::applyExpanded(bool animated)
{
    const bool expanded = m_view.isExpanded(m_kind.kind);
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
