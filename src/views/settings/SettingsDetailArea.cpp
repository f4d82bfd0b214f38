#include "views/settings/SettingsDetailArea.h"

#include "model/AppSettings.h"
#include "views/common/Theme.h"
#include "views/settings/AboutSettingsPage.h"
#include "views/settings/DossierEditorPage.h"
#include "views/settings/NoRecordSelectedView.h"
#include "views/settings/PrinterEditorPage.h"
#include "views/settings/SettingsRecordKind.h"
#include "views/settings/SettingsView.h"
#include "views/settings/TemplateEditorPage.h"

#include <QLabel>
#include <QScrollArea>

using namespace Qt::StringLiterals;
using Kind = SettingsTabKey::Kind;

SettingsDetailArea::SettingsDetailArea(SettingsView& view, QWidget* parent)
    : QStackedWidget(parent), m_view(view),
      m_nothing(Theme::label(u"Selecteer een item"_s, Theme::body(), Theme::kSecondaryText)),
      m_about(new AboutSettingsPage)
{
    setObjectName(u"contentView"_s);
    // Connected before any page exists, so an editor is given its record's
    // new position before it reacts to the same store change.
    AppSettings& settings = m_view.settings();
    connect(&m_view, &SettingsView::selectedTabChanged, this, &SettingsDetailArea::refresh);
    connect(&settings, &AppSettings::dossiersChanged, this, &SettingsDetailArea::refresh);
    connect(&settings, &AppSettings::printersChanged, this, &SettingsDetailArea::refresh);
    connect(&settings, &AppSettings::templatesChanged, this, &SettingsDetailArea::refresh);

    qobject_cast<QLabel*>(m_nothing)->setAlignment(Qt::AlignCenter);
    addWidget(m_nothing);
    addScrolled(m_about);
    const QMap<Kind, QWidget*> editors{{Kind::dossier, new DossierEditorPage(m_view, -1)},
                                       {Kind::printer, new PrinterEditorPage(m_view, -1)},
                                       {Kind::labelTemplate, new TemplateEditorPage(m_view, -1)}};
    for (const SettingsRecordKind& kind : SettingsRecordKind::all()) {
        const KindPages pages{editors.value(kind.kind), new NoRecordSelectedView(kind, false),
                              new NoRecordSelectedView(kind, true)};
        addScrolled(pages.editor);
        addWidget(pages.prompt);
        addWidget(pages.emptyList);
        m_kindPages.insert(kind.kind, pages);
    }
    refresh();
}

void SettingsDetailArea::addScrolled(QWidget* page)
{
    auto* scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The page's controls take the focus, not the area around them.
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->viewport()->setAutoFillBackground(false);
    page->setAutoFillBackground(false);
    scroll->setWidget(page);
    addWidget(scroll);
}

QWidget* SettingsDetailArea::page() const
{
    auto* scroll = qobject_cast<QScrollArea*>(currentWidget());
    return scroll ? scroll->widget() : currentWidget();
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
    if (target == m_shown && currentWidget())
        return;
    // Keyboard users keep their place in the window when the page they were
    // in goes or shows another record.
    if (isAncestorOf(window()->focusWidget()))
        m_view.focusSidebar();
    m_shown = target;
    QWidget* shown = m_nothing;
    if (target.kind == Kind::about) {
        shown = m_about;
    } else if (m_kindPages.contains(target.kind)) {
        const KindPages& pages = m_kindPages[target.kind];
        shown =
            target.index < 0 ? (target.listEmpty ? pages.emptyList : pages.prompt) : pages.editor;
    }
    if (auto* dossier = qobject_cast<DossierEditorPage*>(shown))
        dossier->setRecord(target.id);
    else if (auto* printer = qobject_cast<PrinterEditorPage*>(shown))
        printer->setRecord(target.id);
    else if (auto* labelTemplate = qobject_cast<TemplateEditorPage*>(shown))
        labelTemplate->setRecord(target.id);
    const bool scrolled = shown == m_about || target.index >= 0;
    setCurrentWidget(scrolled ? shown->parentWidget()->parentWidget() : shown);
}
