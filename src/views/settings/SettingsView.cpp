#include "views/settings/SettingsView.h"

#include "model/AppSettings.h"
#include "views/common/AppInfo.h"
#include "views/common/Card.h"
#include "views/common/Divider.h"
#include "views/common/SaveErrorLabel.h"
#include "views/common/SymbolLabel.h"
#include "views/common/Theme.h"
#include "views/settings/AboutSettingsPage.h"
#include "views/settings/DossierEditorPage.h"
#include "views/settings/NoRecordSelectedView.h"
#include "views/settings/PrinterEditorPage.h"
#include "views/settings/SettingsRecordKind.h"
#include "views/settings/SettingsSidebar.h"
#include "views/settings/TemplateEditorPage.h"

#include <QClipboard>
#include <QGraphicsDropShadowEffect>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QShowEvent>
#include <QStackedWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTileSize = 44;
constexpr int kGearSize = 24;

QWidget* gearTile()
{
    QColor blueFaded = Theme::blue();
    blueFaded.setAlphaF(0.8f);
    auto* tile = new Card(10);
    tile->setGradient(Theme::blue(), blueFaded);
    tile->setFixedSize(kTileSize, kTileSize);
    auto* shadow = new QGraphicsDropShadowEffect(tile);
    shadow->setColor(QColor(0, 0, 0, 26));
    shadow->setBlurRadius(8);
    shadow->setOffset(0, 2);
    tile->setGraphicsEffect(shadow);
    auto* centre = new QVBoxLayout(tile);
    centre->setContentsMargins(0, 0, 0, 0);
    centre->addWidget(new SymbolLabel(u"gear"_s, kGearSize, QColor(Qt::white)), 0, Qt::AlignCenter);
    return tile;
}

// The band at the top: a gear tile, the title and a one-line explanation.
QWidget* headerView()
{
    auto* texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addStretch();
    texts->addWidget(Theme::label(u"Stampix Instellingen"_s, Theme::systemFont(20, QFont::DemiBold),
                                  QPalette::WindowText));
    texts->addWidget(Theme::label(u"Configureer je dossiers, printers en etiket templates"_s,
                                  Theme::systemFont(12), Theme::kSecondaryText));
    texts->addStretch();
    auto* header = new QWidget;
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(24, 16, 24, 16);
    row->setSpacing(16);
    row->addWidget(gearTile());
    row->addLayout(texts);
    row->addStretch();
    header->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    // The band fades to 0.95 of this colour at its bottom edge, which no eye can tell.
    header->setBackgroundRole(QPalette::Base);
    header->setAutoFillBackground(true);
    return header;
}

// The band at the bottom: the auto-save note, why the settings were not
// saved (after a failed save only) and the version.
QWidget* footerView(SaveErrorLabel* saveError)
{
    auto* footer = new QWidget;
    auto* row = new QHBoxLayout(footer);
    row->setContentsMargins(24, 12, 24, 12);
    row->addWidget(Theme::label(u"Wijzigingen worden automatisch opgeslagen"_s,
                                Theme::systemFont(11), Theme::kSecondaryText));
    // Beside the note it contradicts; hidden while saves succeed.
    row->addWidget(saveError);
    row->addStretch();
    row->addWidget(
        Theme::label(SettingsView::appVersion(), Theme::systemFont(11), Theme::kSecondaryText));
    footer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return footer;
}

} // namespace

