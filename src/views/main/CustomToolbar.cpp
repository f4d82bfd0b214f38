#include "views/main/CustomToolbar.h"

#include "model/AppSettings.h"
#include "viewmodels/ProductListViewModel.h"
#include "views/common/Card.h"
#include "views/common/Divider.h"
#include "views/common/SymbolIcons.h"
#include "views/common/SymbolLabel.h"
#include "views/common/Theme.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPickerWidth = 150;
constexpr int kSearchWidth = 200;
constexpr int kDividerHeight = 20;
constexpr int kClearSymbolSize = 10;

QColor badgeGreen(const QPalette&)
{
    return Theme::badgeGreen();
}

QWidget* pickerGroup(const QString& title, QComboBox* picker, QWidget* parent)
{
    auto* group = new QWidget(parent);
    auto* layout = new QHBoxLayout(group);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    auto* label = Theme::label(title, Theme::systemFont(12), Theme::kSecondaryText, group);
    // Screen readers name the picker after this label.
    label->setBuddy(picker);
    layout->addWidget(label);
    picker->setParent(group);
    picker->setFixedWidth(kPickerWidth);
    picker->setFont(Theme::body());
    layout->addWidget(picker);
    return group;
}

// Fills a picker with (name, id) entries and shows the one whose id matches, or none.
template <typename Record>
void fillPicker(QComboBox* picker, const QList<Record>& records, std::optional<QUuid> selected)
{
    const QSignalBlocker blocker(picker);
    picker->clear();
    int current = -1;
    for (const Record& record : records) {
        if (selected && record.id == *selected)
            current = picker->count();
        picker->addItem(record.name, record.id);
    }
    picker->setCurrentIndex(current);
}

} // namespace

CustomToolbar::CustomToolbar(AppSettings& settings, ProductListViewModel& viewModel,
                             QWidget* parent)
    : QWidget(parent), m_settings(settings), m_viewModel(viewModel),
      m_dossierPicker(new QComboBox(this)), m_templatePicker(new QComboBox(this)),
      m_searchField(new QLineEdit(this)), m_reload(new QPushButton(this)),
      m_observedDossierID(settings.selectedDossierID())
{
    m_dossierPicker->setObjectName(u"dossierPicker"_s);
    m_templatePicker->setObjectName(u"templatePicker"_s);
    m_reload->setObjectName(u"reloadButton"_s);
    showReloadSymbol();
    m_reload->setAccessibleName(u"Vernieuwen"_s);
    // The pickers have no visible title of their own: the text beside them names them.
    m_dossierPicker->setAccessibleName(u"Dossier"_s);
    m_templatePicker->setAccessibleName(u"Etiket"_s);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(12, 8, 12, 8);
    layout->setSpacing(16);
    layout->addWidget(pickerGroup(u"Dossier:"_s, m_dossierPicker, this));
    layout->addWidget(new Divider(Qt::Vertical, kDividerHeight, this));
    layout->addWidget(pickerGroup(u"Etiket:"_s, m_templatePicker, this));
    layout->addWidget(new Divider(Qt::Vertical, kDividerHeight, this));
    layout->addWidget(buildSearchField());
    layout->addWidget(buildCheckedBadge());
    layout->addStretch();
    layout->addWidget(m_reload);

    connect(m_dossierPicker, &QComboBox::activated, this, &CustomToolbar::chooseDossier);
    connect(m_templatePicker, &QComboBox::activated, this, &CustomToolbar::chooseTemplate);
    connect(m_searchField, &QLineEdit::textEdited, &m_viewModel,
            &ProductListViewModel::setSearchText);
    connect(m_reload, &QPushButton::clicked, this, &CustomToolbar::reload);
    connect(m_clearChecked, &QToolButton::clicked, &m_viewModel,
            &ProductListViewModel::clearChecked);

    connect(&m_settings, &AppSettings::dossiersChanged, this, &CustomToolbar::showDossiers);
    connect(&m_settings, &AppSettings::selectedDossierIDChanged, this,
            &CustomToolbar::showDossiers);
    connect(&m_settings, &AppSettings::selectedDossierIDChanged, this,
            &CustomToolbar::reloadOnDossierChange);
    connect(&m_settings, &AppSettings::templatesChanged, this, &CustomToolbar::showTemplates);
    connect(&m_settings, &AppSettings::selectedTemplateIDChanged, this,
            &CustomToolbar::showTemplates);
    connect(&m_viewModel, &ProductListViewModel::searchTextChanged, this,
            &CustomToolbar::showSearchText);
    connect(&m_viewModel, &ProductListViewModel::checkedProductIDsChanged, this,
            &CustomToolbar::showCheckedCount);
    connect(&m_viewModel, &ProductListViewModel::isLoadingChanged, this,
            &CustomToolbar::showLoading);

    showDossiers();
    showTemplates();
    showSearchText();
    showCheckedCount();
    showLoading();
}

