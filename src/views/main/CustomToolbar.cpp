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
constexpr int kReloadSymbolSize = 16;

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
    m_reload->setAccessibleName(u"Vernieuwen"_s);
    showReloadSymbol();
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

    connect(m_dossierPicker, &QComboBox::activated, this, [this](int index) {
        const QUuid id = m_dossierPicker->itemData(index).toUuid();
        if (m_settings.selectedDossierID() != id)
            m_settings.setSelectedDossierID(id);
    });
    connect(m_templatePicker, &QComboBox::activated, this, [this](int index) {
        const QUuid id = m_templatePicker->itemData(index).toUuid();
        if (m_settings.selectedTemplateID() != id)
            m_settings.setSelectedTemplateID(id);
    });
    connect(m_searchField, &QLineEdit::textEdited, &m_viewModel,
            &ProductListViewModel::setSearchText);
    connect(m_reload, &QPushButton::clicked, &m_viewModel, &ProductListViewModel::fetchProducts);
    connect(m_clearChecked, &QToolButton::clicked, &m_viewModel,
            &ProductListViewModel::clearChecked);

    for (auto signal : {&AppSettings::dossiersChanged, &AppSettings::selectedDossierIDChanged,
                        &AppSettings::templatesChanged, &AppSettings::selectedTemplateIDChanged})
        connect(&m_settings, signal, this, &CustomToolbar::showPickers);
    connect(&m_settings, &AppSettings::selectedDossierIDChanged, this,
            &CustomToolbar::reloadOnDossierChange);
    connect(&m_viewModel, &ProductListViewModel::searchTextChanged, this,
            &CustomToolbar::showSearchText);
    connect(&m_viewModel, &ProductListViewModel::checkedProductIDsChanged, this,
            &CustomToolbar::showCheckedCount);
    connect(&m_viewModel, &ProductListViewModel::isLoadingChanged, this,
            &CustomToolbar::showLoading);

    showPickers();
    showSearchText();
    showCheckedCount();
    showLoading();
}

QList<QWidget*> CustomToolbar::focusChain() const
{
    return {m_dossierPicker, m_templatePicker, m_searchField, m_clearChecked, m_reload};
}

QWidget* CustomToolbar::buildSearchField()
{
    auto* box = new Card(6, QPalette::Base, QPalette::WindowText, Theme::kSeparatorOpacity, this);
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
    m_badge = new Card(12, QPalette::Window, QPalette::NoRole, 1.0, this);
    m_badge->setObjectName(u"checkedBadge"_s);
    // White on a fixed green, in light and dark alike.
    QPalette colours = m_badge->palette();
    colours.setColor(QPalette::Window, QColor::fromRgb(65, 195, 145));
    colours.setColor(QPalette::WindowText, Qt::white);
    m_badge->setPalette(colours);
    auto* layout = new QHBoxLayout(m_badge);
    layout->setContentsMargins(10, 4, 10, 4);
    layout->setSpacing(6);
    m_badgeLabel =
        Theme::label({}, Theme::systemFont(10, QFont::Medium), QPalette::WindowText, m_badge);
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

// The desktop's own reload icon where it has one; the bundled symbol, drawn in
// the text colour, otherwise.
void CustomToolbar::showReloadSymbol()
{
    m_reload->setIcon(QIcon::fromTheme(u"view-refresh"_s,
                                       SymbolIcons::tinted(u"arrow.clockwise",
                                                           palette().color(QPalette::WindowText),
                                                           kReloadSymbolSize)));
}

void CustomToolbar::showPickers()
{
    fillPicker(m_dossierPicker, m_settings.dossiers(), m_settings.selectedDossierID());
    fillPicker(m_templatePicker, m_settings.templates(), m_settings.selectedTemplateID());
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