SettingsView::SettingsView(AppSettings& settings, QWidget* parent)
    : QWidget(parent), m_model(new SettingsViewModel(settings)),
      m_sidebar(new SettingsSidebar(*m_model)), m_content(new QStackedWidget),
      m_saveErrorLabel(new SaveErrorLabel(settings, Theme::systemFont(11), nullptr)),
      m_footer(footerView(m_saveErrorLabel)),
      m_nothing(Theme::label(u"Selecteer een item"_s, Theme::body(), Theme::kSecondaryText)),
      m_about(new AboutSettingsPage)
{
    setAutoFillBackground(true);
    // The detail area's pages live as long as the window; a selection only
    // changes which one shows and which record an editor shows.
    m_content->setObjectName(u"contentView"_s);
    m_nothing->setAlignment(Qt::AlignCenter);
    m_content->addWidget(m_nothing);
    addScrolled(m_about);
    const QMap<Kind, SettingsEditorPage*> editors{
        {Kind::dossier, new DossierEditorPage(*m_model)},
        {Kind::printer, new PrinterEditorPage(*m_model)},
        {Kind::labelTemplate, new TemplateEditorPage(*m_model)}};
    for (const SettingsRecordKind& kind : SettingsRecordKind::all()) {
        const KindPages pages{editors.value(kind.kind), new NoRecordSelectedView(kind, false),
                              new NoRecordSelectedView(kind, true)};
        addScrolled(pages.editor);
        m_content->addWidget(pages.prompt);
        m_content->addWidget(pages.emptyList);
        m_kindPages.insert(kind.kind, pages);
    }

    auto* body = new QHBoxLayout;
    body->setContentsMargins(0, 0, 0, 0);
    body->setSpacing(0);
    body->addWidget(m_sidebar);
    body->addWidget(makeDivider(Qt::Vertical));
    body->addWidget(m_content, 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(headerView());
    column->addWidget(makeDivider(Qt::Horizontal));
    column->addLayout(body, 1);
    column->addWidget(makeDivider(Qt::Horizontal));
    column->addWidget(m_footer);

    connect(m_model, &SettingsViewModel::selectedTabChanged, this, &SettingsView::showSelection);
    connect(&settings, &AppSettings::dossiersChanged, this, &SettingsView::showSelection);
    connect(&settings, &AppSettings::printersChanged, this, &SettingsView::showSelection);
    connect(&settings, &AppSettings::templatesChanged, this, &SettingsView::showSelection);
    showSelection();
    // Parented last, so it goes after the pages: a field that loses the focus
    // on its way out still reads the state.
    m_model->setParent(this);
}

QString SettingsView::appVersion()
{
    return u"v"_s + AppInfo::version() + u"."_s + AppInfo::buildNumber();
}

Divider* SettingsView::makeDivider(Qt::Orientation orientation)
{
    return new Divider(orientation);
}

void SettingsView::copyPlaceholder(const QString& key)
{
    QGuiApplication::clipboard()->setText(key);
    m_model->placeholderCopied(key);
}

void SettingsView::paintEvent(QPaintEvent*)
{
    // The sidebar and the footer lie on the control background at half strength.
    QColor band = palette().color(QPalette::Base);
    band.setAlphaF(0.5f);
    QPainter painter(this);
    painter.fillRect(m_sidebar->geometry(), band);
    painter.fillRect(m_footer->geometry(), band);
}

void SettingsView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    m_model->initializeSelectedTab();
    // The keyboard starts in the sidebar.
    if (!isAncestorOf(focusWidget()))
        m_sidebar->setFocus(Qt::TabFocusReason);
}

void SettingsView::addScrolled(QWidget* page)
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
    m_content->addWidget(scroll);
}

QWidget* SettingsView::page() const
{
    auto* scroll = qobject_cast<QScrollArea*>(m_content->currentWidget());
    return scroll ? scroll->widget() : m_content->currentWidget();
}

void SettingsView::showSelection()
{
    const SettingsTabKey::Parsed key = SettingsTabKey::parse(m_model->selectedTab());
    const QUuid record = key.id && m_model->indexOf(key.kind, *key.id) >= 0 ? *key.id : QUuid();
    QWidget* shown = m_nothing;
    if (key.kind == Kind::about)
        shown = m_about;
    if (const auto pages = m_kindPages.constFind(key.kind); pages != m_kindPages.constEnd()) {
        shown = !record.isNull()                   ? pages->editor
                : m_model->ids(key.kind).isEmpty() ? pages->emptyList
                                                   : pages->prompt;
    }
    if (shown == m_shownPage && record == m_shownRecord)
        return;
    // Keyboard users keep their place in the window when the page they were
    // in goes or shows another record.
    if (m_content->isAncestorOf(window()->focusWidget()))
        m_sidebar->setFocus(Qt::TabFocusReason);
    m_shownPage = shown;
    m_shownRecord = record;
    if (!record.isNull())
        m_kindPages[key.kind].editor->setRecord(record);
    const bool scrolled = shown == m_about || !record.isNull();
    m_content->setCurrentWidget(scrolled ? shown->parentWidget()->parentWidget() : shown);
}