QWidget* CustomToolbar::checkedBadge() const
{
    return m_badge;
}

QList<QWidget*> CustomToolbar::focusChain() const
{
    return {m_dossierPicker, m_templatePicker, m_searchField, m_clearChecked, m_reload};
}

QWidget* CustomToolbar::buildSearchField()
{
    auto* box = new Card(6, &Theme::controlBackground, &Theme::separator, this);
    // The field has no frame of its own; the box shows where the focus is.
    box->showFocusOf(m_searchField);
    auto* layout = new QHBoxLayout(box);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->addWidget(new SymbolLabel(u"magnifyingglass"_s, 14, Theme::kSecondaryText, box));
    m_searchField->setParent(box);
    m_searchField->setObjectName(u"searchField"_s);
    m_searchField->setFrame(false);
    m_searchField->setFixedWidth(kSearchWidth);
    m_searchField->setFont(Theme::body());
    m_searchField->setPlaceholderText(u"Zoeken..."_s);
    m_searchField->setAccessibleName(u"Zoeken"_s);
    m_searchField->setAttribute(Qt::WA_MacShowFocusRect, false);
    layout->addWidget(m_searchField);
    return box;
}

QWidget* CustomToolbar::buildCheckedBadge()
{
    m_badge = new Card(12, &badgeGreen, nullptr, this);
    m_badge->setObjectName(u"checkedBadge"_s);
    auto* layout = new QHBoxLayout(m_badge);
    layout->setContentsMargins(10, 4, 10, 4);
    layout->setSpacing(6);
    m_badgeLabel = Theme::label(QString(), Theme::systemFont(10, QFont::Medium),
                                QPalette::WindowText, m_badge);
    QPalette white = m_badgeLabel->palette();
    white.setColor(QPalette::WindowText, Qt::white);
    m_badgeLabel->setPalette(white);
    layout->addWidget(m_badgeLabel);
    m_clearChecked = new QToolButton(m_badge);
    m_clearChecked->setObjectName(u"clearCheckedButton"_s);
    m_clearChecked->setAccessibleName(u"Selectie wissen"_s);
    m_clearChecked->setAutoRaise(true);
    m_clearChecked->setCursor(Qt::PointingHandCursor);
    m_clearChecked->setIcon(SymbolIcons::tinted(u"xmark", Qt::white, kClearSymbolSize));
    m_clearChecked->setIconSize(QSize(kClearSymbolSize, kClearSymbolSize));
    // A white ring on the green badge while it has the keyboard focus.
    m_clearChecked->setStyleSheet(
        u"QToolButton { border: 1px solid transparent; border-radius: 3px; padding: 0px;"
        " background: transparent; } QToolButton:focus { border-color: white; }"_s);
    layout->addWidget(m_clearChecked);
    return m_badge;
}

void CustomToolbar::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showReloadSymbol();
}

// The bundled symbol is drawn in the palette's text colour.
void CustomToolbar::showReloadSymbol()
{
    m_reload->setIcon(SymbolIcons::icon(u"arrow.clockwise"));
}

void CustomToolbar::showDossiers()
{
    fillPicker(m_dossierPicker, m_settings.dossiers(), m_settings.selectedDossierID());
}

void CustomToolbar::showTemplates()
{
    fillPicker(m_templatePicker, m_settings.templates(), m_settings.selectedTemplateID());
}

void CustomToolbar::chooseDossier(int index)
{
    const QUuid id = m_dossierPicker->itemData(index).toUuid();
    if (m_settings.selectedDossierID() != id)
        m_settings.setSelectedDossierID(id);
}

void CustomToolbar::chooseTemplate(int index)
{
    const QUuid id = m_templatePicker->itemData(index).toUuid();
    if (m_settings.selectedTemplateID() != id)
        m_settings.setSelectedTemplateID(id);
}

void CustomToolbar::reloadOnDossierChange()
{
    // The store announces every assignment; only a different dossier reloads.
    const std::optional<QUuid> current = m_settings.selectedDossierID();
    if (current == m_observedDossierID)
        return;
    m_observedDossierID = current;
    m_viewModel.fetchProducts();
}

void CustomToolbar::showSearchText()
{
    if (m_searchField->text() != m_viewModel.searchText())
        m_searchField->setText(m_viewModel.searchText());
}

void CustomToolbar::showCheckedCount()
{
    const qsizetype count = m_viewModel.checkedProductIDs().size();
    m_badgeLabel->setText(QString::number(count) + u" geselecteerd"_s);
    m_badge->setVisible(count > 0);
}

void CustomToolbar::showLoading()
{
    m_reload->setEnabled(!m_viewModel.isLoading());
}

void CustomToolbar::reload()
{
    m_viewModel.fetchProducts();
}
