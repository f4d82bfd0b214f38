#include "views/settings/SettingsDetailArea.h"

#include "model/AppSettings.h"
#include "views/common/ThemedLabel.h"
#include "views/settings/AboutSettingsPage.h"
#include "views/settings/NoRecordSelectedView.h"
#include "views/settings/SettingsRecordKind.h"
#include "views/settings/SettingsView.h"

#include <QScrollArea>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using Kind = SettingsTabKey::Kind;

SettingsDetailArea::SettingsDetailArea(SettingsView& view, QWidget* parent)
    : QWidget(parent), m_view(view), m_layout(new QVBoxLayout(this))
{
    setObjectName(u"contentView"_s);
    m_layout->setContentsMargins(0, 0, 0, 0);
    // Connected before any page exists, so the area reacts to a store change
    // ahead of the page it may replace.
    AppSettings& settings = m_view.settings();
    connect(&m_view, &SettingsView::selectedTabChanged, this, &SettingsDetailArea::refresh);
    connect(&settings, &AppSettings::dossiersChanged, this, &SettingsDetailArea::refresh);
    connect(&settings, &AppSettings::printersChanged, this, &SettingsDetailArea::refresh);
    connect(&settings, &AppSettings::templatesChanged, this, &SettingsDetailArea::refresh);
    refresh();
}

SettingsDetailArea::Target SettingsDetailArea::currentTarget() const
{
    const SettingsTabKey::Parsed key = SettingsTabKey::parse(m_view.selectedTab());
    const SettingsRecordKind* records = SettingsRecordKind::of(key.kind);
    if (!records)
        return {key.kind, -1, false, {}};
    const AppSettings& settings = m_view.settings();
    const qsizetype index = key.id ? records->indexOf(settings, *key.id) : -1;
    if (index >= 0)
        return {key.kind, index, false, *key.id};
    return {key.kind, -1, records->entries(settings).isEmpty(), {}};
}

void SettingsDetailArea::refresh()
{
    const Target target = currentTarget();
    if (m_hasPage && target == m_shown)
        return;
    if (m_container) {
        // Keyboard users keep their place in the window when the focused page goes.
        if (m_container->isAncestorOf(window()->focusWidget()))
            m_view.focusSidebar();
        // The old page may be the sender of the change (its delete button):
        // detach it now, delete it once its handler has returned.
        m_container->hide();
        m_layout->removeWidget(m_container);
        QObject::disconnect(&m_view.settings(), nullptr, m_page, nullptr);
        QObject::disconnect(&m_view, nullptr, m_page, nullptr);
        m_container->deleteLater();
    }
    m_shown = target;
    m_hasPage = true;
    m_page = makePage(target);
    const bool scrolls = target.kind == Kind::about || target.index >= 0;
    m_container = m_page;
    if (scrolls) {
        auto* scroll = new QScrollArea;
        scroll->setFrameShape(QFrame::NoFrame);
        scroll->setWidgetResizable(true);
        scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        // The page's controls take the focus, not the area around them.
        scroll->setFocusPolicy(Qt::NoFocus);
        scroll->viewport()->setAutoFillBackground(false);
        m_page->setAutoFillBackground(false);
        scroll->setWidget(m_page);
        m_container = scroll;
    }
    m_layout->addWidget(m_container);
    // A layout shows a new child only on the next event loop turn; show it now
    // so the page is complete as soon as the selection changed.
    m_container->show();
}

QWidget* SettingsDetailArea::makePage(const Target& target) const
{
    if (target.kind == Kind::about)
        return new AboutSettingsPage;
    if (const SettingsRecordKind* records = SettingsRecordKind::of(target.kind)) {
        if (target.index >= 0)
            return records->makeEditor(m_view, target.index);
        return new NoRecordSelectedView(*records, target.listEmpty);
    }
    auto* nothing = new ThemedLabel(u"Selecteer een item"_s, Theme::body(), &Theme::secondaryText);
    nothing->setAlignment(Qt::AlignCenter);
    return nothing;
}

QList<QWidget*> SettingsDetailArea::tabStops() const
{
    QList<QWidget*> stops;
    if (!m_page)
        return stops;
    for (QWidget* w = m_page->nextInFocusChain(); w != m_page; w = w->nextInFocusChain()) {
        if (m_page->isAncestorOf(w) && w->isVisibleTo(m_page) && w->isEnabled() &&
            (w->focusPolicy() & Qt::TabFocus))
            stops.append(w);
    }
    return stops;
}

bool SettingsDetailArea::focusEdge(bool first)
{
    const QList<QWidget*> stops = tabStops();
    if (stops.isEmpty())
        return false;
    QWidget* target = first ? stops.constFirst() : stops.constLast();
    target->setFocus(first ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    if (auto* scroll = qobject_cast<QScrollArea*>(m_container.data()))
        scroll->ensureWidgetVisible(target);
    return true;
}

bool SettingsDetailArea::focusNextPrevChild(bool next)
{
    // Past the page's last control (or before its first) the sidebar follows.
    const QList<QWidget*> stops = tabStops();
    QWidget* edge = stops.isEmpty() ? nullptr : (next ? stops.constLast() : stops.constFirst());
    if (!edge || edge == window()->focusWidget()) {
        m_view.focusSidebar();
        return true;
    }
    return QWidget::focusNextPrevChild(next);
}
