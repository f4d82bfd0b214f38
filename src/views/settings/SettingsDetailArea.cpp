#include "SettingsDetailArea.h"

#include "AboutSettingsPage.h"
#include "DossierEditorPage.h"
#include "NoRecordSelectedView.h"
#include "PrinterEditorPage.h"
#include "SettingsText.h"
#include "SettingsView.h"
#include "TemplateEditorPage.h"
#include "model/AppSettings.h"
#include "views/main/Theme.h"

#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

template <typename Record>
qsizetype indexOf(const QList<Record>& records, const std::optional<QUuid>& id)
{
    if (!id)
        return -1;
    for (qsizetype i = 0; i < records.size(); ++i) {
        if (records.at(i).id == *id)
            return i;
    }
    return -1;
}

} // namespace

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
    const AppSettings& settings = m_view.settings();
    const SettingsTabKey::Parsed key = SettingsTabKey::parse(m_view.selectedTab());
    const auto recordTarget = [&key](qsizetype index, bool listEmpty, Page editor, Page empty) {
        return index >= 0 ? Target{editor, index, false, *key.id}
                          : Target{empty, -1, listEmpty, {}};
    };
    switch (key.kind) {
    case SettingsTabKey::Kind::dossier:
        return recordTarget(indexOf(settings.dossiers(), key.id), settings.dossiers().isEmpty(),
                            Page::dossierEditor, Page::noDossier);
    case SettingsTabKey::Kind::printer:
        return recordTarget(indexOf(settings.printers(), key.id), settings.printers().isEmpty(),
                            Page::printerEditor, Page::noPrinter);
    case SettingsTabKey::Kind::labelTemplate:
        return recordTarget(indexOf(settings.templates(), key.id), settings.templates().isEmpty(),
                            Page::templateEditor, Page::noTemplate);
    case SettingsTabKey::Kind::about:
        return {Page::about, -1, false, {}};
    case SettingsTabKey::Kind::none:
        break;
    }
    return {};
}

void SettingsDetailArea::refresh()
{
    const Target target = currentTarget();
    if (m_hasPage && target == m_shown)
        return;
    if (m_container) {
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
    const bool scrolls = target.page == Page::dossierEditor || target.page == Page::printerEditor ||
                         target.page == Page::templateEditor || target.page == Page::about;
    m_container = scrolls ? inScrollArea(m_page) : m_page.data();
    m_layout->addWidget(m_container);
    // A layout shows a new child only on the next event loop turn; show it now
    // so the page is complete as soon as the selection changed.
    m_container->show();
}

QWidget* SettingsDetailArea::makePage(const Target& target)
{
    switch (target.page) {
    case Page::dossierEditor:
        return new DossierEditorPage(m_view, target.index);
    case Page::printerEditor:
        return new PrinterEditorPage(m_view, target.index);
    case Page::templateEditor:
        return new TemplateEditorPage(m_view, target.index);
    case Page::noDossier:
        return new NoRecordSelectedView(SettingsTabKey::Kind::dossier, target.listEmpty);
    case Page::noPrinter:
        return new NoRecordSelectedView(SettingsTabKey::Kind::printer, target.listEmpty);
    case Page::noTemplate:
        return new NoRecordSelectedView(SettingsTabKey::Kind::labelTemplate, target.listEmpty);
    case Page::about:
        return new AboutSettingsPage;
    case Page::nothing:
        break;
    }
    auto* nothing = SettingsText::secondary(u"Selecteer een item"_s, Theme::body());
    nothing->setAlignment(Qt::AlignCenter);
    return nothing;
}

QWidget* SettingsDetailArea::inScrollArea(QWidget* page)
{
    auto* scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    scroll->viewport()->setAutoFillBackground(false);
    page->setAutoFillBackground(false);
    scroll->setWidget(page);
    return scroll;
}
